// The grammar once more, in regular expressions, against the scanner.
#include <gtest/gtest.h>

#include <QByteArray>
#include <array>
#include <random>
#include <regex>
#include <string>

#include "tests/opc/UriText.h"

namespace {

using namespace tarn::opc;
using std::regex;
using std::string;

string AnyOf(const string& characters) {
    return "(?:[" + characters + "]|%[0-9A-Fa-f]{2})";
}

const string kUnreservedAndSubDelims = "A-Za-z0-9\\-._~!$&'()*+,;=";
const string kHost = AnyOf(kUnreservedAndSubDelims) + "*";
const string kUserInfo = AnyOf(kUnreservedAndSubDelims + ":") + "*";
const string kIpLiteral = "\\[" + kUserInfo + "\\]";
const string kPathText = AnyOf(kUnreservedAndSubDelims + ":@/") + "*";
const string kAny = AnyOf(kUnreservedAndSubDelims + ":@/?\\[\\]") + "*";

const regex kScheme("([A-Za-z][A-Za-z0-9+.\\-]*):");
const regex kServer("(?:(" + kUserInfo + ")@)?(" + kIpLiteral + "|" + kHost +
                    ")(?::([0-9]*))?(?=[/?]|$)");
const regex kRegistryName("(" + AnyOf(kUnreservedAndSubDelims + ":@") + "+)");
const regex kAbsolutePath("(/" + kPathText + ")");
const regex kRelativePath("(?=[/?#]|" + AnyOf(kUnreservedAndSubDelims + "@") + ")(" + kPathText + ")");
const regex kOpaque("(?=" + AnyOf(kUnreservedAndSubDelims + ":@?") + ")(" + kAny + ")");
const regex kQueryAndFragment("(?:\\?(" + kAny + "))?(?:#(" + kAny + "))?$");

// What the text means, or "error"; a component is decoded by `show`.
class Model {
public:
    Model(string text, bool raw) : text_(std::move(text)), raw_(raw) {}

    string Describe() {
        const bool parsed = (Eat(kScheme) && Add("s", 1) && Hierarchy(kOpaque, "o") && Rest()) ||
                            (StartAgain() && Hierarchy(kRelativePath, "p") && Rest());
        return parsed ? description_ : "error";
    }

private:
    bool Hierarchy(const regex& otherwise, const char* letter) {
        if (rest_.compare(0, 2, "//") == 0) return Authority();
        if (Eat(kAbsolutePath)) return Add("p", 1);
        return Eat(otherwise) && Add(letter, 1);
    }
    bool Authority() {
        rest_.erase(0, 2);
        if (Eat(kServer)) {
            Add("u", 1);
            Add("h", 2);
            AddPort();
        } else if (Eat(kRegistryName)) {
            Add("r", 1);
        } else {
            return false;
        }
        if (Eat(kAbsolutePath)) Add("p", 1);
        return true;
    }
    bool Rest() { return Eat(kQueryAndFragment) && Add("q", 1) && Add("f", 2); }

    bool StartAgain() {
        description_.clear();
        rest_ = text_;
        return true;
    }
    bool Eat(const regex& what) {
        std::smatch match;
        if (!std::regex_search(rest_, match, what, std::regex_constants::match_continuous))
            return false;
        for (std::size_t i = 1; i < match.size(); ++i) {
            matched_[i] = match[i].matched;
            groups_[i] = match[i].str();
        }
        rest_ = match.suffix();
        return true;
    }
    bool Add(const char* letter, std::size_t group) {
        if (!matched_[group]) return true;
        const QByteArray bytes = groups_[group].c_str();
        const QByteArray shown = raw_ ? bytes : QByteArray::fromPercentEncoding(bytes);
        description_ += string(letter) + "(" + shown.constData() + ")";  // up to a NUL
        return true;
    }
    void AddPort() {
        std::uint32_t port = 0;
        for (const char digit : matched_[3] ? groups_[3] : "") {
            port = port * 10 + static_cast<std::uint32_t>(digit - '0');
        }
        if (port != 0) description_ += ":" + std::to_string(port);
    }

    string text_;
    string rest_ = text_;
    bool raw_;
    std::array<bool, 4> matched_{};
    std::array<string, 4> groups_;
    string description_;
};

string RandomText(std::mt19937& random) {
    static const std::array<string, 30> kPieces = {
        "a", "Z",  "http:", "b:", "//",   "//", "/",          "/",     "?",   "#",
        "@", ":",  ":80",   "1",  "[",    "]",  "[::1]",      "%41",   "%00", "%e9",
        "%", "%4", "{",     "\\", "\xE9", " ",  "4294967299", "-._~!", "+",   "u@h"};
    string text;
    for (std::size_t i = random() % 8 + 1; i > 0; --i) text += kPieces[random() % kPieces.size()];
    return text;
}

TEST(UriParser, AgreesWithTheGrammarOnGeneratedTexts) {
    std::mt19937 random(3986);
    int parsed = 0;
    for (int i = 0; i < 20000; ++i) {
        const string text = RandomText(random);
        const bool raw = i % 2 == 0;
        const string expected = Model(text, raw).Describe();
        ASSERT_EQ(vexpa_test::DescribeParsed(text, raw ? std::uint32_t{kUriRaw} : 0U), expected)
            << text;
        parsed += expected != "error" ? 1 : 0;
    }
    EXPECT_GT(parsed, 5000);  // the generator makes enough texts that mean something
}

}  // namespace

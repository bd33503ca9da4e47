#include <gtest/gtest.h>

#include <cstdio>
#include <random>

#include "tests/runtime/zip/ZipClient.h"
#include "tests/support/ScratchFile.h"

namespace {

using namespace vexpa_test;

std::string Quoted(const std::string& text) {
    std::string out = "'";
    for (const char c : text) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

std::string Output(const std::string& command) {
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return {};
    std::string output;
    char buffer[4096];
    for (std::size_t got; (got = fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        output.append(buffer, got);
    pclose(pipe);
    return output;
}

bool HasUnzip() {
    return Output("unzip -v 2>/dev/null").find("Info-ZIP") != std::string::npos;
}

// unzip -p writes every entry that matches; each of these ends with a line feed, so the first
// line is the first match.
std::string FirstMatchOfUnzip(const std::string& path, const std::string& pattern) {
    const std::string all = Output("unzip -p " + Quoted(path) + " " + Quoted(pattern) + " 2>/dev/null");
    return all.substr(0, all.find('\n') + 1);
}

void ExpectAgreement(const std::string& path, const std::string& pattern) {
    EXPECT_EQ(UnzipEntry(path, pattern).value_or(""), FirstMatchOfUnzip(path, pattern)) << pattern;
}

ZipFile Named(const std::vector<std::string>& names) {
    ZipFile zip;
    for (const std::string& name : names) zip.Add(name, "content of " + name + "\n");
    return zip;
}

TEST(UnzipAgreement, OnPatternsForDocuments) {
    if (!HasUnzip()) GTEST_SKIP() << "unzip is not installed";
    const ScratchFile file(
        Named({"[Content_Types].xml", "_rels/.rels", "word/document.xml",
               "word/_rels/document.xml.rels", "word/theme/theme1.xml", "word/media/image1.png",
               "word/media/image2.png", "T.xml", "a-b", "a]b"})
            .Bytes());
    for (const char* pattern : {"\\[Content_Types\\].xml",
                                "_rels/.rels",
                                "word/document.xml",
                                "word/*",
                                "*",
                                "*.rels",
                                "*.png",
                                "word/media/image?.png",
                                "word/media/image[2-9].png",
                                "word/media/image[!1].png",
                                "word/media/image[^1].png",
                                "WORD/document.xml",
                                "word",
                                "word*xml",
                                "*theme*",
                                "?.xml",
                                "[S-U].xml",
                                "a[-]b",
                                "a[]]b",
                                "a[\\]]b",
                                "a\\]b",
                                "a]b",
                                "[z-a].xml",
                                "[T-].xml",
                                "[",
                                "[]",
                                "[!]*",
                                "\\T.xml",
                                "T.xml\\",
                                "missing"}) {
        ExpectAgreement(file.Path(), pattern);
    }
}

// Where the rest after a star has no wildcard left, the program compares it with its backslashes
// still in place, and a star after a star wants a character. Neither is a rule to keep.
bool IsReadOtherwise(const std::string& pattern) {
    const std::size_t star = pattern.find('*');
    if (star == std::string::npos) return false;
    return pattern.find('\\', star) != std::string::npos || pattern.find("**") != std::string::npos;
}

TEST(UnzipAgreement, OnPatternsOfEverySort) {
    if (!HasUnzip()) GTEST_SKIP() << "unzip is not installed";
    std::minstd_rand random(20);
    const auto text = [&random](std::string_view alphabet, std::size_t longest) {
        std::string out(1 + random() % longest, ' ');
        for (char& c : out) c = alphabet[random() % alphabet.size()];
        return out;
    };
    std::vector<std::string> names;
    while (names.size() < 120) names.push_back(text("abc-]![\\^", 4));
    const ScratchFile file(Named(names).Bytes());

    int compared = 0;
    while (compared < 250) {
        const std::string pattern = text("abc-]![\\^*?[", 6);
        const bool isName = std::find(names.begin(), names.end(), pattern) != names.end();
        if (pattern[0] == '-' || isName || IsReadOtherwise(pattern)) continue;
        ExpectAgreement(file.Path(), pattern);
        ++compared;
    }
}

}  // namespace

#include "tool/model/AnnotatedXml.h"

#include <cstddef>
#include <cstdint>

namespace vexpa_tool {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string Annotation(std::uint32_t token) {
    if (token == tarn::xmlfx::kNullToken) return "{-}";
    return "{" + std::to_string(token >> 16) + ":" + std::to_string(token & 0xFFFF) + "}";
}

bool IsDeclaration(std::string_view name) {
    return name == "xmlns" || name.starts_with("xmlns:");
}

// A start tag that a parser has accepted, which is why nothing is checked.
class Tag {
public:
    explicit Tag(std::string_view rest) : rest_(rest) {}

    std::string Annotate(const ElementTokens& tokens) {
        TakeTo(rest_.find_first_of(" \t\r\n/>"));
        text_ += Annotation(tokens.element);
        std::size_t attribute = 0;
        for (;;) {
            TakeTo(rest_.find_first_not_of(kBlanks));
            const std::size_t end = rest_.find_first_of(" \t\r\n=/>");
            if (end == 0 || end == std::string_view::npos) break;
            const bool isDeclaration = IsDeclaration(rest_.substr(0, end));
            TakeTo(end);
            if (!isDeclaration) text_ += Annotation(tokens.attributes[attribute++]);
            TakeValue();
        }
        return text_ + std::string(rest_);
    }

private:
    void TakeTo(std::size_t end) {
        const std::string_view taken = rest_.substr(0, end);
        text_ += taken;
        rest_.remove_prefix(taken.size());
    }

    void TakeValue() {
        TakeTo(rest_.find_first_of("\"'"));
        TakeTo(rest_.find(rest_.front(), 1) + 1);
    }

    std::string_view rest_;
    std::string text_;
};

}  // namespace

std::string AnnotatedXml(std::string_view document, const Vocabulary& vocabulary,
                         const std::function<void(const XmlElement&, const ElementTokens&)>& visit) {
    std::string text;
    std::uint64_t copied = 0;
    XmlElements elements([&](const XmlElement& element) {
        const ElementTokens tokens = TokensOf(vocabulary, element);
        text += document.substr(copied, element.begin - copied);
        text += Tag(document.substr(element.begin, element.end - element.begin)).Annotate(tokens);
        copied = element.end;
        visit(element, tokens);
    });
    elements.Feed(document);
    elements.Finish();
    return text.append(document.substr(copied));
}

}  // namespace vexpa_tool

#include "tool/model/PrettyXml.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "tool/model/XmlMarkup.h"

namespace vexpa_tool {

namespace {

// A document may be as deep as it is long, and its indents would be as long squared.
constexpr std::size_t kIndentedLevels = 64;

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

// Goes through a document and knows where it is.
class Walk {
public:
    explicit Walk(std::string_view document) : document_(document) {}
    virtual ~Walk() = default;

    void Run() {
        open_.push_back({elements_++, false});
        ScanMarkup(document_, [this](const Markup& markup) { Take(markup); });
    }

protected:
    struct Element {
        std::size_t number;  // in the order of the start tags; 0 is the document
        bool preservesSpace;
    };

    // The text before the markup, within the element that `Inner` is.
    virtual void TakeText(std::string_view text, const Markup& next) = 0;
    virtual void TakeMarkup(std::string_view bytes) = 0;

    const Element& Inner() const { return open_.back(); }
    std::size_t Depth() const { return open_.size() - 1; }
    std::string_view After() const { return document_.substr(position_); }

private:
    void Take(const Markup& markup) {
        TakeText(document_.substr(position_, markup.begin - position_), markup);
        TakeMarkup(document_.substr(markup.begin, markup.end - markup.begin));
        position_ = markup.end;
        if (markup.kind == MarkupKind::End) open_.pop_back();
        if (markup.kind == MarkupKind::Start) Open(markup.space);
        if (markup.kind == MarkupKind::Empty) ++elements_;
    }

    void Open(std::string_view space) {
        const bool preserves = space.empty() ? Inner().preservesSpace : space == "preserve";
        open_.push_back({elements_++, preserves});
    }

    std::string_view document_;
    std::size_t position_ = 0;
    std::size_t elements_ = 0;
    std::vector<Element> open_;
};

// Finds the elements whose white space is theirs to keep.
class TextSearch final : public Walk {
public:
    using Walk::Walk;

    // By number; true also for an element without markup in it.
    std::vector<bool> keepsSpace;

private:
    void TakeText(std::string_view text, const Markup& next) override {
        if (keepsSpace.size() <= Inner().number) keepsSpace.resize(Inner().number + 1);
        const bool hasMarkup = next.kind != MarkupKind::End || lastWasInner_;
        const bool isOuter = Inner().number == 0;
        if (!isOuter && (!IsBlank(text) || !hasMarkup || Inner().preservesSpace)) {
            keepsSpace[Inner().number] = true;
        }
        // After a start tag nothing is within yet; after everything else something is.
        lastWasInner_ = next.kind != MarkupKind::Start;
    }
    void TakeMarkup(std::string_view) override {}

    bool lastWasInner_ = true;
};

class Printer final : public Walk {
public:
    Printer(std::string_view document, const std::vector<bool>& keepsSpace)
        : Walk(document), keepsSpace_(keepsSpace) {}

    std::string Take() {
        const std::string_view rest = After();
        if (!IsBlank(rest)) text_ += rest;
        return std::move(text_) + "\n";
    }

private:
    void TakeText(std::string_view text, const Markup& next) override {
        const std::size_t number = Inner().number;
        if (number < keepsSpace_.size() && keepsSpace_[number]) {
            text_ += text;
            return;
        }
        if (!IsBlank(text)) text_ += text;  // a byte order mark
        if (text_.empty() || !IsBlank(text)) return;
        const std::size_t depth = Depth() - (next.kind == MarkupKind::End ? 1 : 0);
        text_ += "\n" + std::string(2 * std::min(depth, kIndentedLevels), ' ');
    }

    void TakeMarkup(std::string_view bytes) override { text_ += bytes; }

    const std::vector<bool>& keepsSpace_;
    std::string text_;
};

}  // namespace

std::string PrettyXml(std::string_view document) {
    TextSearch search(document);
    search.Run();
    Printer printer(document, search.keepsSpace);
    printer.Run();
    return printer.Take();
}

}  // namespace vexpa_tool

#include "tool/model/XmlMarkup.h"

#include <climits>
#include <exception>
#include <string>

#include "tool/model/BoundedExpat.h"
#include "tool/model/XmlElements.h"

namespace vexpa_tool {

namespace {

class MarkupParser {
public:
    MarkupParser(std::string_view document, const MarkupSink& sink)
        : document_(document), sink_(sink), parser_(MakeExpat(nullptr)) {
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), OnStart, OnEnd);
        XML_SetXmlDeclHandler(parser_.get(), OnDeclaration);
        XML_SetCommentHandler(parser_.get(), OnComment);
        XML_SetProcessingInstructionHandler(parser_.get(), OnInstruction);
        XML_SetStartDoctypeDeclHandler(parser_.get(), OnDocumentType);
    }

    // All at once: in pieces, the parser would scan an unfinished tag again and again.
    void Run() {
        if (document_.size() > INT_MAX) throw XmlError("too large");
        const XML_Status status =
            XML_Parse(parser_.get(), document_.data(), static_cast<int>(document_.size()), XML_TRUE);
        if (failure_) std::rethrow_exception(failure_);
        if (status == XML_STATUS_OK) return;
        const XML_Error error = XML_GetErrorCode(parser_.get());
        Throw(error == XML_ERROR_NO_MEMORY ? kTooMuchMemory : XML_ErrorString(error));
    }

private:
    // No exception may cross the parser, which is C.
    template <class Action>
    static void Guard(void* self, const Action& action) noexcept {
        auto& parser = *static_cast<MarkupParser*>(self);
        if (parser.failure_) return;
        try {
            action(parser);
        } catch (...) {
            parser.failure_ = std::current_exception();
            XML_StopParser(parser.parser_.get(), XML_FALSE);
        }
    }

    static void XMLCALL OnStart(void* self, const XML_Char*, const XML_Char** attributes) {
        Guard(self, [&](MarkupParser& parser) { parser.Start(attributes); });
    }

    static void XMLCALL OnEnd(void* self, const XML_Char*) {
        Guard(self, [](MarkupParser& parser) { parser.End(); });
    }

    static void XMLCALL OnDeclaration(void* self, const XML_Char*, const XML_Char*, int) {
        Guard(self, [](MarkupParser& parser) { parser.Report(MarkupKind::Other, {}); });
    }

    static void XMLCALL OnComment(void* self, const XML_Char*) {
        Guard(self, [](MarkupParser& parser) { parser.Report(MarkupKind::Other, {}); });
    }

    static void XMLCALL OnInstruction(void* self, const XML_Char*, const XML_Char*) {
        Guard(self, [](MarkupParser& parser) { parser.Report(MarkupKind::Other, {}); });
    }

    static void XMLCALL OnDocumentType(void* self, const XML_Char*, const XML_Char*, const XML_Char*,
                                       int) {
        Guard(self, [](MarkupParser& parser) { parser.Throw("a document type declaration"); });
    }

    std::size_t Position() const {
        return static_cast<std::size_t>(XML_GetCurrentByteIndex(parser_.get()));
    }

    std::size_t Size() const {
        return static_cast<std::size_t>(XML_GetCurrentByteCount(parser_.get()));
    }

    void Start(const XML_Char** attributes) {
        std::string_view space;
        for (; *attributes != nullptr; attributes += 2) {
            if (std::string_view(attributes[0]) == "xml:space") space = attributes[1];
        }
        const std::string_view tag = document_.substr(Position(), Size());
        Report(tag.ends_with("/>") ? MarkupKind::Empty : MarkupKind::Start, space);
    }

    // An element in one tag has an end of no bytes.
    void End() {
        if (Size() != 0) Report(MarkupKind::End, {});
    }

    void Report(MarkupKind kind, std::string_view space) {
        sink_({kind, Position(), Position() + Size(), space});
    }

    [[noreturn]] void Throw(const std::string& what) const {
        throw XmlError("line " + std::to_string(XML_GetCurrentLineNumber(parser_.get())) + ": " + what);
    }

    const std::string_view document_;
    const MarkupSink& sink_;
    ExpatHandle parser_;
    std::exception_ptr failure_;
};

// Of the encodings that the parser knows, these are the ones with two bytes a character.
bool IsUtf16(std::string_view document) {
    const std::string_view head = document.substr(0, 2);
    return head.find('\0') != std::string_view::npos || head == "\xFE\xFF" || head == "\xFF\xFE";
}

}  // namespace

void ScanMarkup(std::string_view document, const MarkupSink& sink) {
    if (IsUtf16(document)) throw XmlError("in UTF-16");
    MarkupParser(document, sink).Run();
}

}  // namespace vexpa_tool

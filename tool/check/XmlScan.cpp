// Expat declares its limits on growth only where XML_DTD is defined; the library has them.
#define XML_DTD
#include "tool/check/XmlScan.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "runtime/xml/Encoding.h"
#include "runtime/xml/XmlParser.h"
#include "tool/model/BoundedExpat.h"

namespace vexpa_tool {

namespace {

// The parser writes out its URI with every name. Real ones have some sixty bytes; with long
// ones a short part would take hours.
constexpr std::size_t kLongestUri = 1000;

constexpr std::int64_t kSmallestPiece = 64 << 10;
constexpr std::int64_t kLargestPiece = 256 << 20;

// The parser's words, less what every message here begins with.
const char* MessageOf(XML_Error error) {
    switch (error) {
        case XML_ERROR_INVALID_TOKEN:
            return "invalid token";
        case XML_ERROR_AMPLIFICATION_LIMIT_BREACH:
            return "its entities make it grow without bound";
        case XML_ERROR_NO_MEMORY:
            return kTooMuchMemory;
        default:
            return XML_ErrorString(error);
    }
}

XmlPlace PlaceOf(XML_Parser parser) {
    return {XML_GetCurrentLineNumber(parser), XML_GetCurrentColumnNumber(parser) + 1};
}

}  // namespace

class XmlScan::Parser {
public:
    Parser(Names names, Handler handler)
        : handler_(std::move(handler)),
          parser_(MakeExpat(names == Names::Resolved ? &kNamespaceEnd : nullptr)) {
        XML_SetUserData(parser_.get(), this);
        XML_SetStartElementHandler(parser_.get(), OnStart);
        XML_SetStartDoctypeDeclHandler(parser_.get(), OnDocumentType);
        XML_SetEntityDeclHandler(parser_.get(), OnEntity);
        XML_SetUnknownEncodingHandler(parser_.get(), vexpa_runtime::FindEncoding, nullptr);
        XML_SetBillionLaughsAttackProtectionMaximumAmplification(parser_.get(),
                                                                 vexpa_runtime::kMaxGrowth);
        XML_SetBillionLaughsAttackProtectionActivationThreshold(parser_.get(),
                                                                vexpa_runtime::kGrowthThreshold);
        if (names == Names::Resolved) XML_SetStartNamespaceDeclHandler(parser_.get(), OnNamespace);
    }

    // The parser may scan an unfinished token again from its start for each piece. With pieces
    // as long as what it holds already, that stays linear.
    void Feed(std::string_view piece) {
        if (fault_) return;
        pending_ += piece;
        const std::int64_t held =
            fed_ - std::max<std::int64_t>(XML_GetCurrentByteIndex(parser_.get()), 0);
        const std::int64_t wanted = std::clamp(held, kSmallestPiece, kLargestPiece);
        if (static_cast<std::int64_t>(pending_.size()) >= wanted) Parse(false);
    }

    void Parse(bool isLast) {
        if (fault_) return;
        const XML_Status status =
            XML_Parse(parser_.get(), pending_.data(), static_cast<int>(pending_.size()), isLast);
        if (thrown_) std::rethrow_exception(thrown_);
        if (status != XML_STATUS_OK && !fault_) NoteParserError();
        fed_ += static_cast<std::int64_t>(pending_.size());
        pending_.clear();
    }

    const std::optional<XmlFault>& Fault() const { return fault_; }
    bool HasDocumentType() const { return hasDocumentType_; }

private:
    static Parser& Self(void* self) { return *static_cast<Parser*>(self); }

    // No exception may cross the parser, which is C: it is kept, and thrown again afterwards.
    static void XMLCALL OnStart(void* self, const XML_Char* name, const XML_Char** attributes) {
        Parser& parser = Self(self);
        if (parser.thrown_ || parser.fault_) return;
        if (parser.Grew(attributes)) return parser.Refuse("grows too much by its defaults");
        try {
            parser.handler_({name, attributes, parser.parser_.get()});
        } catch (...) {
            parser.thrown_ = std::current_exception();
            XML_StopParser(parser.parser_.get(), XML_FALSE);
        }
    }

    static void XMLCALL OnDocumentType(void* self, const XML_Char*, const XML_Char*, const XML_Char*,
                                       int) {
        Self(self).hasDocumentType_ = true;
    }

    // The parser recurses through entities that refer to one another.
    static void XMLCALL OnEntity(void* self, const XML_Char*, int, const XML_Char*, int,
                                 const XML_Char*, const XML_Char*, const XML_Char*, const XML_Char*) {
        Parser& parser = Self(self);
        if (++parser.entities_ > vexpa_runtime::kMaxDeclarations) parser.Refuse("too many entities");
    }

    static void XMLCALL OnNamespace(void* self, const XML_Char*, const XML_Char* uri) {
        if (uri == nullptr || std::string_view(uri).size() <= kLongestUri) return;
        Self(self).Refuse("a namespace name too long to go on with");
    }

    // Attributes that a document type declares stand in no start tag, and cost nothing there.
    bool Grew(const XML_Char** attributes) {
        if (!hasDocumentType_) return false;
        for (; *attributes != nullptr; ++attributes) grown_ += std::string_view(*attributes).size();
        const auto fed = static_cast<std::uint64_t>(fed_) + pending_.size();
        return grown_ > vexpa_runtime::kGrowthThreshold + vexpa_runtime::kMaxGrowth * fed;
    }

    void Refuse(const char* what) {
        if (!fault_) fault_ = XmlFault{PlaceOf(parser_.get()), what, true};
        XML_StopParser(parser_.get(), XML_FALSE);
    }

    void NoteParserError() {
        const XML_Error error = XML_GetErrorCode(parser_.get());
        const bool isRefusal =
            error == XML_ERROR_AMPLIFICATION_LIMIT_BREACH || error == XML_ERROR_NO_MEMORY;
        fault_ = XmlFault{PlaceOf(parser_.get()), MessageOf(error), isRefusal};
    }

    Handler handler_;
    ExpatHandle parser_;
    std::string pending_;
    std::int64_t fed_ = 0;
    std::uint64_t grown_ = 0;
    std::uint32_t entities_ = 0;
    bool hasDocumentType_ = false;
    std::optional<XmlFault> fault_;
    std::exception_ptr thrown_;
};

XmlScan::XmlScan(Names names, Handler handler)
    : parser_(std::make_unique<Parser>(names, std::move(handler))) {}

XmlScan::~XmlScan() = default;

void XmlScan::Feed(std::string_view piece) {
    parser_->Feed(piece);
}

std::optional<XmlFault> XmlScan::Finish() {
    parser_->Parse(true);
    return parser_->Fault();
}

bool XmlScan::HasFault() const {
    return parser_->Fault().has_value();
}

bool XmlScan::HasDocumentType() const {
    return parser_->HasDocumentType();
}

XmlPlace XmlStartTag::Place() const {
    return PlaceOf(static_cast<XML_Parser>(const_cast<void*>(parser)));
}

}  // namespace vexpa_tool

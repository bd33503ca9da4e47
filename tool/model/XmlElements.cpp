#include "tool/model/XmlElements.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "tool/model/BoundedExpat.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

// Stands between namespace and local name; the parser refuses namespaces that contain it.
constexpr char kSeparator = '\n';

// Every name of a namespace is shown with its URI. Real ones have some sixty bytes; one of a
// million would turn a short part into gigabytes.
constexpr std::size_t kLongestUri = 10'000;

constexpr std::int64_t kSmallestPiece = 64 << 10;
constexpr std::int64_t kLargestPiece = 256 << 20;

void SplitName(std::string_view name, std::u16string& uri, std::u16string& local) {
    const std::size_t end = name.rfind(kSeparator);
    uri = end == std::string_view::npos ? std::u16string() : FromUtf8(name.substr(0, end));
    local = FromUtf8(name.substr(end + 1));  // npos + 1 is 0
}

}  // namespace

class XmlElements::Parser {
public:
    explicit Parser(ElementSink sink) : sink_(std::move(sink)), parser_(MakeExpat(&kSeparator)) {
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), OnStart, OnEnd);
        XML_SetStartDoctypeDeclHandler(parser_.get(), OnDocumentType);
        XML_SetStartNamespaceDeclHandler(parser_.get(), OnNamespace);
    }

    // The parser may scan an unfinished tag again from its start for each piece. With
    // pieces as long as what it holds already, that stays linear.
    void Feed(std::string_view piece) {
        pending_ += piece;
        const std::int64_t held =
            fed_ - std::max<std::int64_t>(XML_GetCurrentByteIndex(parser_.get()), 0);
        const std::int64_t wanted = std::clamp(held, kSmallestPiece, kLargestPiece);
        if (static_cast<std::int64_t>(pending_.size()) >= wanted) Parse(false);
    }

    void Parse(bool isLast) {
        const auto size = static_cast<int>(pending_.size());
        const XML_Status status = XML_Parse(parser_.get(), pending_.data(), size, isLast);
        if (failure_) std::rethrow_exception(failure_);
        if (status != XML_STATUS_OK) ThrowParserError();
        fed_ += size;
        pending_.clear();
    }

private:
    // Handlers are called from C, which no exception may cross: it is kept, and thrown again
    // once the parser has stopped. Before that, it reports the element whose namespace was
    // refused.
    template <class Action>
    void Guard(const Action& action) noexcept {
        if (failure_) return;
        try {
            action();
        } catch (...) {
            failure_ = std::current_exception();
            XML_StopParser(parser_.get(), XML_FALSE);
        }
    }

    static void XMLCALL OnStart(void* self, const XML_Char* name, const XML_Char** attributes) {
        auto& parser = *static_cast<Parser*>(self);
        parser.Guard([&] { parser.Report(name, attributes); });
    }

    static void XMLCALL OnEnd(void* self, const XML_Char*) { --static_cast<Parser*>(self)->depth_; }

    static void XMLCALL OnDocumentType(void* self, const XML_Char*, const XML_Char*, const XML_Char*,
                                       int) {
        auto& parser = *static_cast<Parser*>(self);
        parser.Guard([&] { parser.Throw("a document type declaration"); });
    }

    static void XMLCALL OnNamespace(void* self, const XML_Char*, const XML_Char* uri) {
        auto& parser = *static_cast<Parser*>(self);
        if (uri == nullptr || std::string_view(uri).size() <= kLongestUri) return;
        parser.Guard([&] { parser.Throw("a namespace URI too long"); });
    }

    void Report(std::string_view name, const XML_Char** attributes) {
        XmlElement element;
        element.depth = depth_++;
        element.begin = static_cast<std::uint64_t>(XML_GetCurrentByteIndex(parser_.get()));
        element.end =
            element.begin + static_cast<std::uint64_t>(XML_GetCurrentByteCount(parser_.get()));
        SplitName(name, element.uri, element.name);
        for (; *attributes != nullptr; attributes += 2) {
            XmlAttribute& attribute = element.attributes.emplace_back();
            SplitName(attributes[0], attribute.uri, attribute.name);
            attribute.value = FromUtf8(attributes[1]);
        }
        sink_(element);
    }

    [[noreturn]] void ThrowParserError() const {
        const XML_Error error = XML_GetErrorCode(parser_.get());
        Throw(error == XML_ERROR_NO_MEMORY ? kTooMuchMemory : XML_ErrorString(error));
    }

    [[noreturn]] void Throw(const std::string& what) const {
        throw XmlError("line " + std::to_string(XML_GetCurrentLineNumber(parser_.get())) + ": " + what);
    }

    ElementSink sink_;
    ExpatHandle parser_;
    std::string pending_;
    std::int64_t fed_ = 0;
    std::uint64_t depth_ = 0;
    std::exception_ptr failure_;
};

XmlElements::XmlElements(ElementSink sink) : parser_(std::make_unique<Parser>(std::move(sink))) {}

XmlElements::~XmlElements() = default;

void XmlElements::Feed(std::string_view piece) {
    parser_->Feed(piece);
}

void XmlElements::Finish() {
    parser_->Parse(true);
}

}  // namespace vexpa_tool

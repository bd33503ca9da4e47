// Expat declares its limits on growth only where XML_DTD is defined; the library has them.
#define XML_DTD
#include "runtime/xml/XmlParser.h"

#include <algorithm>
#include <utility>

#include "runtime/Guarded.h"
#include "runtime/xml/Encoding.h"
#include "runtime/xml/XmlLimits.h"

namespace vexpa_runtime {

namespace {

constexpr int kSmallestPiece = 32 * 1024;
// What a parser keeps is up to 25 times as much: its stack, and the names it has met.
constexpr std::uint64_t kSmallStream = 16UL * 1024;
constexpr int kLargestPiece = 256 * 1024 * 1024;

}  // namespace

XmlParser::XmlParser() : parser_(TakeParser()) {
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(parser_.get(), OnStart, OnEnd);
    XML_SetEntityDeclHandler(parser_.get(), OnEntity);
    XML_SetAttlistDeclHandler(parser_.get(), OnAttribute);
    XML_SetUnknownEncodingHandler(parser_.get(), FindEncoding, nullptr);
    XML_SetBillionLaughsAttackProtectionMaximumAmplification(parser_.get(), kMaxGrowth);
    XML_SetBillionLaughsAttackProtectionActivationThreshold(parser_.get(), kGrowthThreshold);
}

HRESULT XmlParser::Parse(IStream& stream, std::unique_ptr<Document>* document) {
    const HRESULT fed = Feed(stream);
    if (fed < 0) return fed;
    *document = builder_.Finish();
    const bool wasSmall = bytesFed_ <= kSmallStream && declarations_ == 0;
    if (wasSmall) KeepParser(std::move(parser_));
    return S_OK;
}

HRESULT XmlParser::Feed(IStream& stream) {
    for (;;) {
        const int wanted = NextPiece();
        void* piece = XML_GetBuffer(parser_.get(), wanted);
        if (piece == nullptr) return Failure();

        std::uint32_t got = 0;
        const HRESULT read = stream.Read(piece, static_cast<std::uint32_t>(wanted), &got);
        if (read < 0) return read;
        if (got > static_cast<std::uint32_t>(wanted)) return E_FAIL;
        bytesFed_ += got;
        if (bytesFed_ > kMaxBytes) return E_FAIL;

        // A piece may be short in the middle of a stream; only an empty one ends it.
        const bool last = got == 0;
        if (XML_ParseBuffer(parser_.get(), static_cast<int>(got), last) != XML_STATUS_OK) {
            return Failure();
        }
        if (last) return S_OK;
    }
}

// As much as the parser holds of an unfinished token, at least: it may scan the token from
// its start each time, which pieces of one size would make quadratic.
int XmlParser::NextPiece() const {
    const std::int64_t at = std::max<std::int64_t>(XML_GetCurrentByteIndex(parser_.get()), 0);
    const std::int64_t held = static_cast<std::int64_t>(bytesFed_) - at;
    return static_cast<int>(std::clamp<std::int64_t>(held, kSmallestPiece, kLargestPiece));
}

HRESULT XmlParser::Failure() const noexcept {
    if (stopped_ < 0) return stopped_;
    return XML_GetErrorCode(parser_.get()) == XML_ERROR_NO_MEMORY ? E_OUTOFMEMORY : E_FAIL;
}

// Handlers are called from C, which no exception may cross: the reason is kept, and the
// parser stops once the handler is back.
void XmlParser::Stop(HRESULT reason) noexcept {
    stopped_ = reason;
    XML_StopParser(parser_.get(), XML_FALSE);
}

void XmlParser::CountDeclaration() noexcept {
    if (++declarations_ > kMaxDeclarations) Stop(E_FAIL);
}

// Expat runs over all that is declared for an element each time it meets one, and once more for
// an attribute that is written there: a product that takes seconds in a file of ten kilobytes.
void XmlParser::CountDeclarationsLookedAt() noexcept {
    const int written = XML_GetSpecifiedAttributeCount(parser_.get()) / 2;  // names and values
    declarationsLookedAt_ += (std::uint64_t{1} + static_cast<unsigned>(written)) * declaredAttributes_;
}

bool XmlParser::IsWithinLimits() const noexcept {
    const std::uint64_t allowed = kGrowthThreshold + kMaxGrowth * bytesFed_;
    return builder_.Cost() <= allowed && declarationsLookedAt_ <= allowed &&
           builder_.Nodes() <= kMaxNodes;
}

void XMLCALL XmlParser::OnStart(void* self, const XML_Char* name, const XML_Char** attributes) {
    auto& parser = *static_cast<XmlParser*>(self);
    const HRESULT added = Guarded([&] {
        if (++parser.depth_ > kMaxDepth) return E_FAIL;
        parser.builder_.AddElement(name, attributes);
        parser.CountDeclarationsLookedAt();
        return parser.IsWithinLimits() ? S_OK : E_FAIL;
    });
    if (added < 0) parser.Stop(added);
}

void XMLCALL XmlParser::OnEnd(void* self, const XML_Char*) {
    --static_cast<XmlParser*>(self)->depth_;
}

void XMLCALL XmlParser::OnEntity(void* self, const XML_Char*, int, const XML_Char*, int,
                                 const XML_Char*, const XML_Char*, const XML_Char*, const XML_Char*) {
    static_cast<XmlParser*>(self)->CountDeclaration();
}

void XMLCALL XmlParser::OnAttribute(void* self, const XML_Char*, const XML_Char*, const XML_Char*,
                                    const XML_Char*, int) {
    auto& parser = *static_cast<XmlParser*>(self);
    ++parser.declaredAttributes_;
    parser.CountDeclaration();
}

}  // namespace vexpa_runtime

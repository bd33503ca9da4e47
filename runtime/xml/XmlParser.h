// runtime/xml/XmlParser.h - reads a stream through Expat into a document.
#ifndef VEXPA_RUNTIME_XML_XMLPARSER_H_
#define VEXPA_RUNTIME_XML_XMLPARSER_H_

#include <expat.h>

#include <memory>

#include "runtime/xml/DocumentBuilder.h"
#include "runtime/xml/KeptParser.h"

namespace vexpa_runtime {

// Elements within elements; deeper documents are refused.
constexpr std::uint32_t kMaxDepth = 10'000;

// Entities and attributes declared by one document. Expat recurses through entities that refer
// to one another, so their number bounds its stack. A real DTD declares some hundreds.
constexpr std::uint32_t kMaxDeclarations = 1'000;

// How much a document may grow, by entities and by declared attributes: what the parser expands,
// what we store of it and how many declarations are looked at, for each byte of the stream and
// beyond the first bytes. Without either it grows eightfold at most, when all is elements of one
// empty attribute.
constexpr std::uint32_t kMaxGrowth = 16;
constexpr std::uint32_t kGrowthThreshold = 1 << 20;

// Parses one stream. Nothing outside it is read: Expat loads external entities only
// through a handler, and there is none.
class XmlParser {
public:
    XmlParser();
    XmlParser(const XmlParser&) = delete;
    XmlParser& operator=(const XmlParser&) = delete;

    // What is left in the stream, from its seek position on. On success *document is set.
    HRESULT Parse(IStream& stream, std::unique_ptr<Document>* document);

private:
    static void XMLCALL OnStart(void* self, const XML_Char* name, const XML_Char** attributes);
    static void XMLCALL OnEnd(void* self, const XML_Char* name);
    static void XMLCALL OnEntity(void* self, const XML_Char*, int, const XML_Char*, int,
                                 const XML_Char*, const XML_Char*, const XML_Char*, const XML_Char*);
    static void XMLCALL OnAttribute(void* self, const XML_Char*, const XML_Char*, const XML_Char*,
                                    const XML_Char*, int);

    HRESULT Feed(IStream& stream);
    int NextPiece() const;
    void CountDeclaration() noexcept;
    void CountDeclarationsLookedAt() noexcept;
    bool IsWithinLimits() const noexcept;
    void Stop(HRESULT reason) noexcept;
    HRESULT Failure() const noexcept;

    ParserPtr parser_;
    DocumentBuilder builder_;
    std::uint64_t bytesFed_ = 0;
    std::uint32_t depth_ = 0;
    std::uint32_t declarations_ = 0;
    std::uint32_t declaredAttributes_ = 0;  // of all elements
    std::uint64_t declarationsLookedAt_ = 0;
    HRESULT stopped_ = S_OK;  // why a handler ended the parse
};

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_XML_XMLPARSER_H_

// runtime/xml/KeptParser.h - an Expat parser for each thread, kept from one stream to the next.
#ifndef VEXPA_RUNTIME_XML_KEPTPARSER_H_
#define VEXPA_RUNTIME_XML_KEPTPARSER_H_

#include <expat.h>

#include <memory>
#include <type_traits>

namespace vexpa_runtime {

struct FreeParser {
    void operator()(XML_Parser parser) const noexcept { XML_ParserFree(parser); }
};
using ParserPtr = std::unique_ptr<std::remove_pointer_t<XML_Parser>, FreeParser>;

// A parser without handlers, for one stream. To make one takes longer than to parse what most
// relationship streams hold, so it is the one that the thread keeps, if any. Throws
// std::bad_alloc.
ParserPtr TakeParser();

// For the thread's next stream. A parser holds on to what memory its largest stream took, so
// only those of small streams are worth keeping.
void KeepParser(ParserPtr parser) noexcept;

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_XML_KEPTPARSER_H_

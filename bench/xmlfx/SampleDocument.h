// bench/xmlfx/SampleDocument.h - the text of a large word-processing part.
#ifndef VEXPA_BENCH_XMLFX_SAMPLEDOCUMENT_H_
#define VEXPA_BENCH_XMLFX_SAMPLEDOCUMENT_H_

#include <string>

namespace vexpa_bench {

// Runs with their properties, as word processors write them: short elements, one to four
// attributes each.
std::string MadeDocument(int paragraphs);

// The file that the environment variable VEXPA_BENCH_DOCUMENT names; empty without it.
std::string RealDocument();

}  // namespace vexpa_bench

#endif  // VEXPA_BENCH_XMLFX_SAMPLEDOCUMENT_H_

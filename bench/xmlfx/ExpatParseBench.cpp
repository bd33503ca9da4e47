// The Expat parse of the text that Transform is measured with.
#include <benchmark/benchmark.h>
#include <expat.h>

#include <memory>
#include <string>

#include "bench/xmlfx/SampleDocument.h"

namespace {

struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

void XMLCALL CountAttributes(void* count, const XML_Char*, const XML_Char** attributes) {
    for (; *attributes != nullptr; attributes += 2) ++*static_cast<std::size_t*>(count);
}

void ParseWithExpat(benchmark::State& state, std::string (*document)()) {
    const std::string xml = document();
    if (xml.empty()) return state.SkipWithError("VEXPA_BENCH_DOCUMENT is not set");
    const std::unique_ptr<XML_ParserStruct, FreeParser> parser(XML_ParserCreateNS(nullptr, ' '));
    std::size_t count = 0;
    for (auto _ : state) {
        count = 0;
        XML_ParserReset(parser.get(), nullptr);
        XML_SetUserData(parser.get(), &count);
        XML_SetStartElementHandler(parser.get(), CountAttributes);
        XML_Parse(parser.get(), xml.data(), static_cast<int>(xml.size()), 1);
    }
    state.counters["per_attribute"] =
        benchmark::Counter(static_cast<double>(count),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

std::string Made() {
    return vexpa_bench::MadeDocument(5'000);
}
BENCHMARK_CAPTURE(ParseWithExpat, made, Made)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ParseWithExpat, real, vexpa_bench::RealDocument)->Unit(benchmark::kMillisecond);

}  // namespace

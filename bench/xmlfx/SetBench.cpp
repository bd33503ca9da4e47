// Attribute sets: making them from a parser's list.
#include <benchmark/benchmark.h>

#include <string>

#include "bench/xmlfx/PlainVersion.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/base/Utf16.h"
#include "vexpa/xmlfx/Transform.h"

namespace {

using tarn::ToUnits;
using tarn::xmlfx::Attributes;

constexpr char16_t kWordprocessing[] = u"http://schemas.openxmlformats.org/wordprocessingml/2006/main";

// The most frequent attributes of word-processing documents, with values as they have them.
class Frequent : public Attributes {
public:
    explicit Frequent(unsigned count) : count_(count) {}

    unsigned int getLength() const override { return count_; }
    const unsigned short* getURI(unsigned int) const override { return ToUnits(kWordprocessing); }
    const unsigned short* getLocalName(unsigned int i) const override { return ToUnits(kNames[i % 8]); }
    const unsigned short* getQName(unsigned int) const override { return nullptr; }
    const unsigned short* getType(unsigned int) const override { return nullptr; }
    const unsigned short* getValue(unsigned int i) const override { return ToUnits(kValues[i % 8]); }

private:
    static constexpr const char16_t* kNames[] = {u"val",  u"name",  u"rsidR", u"rsidRDefault",
                                                 u"type", u"ascii", u"w",     u"hAnsi"};
    static constexpr const char16_t* kValues[] = {u"left", u"heading 1",       u"00A77B3E", u"00A77B3E",
                                                  u"dxa",  u"Times New Roman", u"1440",     u"Calibri"};
    unsigned count_;
};

void ReportTimePerAttribute(benchmark::State& state) {
    state.counters["per_attribute"] =
        benchmark::Counter(static_cast<double>(state.range(0)),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void TransformAndRelease(benchmark::State& state) {
    _vexpa_Initialize();
    const Frequent attributes(static_cast<unsigned>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            tarn::xmlfx::Transform(&attributes, ToUnits(kWordprocessing), nullptr).Get());
    }
    ReportTimePerAttribute(state);
    _vexpa_Terminate();
}
BENCHMARK(TransformAndRelease)->Arg(1)->Arg(3)->Arg(8)->Arg(40);

void TransformAndReleasePlain(benchmark::State& state) {
    _vexpa_Initialize();
    vexpa_bench::PlainRegistry plain;
    plain.Fill();
    const Frequent attributes(static_cast<unsigned>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            vexpa_bench::PlainTransform(plain.forward, attributes, kWordprocessing).get());
    }
    ReportTimePerAttribute(state);
    _vexpa_Terminate();
}
BENCHMARK(TransformAndReleasePlain)->Arg(1)->Arg(3)->Arg(8)->Arg(40);

}  // namespace

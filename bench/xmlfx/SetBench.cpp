// Attribute sets: making them from a parser's list, and ending them.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/xmlfx/PlainVersion.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/base/Utf16.h"
#include "vexpa/xmlfx/Transform.h"
#include "vexpa/xmlfx/XmlAttrBuilder.h"

namespace {

using tarn::Handle;
using tarn::ToUnits;
using tarn::xmlfx::Attributes;
using tarn::xmlfx::XmlAttrBuilder;
using tarn::xmlfx::XmlAttrCallback;
using tarn::xmlfx::XmlAttrHandler;
using tarn::xmlfx::XmlRoAttr;

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

class Collector : public XmlAttrCallback {
public:
    void OnElement(std::uint32_t, XmlRoAttr* reported) override { set = reported->Share(); }
    Handle<XmlRoAttr> set;
};

// The release of a tree, for each element of it.
void ReleaseNested(benchmark::State& state) {
    const Handle<XmlRoAttr> empty = tarn::xmlfx::Transform(nullptr, nullptr, nullptr);
    Collector collector;
    for (auto _ : state) {
        state.PauseTiming();
        Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&collector);
        std::vector<XmlAttrHandler*> open{builder.Get()};
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            open.back()->StartElement(7, empty.Get());
            open.push_back(open.back()->GetChildHandler());
        }
        for (open.pop_back(); !open.empty(); open.pop_back()) open.back()->EndElement(7);
        builder.Reset();
        state.ResumeTiming();
        collector.set.Reset();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(ReleaseNested)->Arg(1000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

void ReleaseWide(benchmark::State& state) {
    const Handle<XmlRoAttr> empty = tarn::xmlfx::Transform(nullptr, nullptr, nullptr);
    Collector collector;
    for (auto _ : state) {
        state.PauseTiming();
        Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&collector);
        builder->StartElement(6, empty.Get());
        XmlAttrHandler* child = builder->GetChildHandler();
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            child->StartElement(7, empty.Get());
            child->EndElement(7);
        }
        builder->EndElement(6);
        builder.Reset();
        state.ResumeTiming();
        collector.set.Reset();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(ReleaseWide)->Arg(1000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace

// Trees of attribute sets: building them from events, and ending them.
#include <benchmark/benchmark.h>

#include <vector>

#include "vexpa/base/Handle.h"
#include "vexpa/base/Utf16.h"
#include "vexpa/xmlfx/Transform.h"
#include "vexpa/xmlfx/XmlAttrBuilder.h"

namespace {

using tarn::Handle;
using tarn::ToUnits;
using tarn::xmlfx::XmlAttrBuilder;
using tarn::xmlfx::XmlAttrCallback;
using tarn::xmlfx::XmlAttrHandler;
using tarn::xmlfx::XmlRoAttr;

class Collector : public XmlAttrCallback {
public:
    void OnElement(std::uint32_t, XmlRoAttr* reported) override { set = reported->Share(); }
    Handle<XmlRoAttr> set;
};

// Paragraphs of two runs with text; the attributes were made before.
void BuildParagraphs(XmlAttrHandler& root, XmlRoAttr& attributes, std::int64_t count) {
    root.StartElement(6, &attributes);
    XmlAttrHandler* paragraph = root.GetChildHandler();
    for (std::int64_t i = 0; i < count; ++i) {
        paragraph->StartElement(7, &attributes);
        XmlAttrHandler* run = paragraph->GetChildHandler();
        for (int runs = 0; runs < 2; ++runs) {
            run->StartElement(8, &attributes);
            run->Characters(ToUnits(u"High water stood at 4.2 m"));
            run->EndElement(8);
        }
        paragraph->EndElement(7);
    }
    root.EndElement(6);
}

enum class Timed { kBuilding, kRelease };

void Paragraphs(benchmark::State& state, Timed timed) {
    const Handle<XmlRoAttr> attributes = tarn::xmlfx::Transform(ToUnits(u"center"), 5);
    Collector collector;
    for (auto _ : state) {
        if (timed == Timed::kRelease) state.PauseTiming();
        Handle<XmlAttrBuilder> builder = XmlAttrBuilder::New(&collector);
        BuildParagraphs(*builder.Get(), *attributes.Get(), state.range(0));
        builder.Reset();
        timed == Timed::kRelease ? state.ResumeTiming() : state.PauseTiming();
        collector.set.Reset();
        if (timed == Timed::kBuilding) state.ResumeTiming();
    }
    state.counters["per_element"] =
        benchmark::Counter(static_cast<double>(3 * state.range(0) + 1),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK_CAPTURE(Paragraphs, build, Timed::kBuilding)->Arg(1'000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Paragraphs, release, Timed::kRelease)->Arg(1'000)->Unit(benchmark::kMicrosecond);

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

// What Transform adds to the parse that feeds it: Xerces-C++ over the text of a document.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "bench/xmlfx/PlainVersion.h"
#include "bench/xmlfx/SampleDocument.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/base/Utf16.h"
#include "vexpa/xmlfx/Transform.h"

namespace {

using tarn::ToUnits;

class ParserList final : public tarn::xmlfx::Attributes {
public:
    explicit ParserList(const xercesc::Attributes& list) : list_(list) {}
    unsigned int getLength() const override { return static_cast<unsigned int>(list_.getLength()); }
    const unsigned short* getURI(unsigned int i) const override { return ToUnits(list_.getURI(i)); }
    const unsigned short* getLocalName(unsigned int i) const override {
        return ToUnits(list_.getLocalName(i));
    }
    const unsigned short* getQName(unsigned int i) const override { return ToUnits(list_.getQName(i)); }
    const unsigned short* getType(unsigned int i) const override { return ToUnits(list_.getType(i)); }
    const unsigned short* getValue(unsigned int i) const override { return ToUnits(list_.getValue(i)); }

private:
    const xercesc::Attributes& list_;
};

class Counting : public xercesc::DefaultHandler {
public:
    void startElement(const XMLCh*, const XMLCh*, const XMLCh*,
                      const xercesc::Attributes& attributes) override {
        count += attributes.getLength();
    }

    std::size_t count = 0;
};

class Transforming final : public Counting {
public:
    void startElement(const XMLCh* uri, const XMLCh*, const XMLCh*,
                      const xercesc::Attributes& attributes) override {
        count += attributes.getLength();
        const ParserList list(attributes);
        benchmark::DoNotOptimize(tarn::xmlfx::Transform(&list, ToUnits(uri), nullptr).Get());
    }
};

class TransformingPlainly final : public Counting {
public:
    TransformingPlainly() { plain_.Fill(); }
    void startElement(const XMLCh* uri, const XMLCh*, const XMLCh*,
                      const xercesc::Attributes& attributes) override {
        count += attributes.getLength();
        const ParserList list(attributes);
        benchmark::DoNotOptimize(vexpa_bench::PlainTransform(plain_.forward, list, uri).get());
    }

private:
    vexpa_bench::PlainRegistry plain_;
};

template <class Handler>
void ParseAll(benchmark::State& state, const std::string& xml) {
    const std::unique_ptr<xercesc::SAX2XMLReader> reader(xercesc::XMLReaderFactory::createXMLReader());
    reader->setFeature(xercesc::XMLUni::fgSAX2CoreValidation, false);
    Handler handler;
    reader->setContentHandler(&handler);
    for (auto _ : state) {
        handler.count = 0;
        reader->parse(xercesc::MemBufInputSource(reinterpret_cast<const XMLByte*>(xml.data()),
                                                 xml.size(), "document"));
    }
    state.counters["per_attribute"] =
        benchmark::Counter(static_cast<double>(handler.count),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

template <class Handler>
void Parse(benchmark::State& state, std::string (*document)()) {
    const std::string xml = document();
    if (xml.empty()) return state.SkipWithError("VEXPA_BENCH_DOCUMENT is not set");
    _vexpa_Initialize();
    xercesc::XMLPlatformUtils::Initialize();
    ParseAll<Handler>(state, xml);
    xercesc::XMLPlatformUtils::Terminate();
    _vexpa_Terminate();
}

std::string Made() {
    return vexpa_bench::MadeDocument(5'000);
}

void ParseAlone(benchmark::State& state, std::string (*document)()) {
    Parse<Counting>(state, document);
}
BENCHMARK_CAPTURE(ParseAlone, made, Made)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ParseAlone, real, vexpa_bench::RealDocument)->Unit(benchmark::kMillisecond);

void ParseAndTransform(benchmark::State& state, std::string (*document)()) {
    Parse<Transforming>(state, document);
}
BENCHMARK_CAPTURE(ParseAndTransform, made, Made)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ParseAndTransform, real, vexpa_bench::RealDocument)->Unit(benchmark::kMillisecond);

void ParseAndTransformPlain(benchmark::State& state, std::string (*document)()) {
    Parse<TransformingPlainly>(state, document);
}
BENCHMARK_CAPTURE(ParseAndTransformPlain, made, Made)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ParseAndTransformPlain, real, vexpa_bench::RealDocument)
    ->Unit(benchmark::kMillisecond);

}  // namespace

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

#include "vexpa/base/Lifecycle.h"
#include "vexpa/base/Utf16.h"
#include "vexpa/xmlfx/Transform.h"

namespace {

using tarn::ToUnits;

// Runs with their properties, as word processors write them: short elements, one to four
// attributes each.
std::string Document(int paragraphs) {
    std::string xml =
        "<w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">";
    for (int i = 0; i < paragraphs; ++i) {
        xml +=
            "<w:p w:rsidR=\"00A77B3E\" w:rsidRDefault=\"00A77B3E\" w:rsidP=\"00B21C55\"><w:pPr>"
            "<w:jc w:val=\"center\"/><w:spacing w:before=\"120\" w:after=\"240\" w:line=\"276\" "
            "w:lineRule=\"auto\"/></w:pPr><w:r w:rsidRPr=\"00B21C55\"><w:rPr><w:rFonts "
            "w:ascii=\"Calibri\" w:hAnsi=\"Calibri\"/><w:sz w:val=\"24\"/></w:rPr>"
            "<w:t>High water stood at 4.2 m on Monday.</w:t></w:r></w:p>";
    }
    return xml + "</w:document>";
}

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

template <class Handler>
void Parse(benchmark::State& state) {
    _vexpa_Initialize();
    xercesc::XMLPlatformUtils::Initialize();
    {
        const std::string xml = Document(5'000);
        const std::unique_ptr<xercesc::SAX2XMLReader> reader(
            xercesc::XMLReaderFactory::createXMLReader());
        reader->setFeature(xercesc::XMLUni::fgSAX2CoreValidation, false);
        Handler handler;
        reader->setContentHandler(&handler);
        for (auto _ : state) {
            handler.count = 0;
            reader->parse(xercesc::MemBufInputSource(reinterpret_cast<const XMLByte*>(xml.data()),
                                                     xml.size(), "document"));
        }
        state.counters["per_attribute"] = benchmark::Counter(
            static_cast<double>(handler.count),
            benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    }
    xercesc::XMLPlatformUtils::Terminate();
    _vexpa_Terminate();
}

void ParseAlone(benchmark::State& state) {
    Parse<Counting>(state);
}
BENCHMARK(ParseAlone)->Unit(benchmark::kMillisecond);

void ParseAndTransform(benchmark::State& state) {
    Parse<Transforming>(state);
}
BENCHMARK(ParseAndTransform)->Unit(benchmark::kMillisecond);

}  // namespace

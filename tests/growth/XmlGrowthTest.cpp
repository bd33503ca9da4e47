#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "runtime/xml/KeptParser.h"
#include "tests/growth/Work.h"
#include "tests/runtime/com/Blocks.h"
#include "tests/worst/ShapeParts.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/platform/Runtime.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

// To parse the text and ask for what the readers of packages ask for.
std::function<void()> ParsingOf(const std::string& xml) {
    const auto text = std::make_shared<const std::string>(xml);
    return [text] {
        vexpa_runtime::TakeParser();  // so that none is kept: each parse makes its own
        ComPtr<IStream> stream;
        ASSERT_EQ(_XCreateStreamOnHGBL(NewBlock(*text), 1, stream.Out()), S_OK);
        IDomDocument* document = nullptr;
        _XDOMParse(&document, stream.Get(), 0xFFFFFFFF, 0, 0, 0);
        if (document == nullptr) return;
        IDomNodeList* elements = document->GetElementsByTagName(u"e");
        for (std::uint32_t i = 0; i < elements->GetLength(); ++i) {
            IDomAttributes* attributes = elements->GetItem(i)->GetAttributes();
            if (attributes != nullptr) attributes->GetNamedItem(u"Id");
        }
        document->Release();
    };
}

struct Row {
    const char* shows;
    std::size_t size;
    std::string (*xml)(std::size_t size);
};

TEST(XmlGrowth, OfWhatADocumentHasManyOf) {
    const Row rows[] = {
        {"elements", 2'000, [](std::size_t n) { return Root(Repeated("<e/>", n)); }},
        {"elements with attributes", 2'000,
         [](std::size_t n) { return Root(Repeated("<e Id='1' b='2'/>", n)); }},
        {"element names", 2'000,
         [](std::size_t n) {
             return Root(Each(n, [](std::size_t i) { return "<e" + std::to_string(i) + "/>"; }));
         }},
        {"attributes of one element", 2'000,
         [](std::size_t n) {
             return "<e" + Each(n, [](std::size_t i) { return " a" + std::to_string(i) + "=''"; }) +
                    "/>";
         }},
        {"attribute names", 2'000,
         [](std::size_t n) {
             return Root(Each(n, [](std::size_t i) { return "<e a" + std::to_string(i) + "=''/>"; }));
         }},
        {"levels", 2'000, [](std::size_t n) { return Repeated("<e>", n) + Repeated("</e>", n); }},
        {"levels beyond the limit", 11'000, [](std::size_t n) { return Repeated("<e>", n); }},
        {"characters of a name", 1'000'000,
         [](std::size_t n) { return "<e" + std::string(n, 'x') + "/>"; }},
        {"characters of a value", 1'000'000,
         [](std::size_t n) { return "<e Id='" + std::string(n, 'v') + "'/>"; }},
        {"characters of text", 1'000'000, [](std::size_t n) { return Root(std::string(n, 't')); }},
        {"characters of a comment", 1'000'000,
         [](std::size_t n) { return "<!--" + std::string(n, 'c') + "--><e/>"; }},
        {"references in a value", 300'000,
         [](std::size_t n) { return "<e Id='" + Repeated("&lt;", n) + "'/>"; }},
        {"entities", 200,
         [](std::size_t n) {
             return "<!DOCTYPE e [" +
                    Each(n, [](std::size_t i) { return "<!ENTITY e" + std::to_string(i) + " 'x'>"; }) +
                    "]><e/>";
         }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        ExpectNoFasterGrowthThanSize(row.size, [&](std::size_t n) { return ParsingOf(row.xml(n)); });
    }
}

}  // namespace

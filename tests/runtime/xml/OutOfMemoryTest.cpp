#include <gtest/gtest.h>

#include <string>

#include "tests/runtime/xml/Dom.h"
#include "tests/support/FailingAllocator.h"

namespace vexpa_test {
namespace {

// Among the failures are those within the parser's handlers, which must not unwind through it.
TEST(OutOfMemory, FailsTheParseWhereverItStrikes) {
    std::string xml = "<r>";
    for (int i = 0; i < 300; ++i) {
        const std::string number = std::to_string(i);
        xml.append("<e").append(number).append(" a").append(number).append("='");
        xml.append(100, 'v').append("'/>");
    }
    xml += "</r>";
    for (int calls = 0;; ++calls) {
        SCOPED_TRACE(calls);
        ComPtr<IStream> stream = StreamOver(xml);
        IDomDocument* document = nullptr;
        HRESULT result = S_OK;
        bool failed = false;
        {
            const FailingAllocator failing(calls);
            result = _XDOMParse(&document, stream.Get(), 0, 0, 0, 0);
            failed = failing.HasFailed();
        }
        ASSERT_EQ(result, failed ? E_OUTOFMEMORY : S_OK);
        ASSERT_EQ(document != nullptr, result == S_OK);
        if (result == S_OK) {
            EXPECT_GT(calls, 500);
            document->Release();
            return;
        }
    }
}

TEST(OutOfMemory, CostsTheQuestionsToADocumentNothing) {
    ComPtr<IDomDocument> document = Parsed("<r><a x='1'/></r>");
    const FailingAllocator failing(0);
    IDomNodeList* list = document->GetElementsByTagName(u"a");
    IDomAttribute* attribute = list->GetItem(0)->GetAttributes()->GetNamedItem(u"x");
    const char16_t* value = attribute->GetValue();
    document->GetElementsByTagName(u"nobody");
    EXPECT_FALSE(failing.HasFailed());
    EXPECT_EQ(*value, u'1');
}

}  // namespace
}  // namespace vexpa_test

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "tests/support/FailingMalloc.h"
#include "vexpa/platform/Runtime.h"

namespace {

std::uint32_t ByteCountOf(BSTR text) {
    std::uint32_t count;
    std::memcpy(&count, reinterpret_cast<const char*>(text) - sizeof(count), sizeof(count));
    return count;
}

TEST(SystemString, IsACopyOfTheText) {
    std::u16string text = u"/word/document.xml";
    BSTR copy = _XSysAllocString(text.c_str());
    text[0] = u'!';
    EXPECT_EQ(std::u16string(copy), u"/word/document.xml");
    _XSysFreeString(copy);
}

TEST(SystemString, HasItsLengthInBytesBeforeIt) {
    BSTR text = _XSysAllocString(u"abc");
    EXPECT_EQ(ByteCountOf(text), 6u);
    _XSysFreeString(text);
}

TEST(SystemString, IsATextForTheEmptyText) {
    BSTR text = _XSysAllocString(u"");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text[0], 0);
    EXPECT_EQ(ByteCountOf(text), 0u);
    _XSysFreeString(text);
}

TEST(SystemString, IsNullForNull) {
    EXPECT_EQ(_XSysAllocString(nullptr), nullptr);
}

TEST(SystemString, IsNullWhenMemoryIsExhausted) {
    const vexpa_test::FailingMalloc failing;
    EXPECT_EQ(_XSysAllocString(u"text"), nullptr);
    EXPECT_TRUE(failing.HasFailed());
}

TEST(SystemString, FreeingNullDoesNothing) {
    _XSysFreeString(nullptr);
}

}  // namespace

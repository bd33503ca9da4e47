// What a document takes, counted in the program's own operator new.
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/memory/Poison.h"
#include "runtime/xml/DocumentMemory.h"
#include "tests/runtime/xml/Dom.h"

namespace {

std::size_t live = 0;
std::size_t peak = 0;
std::size_t largest = 0;

}  // namespace

// Every form, as a sanitizer brings its own of those that are left out.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) return nullptr;
    const std::size_t usable = malloc_usable_size(memory);
    live += usable;
    peak = std::max(peak, live);
    largest = std::max(largest, usable);
    return memory;
}
void* operator new(std::size_t size) {
    void* memory = operator new(size, std::nothrow);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void operator delete(void* memory) noexcept {
    live -= malloc_usable_size(memory);
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    operator delete(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace vexpa_test {
namespace {

// What the program takes for a parse beyond what it had before. The parser's own memory comes
// from elsewhere, and is not counted.
struct Taken {
    std::size_t peak;
    std::size_t kept;
    std::size_t largest;
};

Taken TakenByParsing(std::string_view xml) {
    Parsed("<a/>");  // the thread keeps the block of it
    const ComPtr<IStream> stream = StreamOver(xml);
    const std::size_t before = live;
    peak = live;
    largest = 0;
    IDomDocument* document = nullptr;
    if (_XDOMParse(&document, stream.Get(), 0, 0, 0, 0) != S_OK) throw std::runtime_error("no XML");
    const Taken taken{peak - before, live - before, largest};
    document->Release();
    EXPECT_EQ(live, before);
    return taken;
}

std::string Repeated(std::size_t count, std::string_view element) {
    std::string xml = "<r>";
    xml.reserve(count * element.size() + 7);
    for (std::size_t i = 0; i < count; ++i) xml += element;
    return xml + "</r>";
}

// Whatever a document holds beyond the block, it has beginnings of tables and a piece of text.
constexpr std::size_t kEmptyDocument = 24UL * 1024;

TEST(DocumentMemory, GrowsWithElementsAsLittleAsItCan) {
    constexpr std::size_t kCount = 100'000;
    struct Row {
        const char* shows;
        std::string_view element;
        std::size_t peak;  // bytes for each element
        std::size_t kept;
    };
    const Row rows[] = {
        {"no attributes: a number that is sorted", "<a/>", 13, 4},
        {"one attribute", "<a b=''/>", 75, 67},
        {"two attributes with a unit each", "<a b='1' c='2'/>", 106, 98},
        {"text and comments are not kept", "<a>text</a><!-- comment -->", 13, 4},
        {"a prefix is not kept", "<prefix:a/>", 13, 4},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        const Taken taken = TakenByParsing(Repeated(kCount, row.element));
        EXPECT_LE(taken.peak, kEmptyDocument + kCount * row.peak);
        EXPECT_LE(taken.kept, kEmptyDocument + kCount * row.kept);
        EXPECT_GE(taken.kept, kCount * 4);
    }
}

// Tables that move when they grow would be there twice.
TEST(DocumentMemory, IsNeverTakenTwice) {
    for (const std::size_t count : {33'000u, 66'000u, 132'000u}) {
        SCOPED_TRACE(count);
        const Taken taken = TakenByParsing(Repeated(count, "<a b='0123456789'/>"));
        EXPECT_LE(taken.peak, taken.kept + kEmptyDocument + count * 9);
        EXPECT_LE(taken.largest, kEmptyDocument + count * 4);
    }
}

TEST(DocumentMemory, OfASmallDocumentIsTheBlockThatTheThreadKeeps) {
    const Taken taken = TakenByParsing(Repeated(20, "<a b='0123456789' c='0123456789'/>"));
    EXPECT_LE(taken.peak, 2'000u) << "the document and what finds its tables";
}

TEST(DocumentMemory, IsOfEachItsOwnWhenSeveralAreThere) {
    const ComPtr<IDomDocument> one = Parsed("<r><a x='one'/></r>");
    const ComPtr<IDomDocument> other = Parsed("<r><a x='other'/></r>");
    EXPECT_EQ(Values(*one.Get(), u"a", u"x"), std::vector<std::u16string>{u"one"});
    EXPECT_EQ(Values(*other.Get(), u"a", u"x"), std::vector<std::u16string>{u"other"});
}

#if VEXPA_POISONS
TEST(DocumentMemoryDeathTest, IsNotToBeReadAfterItsEnd) {
    ComPtr<IDomDocument> document = Parsed("<r><a x='value'/></r>");
    IDomNode* element = document->GetElementsByTagName(u"a")->GetItem(0);
    const char16_t* value = element->GetAttributes()->GetNamedItem(u"x")->GetValue();
    document.Reset();
    EXPECT_DEATH(static_cast<void>(std::u16string(value)), "use-after-poison");
}

TEST(DocumentMemoryDeathTest, IsNotToBeReadBeyondAText) {
    const ComPtr<IDomDocument> document = Parsed("<r><a x='value'/></r>");
    IDomNode* element = document->GetElementsByTagName(u"a")->GetItem(0);
    const char16_t* value = element->GetAttributes()->GetNamedItem(u"x")->GetValue();
    EXPECT_DEATH(static_cast<void>(std::u16string(value, 7)), "use-after-poison");
}

TEST(DocumentMemoryDeathTest, IsNotToBeReadWhereATableWasBeforeItGrew) {
    vexpa_runtime::DocumentMemory memory;
    std::pmr::vector<int> numbers({1}, &memory);
    const int* first = numbers.data();
    numbers.resize(100);
    EXPECT_DEATH(std::exit(*first), "use-after-poison");
}
#endif

TEST(DocumentMemory, OfNoBytesCanBeGivenBackWhenTheBlockIsFull) {
    vexpa_runtime::DocumentMemory memory;
    while (memory.TakeFromBlock(1, 1) != nullptr) {
    }
    void* const nothing = memory.allocate(0, 1);
    EXPECT_NE(nothing, nullptr);
    memory.deallocate(nothing, 0, 1);
}

TEST(DocumentMemory, HoldsALongValueOnce) {
    constexpr std::size_t kLength = 2'000'000;
    const Taken plain = TakenByParsing("<a x='" + std::string(kLength, 'v') + "'/>");
    EXPECT_LE(plain.peak, kEmptyDocument + 2 * kLength);
    EXPECT_GE(plain.kept, 2 * kLength);
    std::string accents;
    for (std::size_t i = 0; i < kLength / 2; ++i) accents += "\xC3\xA9";
    EXPECT_LE(TakenByParsing("<a x='" + accents + "'/>").peak, kEmptyDocument + kLength);
}

}  // namespace
}  // namespace vexpa_test

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "runtime/Guarded.h"
#include "tests/runtime/com/Blocks.h"
#include "tests/runtime/com/CompoundBytes.h"
#include "tests/support/FailingAllocator.h"
#include "tests/support/FailingMalloc.h"

namespace vexpa_test {
namespace {

constexpr int kEnough = 10'000;

// Fails each operator new of `call` in turn, until none fails. That nothing leaks, the given
// block least of all, is for the leak checker to say.
template <class Call>
void FailEachNew(Call call) {
    for (int calls = 0; calls < kEnough; ++calls) {
        SCOPED_TRACE(calls);
        if (call(calls)) {
            EXPECT_GT(calls, 0);
            return;
        }
    }
    FAIL() << "never succeeds";
}

TEST(OutOfMemory, FailsToMakeAStream) {
    FailEachNew([](int calls) {
        HGBL block = NewBlock("abc");
        ComPtr<IStream> stream;
        const FailingAllocator failing(calls);
        const HRESULT result = _XCreateStreamOnHGBL(block, 1, stream.Out());
        EXPECT_EQ(result, failing.HasFailed() ? E_OUTOFMEMORY : S_OK);
        EXPECT_EQ(static_cast<bool>(stream), result == S_OK);
        return result == S_OK;
    });
}

TEST(OutOfMemory, FailsToOpenAStorageAndWhatIsInIt) {
    const std::string bytes = CompoundBytes({{"S", "content"}, {"D", "", {{"Inner", "inside"}}}});
    FailEachNew([&](int calls) {
        HGBL block = NewBlock(bytes);
        ComPtr<IStorage> storage;
        ComPtr<IStorage> inner;
        ComPtr<IStream> stream;
        ComPtr<IStream> clone;
        ComPtr<IEnumSTATSTG> elements;
        const FailingAllocator failing(calls);
        HRESULT result = _XStgOpenStorageOnHGBL2(&block, 1, storage.Out());
        if (result == S_OK) result = storage->EnumElements(0, nullptr, 0, elements.Out());
        if (result == S_OK) result = storage->OpenStorage(u"D", nullptr, 0, nullptr, 0, inner.Out());
        if (result == S_OK) result = inner->OpenStream(u"Inner", nullptr, 0, 0, stream.Out());
        if (result == S_OK) result = stream->Clone(clone.Out());
        EXPECT_EQ(result, failing.HasFailed() ? E_OUTOFMEMORY : S_OK);
        return result == S_OK;
    });
}

TEST(OutOfMemory, FailsToMakeAStreamOverNewMemory) {
    ComPtr<IStream> stream;
    const FailingMalloc failing;
    EXPECT_EQ(_XCreateStreamOnHGBL(nullptr, 0, stream.Out()), E_OUTOFMEMORY);
    EXPECT_FALSE(stream);
}

TEST(OutOfMemory, LeavesAStreamAsItWasThatCannotGrow) {
    ComPtr<IStream> stream = StreamOver("abc");
    ASSERT_EQ(stream->Seek(2, STREAM_SEEK_SET, nullptr), S_OK);
    std::uint32_t written = 99;
    {
        const FailingMalloc failing;
        EXPECT_EQ(stream->Write("xyz", 3, &written), E_OUTOFMEMORY);
    }
    EXPECT_EQ(written, 0u);
    EXPECT_EQ(Position(*stream.Get()), 2u);
    const FailingMalloc failing;
    EXPECT_EQ(stream->SetSize(10), E_OUTOFMEMORY);
    EXPECT_EQ(ReadAll(*stream.Get()), "abc");
}

TEST(OutOfMemory, FailsToCloneAndGivesNone) {
    const std::string bytes = CompoundBytes({{"S", "content"}});
    HGBL block = NewBlock(bytes);
    ComPtr<IStorage> storage;
    ASSERT_EQ(_XStgOpenStorageOnHGBL2(&block, 1, storage.Out()), S_OK);
    ComPtr<IStream> ofStorage, ofBlock = StreamOver("abc");
    ASSERT_EQ(storage->OpenStream(u"S", nullptr, 0, 0, ofStorage.Out()), S_OK);
    ComPtr<IEnumSTATSTG> elements;
    ASSERT_EQ(storage->EnumElements(0, nullptr, 0, elements.Out()), S_OK);

    for (IStream* stream : {ofStorage.Get(), ofBlock.Get()}) {
        ComPtr<IStream> clone;
        const FailingAllocator failing(0);
        EXPECT_EQ(stream->Clone(clone.Out()), E_OUTOFMEMORY);
        EXPECT_FALSE(clone);
    }
    ComPtr<IEnumSTATSTG> clone;
    const FailingAllocator failing(0);
    EXPECT_EQ(elements->Clone(clone.Out()), E_OUTOFMEMORY);
    EXPECT_FALSE(clone);
}

// That the names of those before it are freed is for the leak checker to say.
TEST(OutOfMemory, ListsAllElementsAskedForOrNone) {
    HGBL block = NewBlock(CompoundBytes({{"A", "a"}, {"B", "b"}, {"C", "c"}}));
    ComPtr<IStorage> storage;
    ASSERT_EQ(_XStgOpenStorageOnHGBL2(&block, 1, storage.Out()), S_OK);
    ComPtr<IEnumSTATSTG> elements;
    ASSERT_EQ(storage->EnumElements(0, nullptr, 0, elements.Out()), S_OK);
    STATSTG stats[3] = {};
    std::uint32_t fetched = 99;
    {
        const FailingMalloc failing(2);
        EXPECT_EQ(elements->Next(3, stats, &fetched), E_OUTOFMEMORY);
        EXPECT_EQ(fetched, 0u);
    }
    for (const STATSTG& stat : stats) EXPECT_EQ(stat.pwcsName, nullptr);
    EXPECT_EQ(elements->Next(3, stats, &fetched), S_OK);
    for (const STATSTG& stat : stats) _XCoTaskMemFree(stat.pwcsName);
}

TEST(Guarded, TurnsWhatIsThrownIntoAResult) {
    EXPECT_EQ(vexpa_runtime::Guarded([] { return S_FALSE; }), S_FALSE);
    EXPECT_EQ(vexpa_runtime::Guarded([]() -> HRESULT { throw std::bad_alloc(); }), E_OUTOFMEMORY);
    EXPECT_EQ(vexpa_runtime::Guarded([]() -> HRESULT { throw std::length_error(""); }), E_FAIL);
}

}  // namespace
}  // namespace vexpa_test

#include <gtest/gtest.h>

#include <string>

#include "tests/runtime/com/Blocks.h"
#include "tests/runtime/com/CompoundBytes.h"
#include "tests/support/FailingAllocator.h"

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

}  // namespace
}  // namespace vexpa_test

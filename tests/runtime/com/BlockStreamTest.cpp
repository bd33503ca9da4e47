#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "runtime/com/StreamBase.h"
#include "tests/runtime/com/Blocks.h"

namespace vexpa_test {
namespace {

constexpr std::int64_t kMaxPosition = std::numeric_limits<std::int64_t>::max();

std::string BytesOf(HGBL block) {
    return {reinterpret_cast<const char*>(block->bytes), block->size};
}

TEST(CreateStream, AnswersInvalidArgumentWithoutAnOut) {
    HGBL block = NewBlock("abc");
    EXPECT_EQ(_XCreateStreamOnHGBL(block, 0, nullptr), E_INVALIDARG);
    vexpa_runtime::FreeBlock(block);
}

// The leak checker sees what this test is about.
TEST(CreateStream, FreesAGivenAwayBlockAlsoWhenItFails) {
    EXPECT_EQ(_XCreateStreamOnHGBL(NewBlock("abc"), 1, nullptr), E_INVALIDARG);
}

TEST(CreateStream, LeavesTheBlockToTheCallerUnlessItIsGivenAway) {
    HGBL block = NewBlock("abc");
    ComPtr<IStream> stream;
    ASSERT_EQ(_XCreateStreamOnHGBL(block, 0, stream.Out()), S_OK);
    EXPECT_EQ(stream.Detach()->Release(), 0u);
    EXPECT_EQ(BytesOf(block), "abc");
    vexpa_runtime::FreeBlock(block);
}

TEST(CreateStream, GivesAnEmptyStreamOverNewMemoryForANullBlock) {
    for (const int freeOnRelease : {0, 1}) {
        SCOPED_TRACE(freeOnRelease);
        ComPtr<IStream> stream;
        ASSERT_EQ(_XCreateStreamOnHGBL(nullptr, freeOnRelease, stream.Out()), S_OK);
        EXPECT_EQ(SizeOf(*stream.Get()), 0u);
        EXPECT_EQ(stream->Write("xy", 2, nullptr), S_OK);
        EXPECT_EQ(ReadAll(*stream.Get()), "xy");
    }
}

TEST(BlockStream, CountsReferences) {
    ComPtr<IStream> stream = StreamOver("abc");
    EXPECT_EQ(stream->AddRef(), 2u);
    EXPECT_EQ(stream->Release(), 1u);
}

TEST(BlockStream, AnswersToItsInterfacesAndNoOthers) {
    ComPtr<IStream> stream = StreamOver("abc");
    for (const GUID& iid : {IID_IUnknown, IID_ISequentialStream, IID_IStream}) {
        SCOPED_TRACE(iid.Data1);
        ComPtr<IStream> same;
        EXPECT_EQ(stream->QueryInterface(iid, reinterpret_cast<void**>(same.Out())), S_OK);
        EXPECT_EQ(same.Get(), stream.Get());
        EXPECT_EQ(stream->AddRef(), 3u);
        stream->Release();
    }
    void* other = &stream;
    EXPECT_EQ(stream->QueryInterface(IID_IStorage, &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(stream->QueryInterface(IID_IStream, nullptr), E_INVALIDARG);
}

TEST(BlockStream, ReadsUpToTheEndAndThenNothing) {
    ComPtr<IStream> stream = StreamOver("abcdef");
    char bytes[8] = {};
    std::uint32_t read = 99;
    EXPECT_EQ(stream->Read(bytes, 4, &read), S_OK);
    EXPECT_EQ(std::string(bytes, read), "abcd");
    EXPECT_EQ(stream->Read(bytes, 8, &read), S_OK);
    EXPECT_EQ(std::string(bytes, read), "ef");
    EXPECT_EQ(stream->Read(bytes, 8, &read), S_OK);
    EXPECT_EQ(read, 0u);
}

TEST(BlockStream, ReadsWithoutACount) {
    ComPtr<IStream> stream = StreamOver("abc");
    char byte = 0;
    EXPECT_EQ(stream->Read(&byte, 1, nullptr), S_OK);
    EXPECT_EQ(byte, 'a');
}

TEST(BlockStream, RefusesNullMemoryForBytesButNotForNone) {
    ComPtr<IStream> stream = StreamOver("abc");
    std::uint32_t count = 99;
    EXPECT_EQ(stream->Read(nullptr, 1, &count), E_INVALIDARG);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(stream->Read(nullptr, 0, &count), S_OK);
    EXPECT_EQ(stream->Write(nullptr, 1, &count), E_INVALIDARG);
    EXPECT_EQ(stream->Write(nullptr, 0, &count), S_OK);
    EXPECT_EQ(Position(*stream.Get()), 0u);
}

TEST(BlockStream, ReadsWhatTheBlockHoldsAtThatMoment) {
    HGBL block = NewBlock("abc");
    ComPtr<IStream> stream;
    ASSERT_EQ(_XCreateStreamOnHGBL(block, 1, stream.Out()), S_OK);
    std::memcpy(_XGblLock(block), "xyz", 3);
    _XGblUnlock(block);
    EXPECT_EQ(ReadAll(*stream.Get()), "xyz");
}

TEST(BlockStream, WritesOverAndPastTheEnd) {
    HGBL block = NewBlock("abcd");
    ComPtr<IStream> stream;
    ASSERT_EQ(_XCreateStreamOnHGBL(block, 1, stream.Out()), S_OK);
    ASSERT_EQ(stream->Seek(2, STREAM_SEEK_SET, nullptr), S_OK);
    std::uint32_t written = 0;
    EXPECT_EQ(stream->Write("wxyz", 4, &written), S_OK);
    EXPECT_EQ(written, 4u);
    EXPECT_EQ(Position(*stream.Get()), 6u);
    EXPECT_EQ(BytesOf(block), "abwxyz");
}

TEST(BlockStream, FillsTheGapBeforeAWritePastTheEndWithZeros) {
    ComPtr<IStream> stream = StreamOver("ab");
    ASSERT_EQ(stream->Seek(4, STREAM_SEEK_SET, nullptr), S_OK);
    ASSERT_EQ(stream->Write("z", 1, nullptr), S_OK);
    EXPECT_EQ(ReadAll(*stream.Get()), std::string("ab\0\0z", 5));
}

TEST(BlockStream, IsNotLongerForAnEmptyWritePastTheEnd) {
    ComPtr<IStream> stream = StreamOver("ab");
    ASSERT_EQ(stream->Seek(9, STREAM_SEEK_SET, nullptr), S_OK);
    EXPECT_EQ(stream->Write("", 0, nullptr), S_OK);
    EXPECT_EQ(SizeOf(*stream.Get()), 2u);
}

struct SeekRow {
    const char* shows;
    std::uint64_t from;
    std::int64_t move;
    std::uint32_t origin;
    HRESULT result;
    std::uint64_t to;
};

TEST(BlockStream, SeeksWithinSixtyThreeBits) {
    const SeekRow rows[] = {
        {"from the start", 3, 5, STREAM_SEEK_SET, S_OK, 5},
        {"from where it is", 3, 2, STREAM_SEEK_CUR, S_OK, 5},
        {"back from where it is", 3, -3, STREAM_SEEK_CUR, S_OK, 0},
        {"from the end", 3, -1, STREAM_SEEK_END, S_OK, 5},
        {"past the end", 3, 100, STREAM_SEEK_END, S_OK, 106},
        {"past four gibibytes", 0, std::int64_t{5} << 30, STREAM_SEEK_SET, S_OK,
         std::uint64_t{5} << 30},
        {"to the last position", 0, kMaxPosition, STREAM_SEEK_SET, S_OK,
         static_cast<std::uint64_t>(kMaxPosition)},
        {"beyond the last position", 1, kMaxPosition, STREAM_SEEK_CUR, STG_E_INVALIDFUNCTION, 1},
        {"beyond the last position from the end", 1, kMaxPosition, STREAM_SEEK_END,
         STG_E_INVALIDFUNCTION, 1},
        {"before the start", 3, -1, STREAM_SEEK_SET, STG_E_INVALIDFUNCTION, 3},
        {"before the start from where it is", 3, -4, STREAM_SEEK_CUR, STG_E_INVALIDFUNCTION, 3},
        {"before the start from the end", 3, -7, STREAM_SEEK_END, STG_E_INVALIDFUNCTION, 3},
        {"an origin that does not exist", 3, 0, 3, STG_E_INVALIDFUNCTION, 3},
    };
    for (const SeekRow& row : rows) {
        SCOPED_TRACE(row.shows);
        ComPtr<IStream> stream = StreamOver("abcdef");
        ASSERT_EQ(stream->Seek(static_cast<std::int64_t>(row.from), STREAM_SEEK_SET, nullptr), S_OK);
        EXPECT_EQ(stream->Seek(row.move, row.origin, nullptr), row.result);
        EXPECT_EQ(Position(*stream.Get()), row.to);
    }
}

TEST(BlockStream, ReadsNothingPastTheEnd) {
    ComPtr<IStream> stream = StreamOver("abc");
    ASSERT_EQ(stream->Seek(kMaxPosition, STREAM_SEEK_SET, nullptr), S_OK);
    EXPECT_EQ(ReadRest(*stream.Get()), "");
}

TEST(BlockStream, FailsToWriteWhereNoMemoryReaches) {
    ComPtr<IStream> stream = StreamOver("abc");
    ASSERT_EQ(stream->Seek(kMaxPosition, STREAM_SEEK_SET, nullptr), S_OK);
    std::uint32_t written = 99;
    EXPECT_EQ(stream->Write("x", 1, &written), E_OUTOFMEMORY);
    EXPECT_EQ(written, 0u);
    EXPECT_EQ(stream->SetSize(std::numeric_limits<std::uint64_t>::max()), E_OUTOFMEMORY);
    EXPECT_EQ(ReadAll(*stream.Get()), "abc");
}

TEST(BlockStream, GrowsWithZerosAndShrinksKeepingItsPosition) {
    ComPtr<IStream> stream = StreamOver("abc");
    ASSERT_EQ(stream->Seek(3, STREAM_SEEK_SET, nullptr), S_OK);
    EXPECT_EQ(stream->SetSize(5), S_OK);
    EXPECT_EQ(ReadAll(*stream.Get()), std::string("abc\0\0", 5));
    EXPECT_EQ(stream->SetSize(1), S_OK);
    EXPECT_EQ(Position(*stream.Get()), 5u);
    EXPECT_EQ(ReadAll(*stream.Get()), "a");
    EXPECT_EQ(stream->SetSize(0), S_OK);
    EXPECT_EQ(ReadAll(*stream.Get()), "");
}

TEST(BlockStream, DoesNotMoveTheBytesOfALockedBlock) {
    HGBL block = NewBlock("abc");
    ComPtr<IStream> stream;
    ASSERT_EQ(_XCreateStreamOnHGBL(block, 1, stream.Out()), S_OK);
    _XGblLock(block);
    EXPECT_EQ(stream->SetSize(100), E_ACCESSDENIED);
    EXPECT_EQ(stream->SetSize(3), S_OK);
    EXPECT_EQ(stream->Write("xyz", 3, nullptr), S_OK);
    EXPECT_EQ(stream->Write("!", 1, nullptr), E_ACCESSDENIED);
    _XGblUnlock(block);
    EXPECT_EQ(stream->Write("!", 1, nullptr), S_OK);
    EXPECT_EQ(BytesOf(block), "xyz!");
}

TEST(BlockStream, CopiesWhatIsLeftWhenAskedForMore) {
    const std::string bytes(40'000, 'q');
    ComPtr<IStream> source = StreamOver("ab" + bytes);
    ComPtr<IStream> target = StreamOver("");
    ASSERT_EQ(source->Seek(2, STREAM_SEEK_SET, nullptr), S_OK);
    std::uint64_t read = 0;
    std::uint64_t written = 0;
    EXPECT_EQ(source->CopyTo(target.Get(), std::numeric_limits<std::uint64_t>::max(), &read, &written),
              S_OK);
    EXPECT_EQ(read, bytes.size());
    EXPECT_EQ(written, bytes.size());
    EXPECT_EQ(ReadAll(*target.Get()), bytes);
    EXPECT_EQ(Position(*source.Get()), bytes.size() + 2);
}

TEST(BlockStream, CopiesNoMoreThanAskedFor) {
    ComPtr<IStream> source = StreamOver("abcdef");
    ComPtr<IStream> target = StreamOver("");
    EXPECT_EQ(source->CopyTo(target.Get(), 4, nullptr, nullptr), S_OK);
    EXPECT_EQ(ReadAll(*target.Get()), "abcd");
    EXPECT_EQ(ReadRest(*source.Get()), "ef");
}

TEST(BlockStream, CopiesToItsOwnEndOnce) {
    ComPtr<IStream> source = StreamOver("abc");
    ComPtr<IStream> end;
    ASSERT_EQ(source->Clone(end.Out()), S_OK);
    ASSERT_EQ(end->Seek(0, STREAM_SEEK_END, nullptr), S_OK);
    EXPECT_EQ(source->CopyTo(end.Get(), std::numeric_limits<std::uint64_t>::max(), nullptr, nullptr),
              S_OK);
    EXPECT_EQ(ReadAll(*source.Get()), "abcabc");
}

TEST(BlockStream, ReportsTheTargetThatCannotBeWritten) {
    HGBL block = NewBlock("");
    ComPtr<IStream> target;
    ASSERT_EQ(_XCreateStreamOnHGBL(block, 1, target.Out()), S_OK);
    ComPtr<IStream> source = StreamOver("abc");
    _XGblLock(block);
    std::uint64_t read = 99;
    std::uint64_t written = 99;
    EXPECT_EQ(source->CopyTo(target.Get(), 3, &read, &written), E_ACCESSDENIED);
    EXPECT_EQ(read, 3u);
    EXPECT_EQ(written, 0u);
    EXPECT_EQ(source->CopyTo(nullptr, 3, &read, &written), E_INVALIDARG);
    EXPECT_EQ(read, 0u);
    _XGblUnlock(block);
}

// A target that takes fewer bytes than it is given, without an error.
class ReluctantStream final : public vexpa_runtime::StreamBase {
public:
    ReluctantStream() : StreamBase(0) {}
    HRESULT Read(void*, std::uint32_t, std::uint32_t*) override { return result; }
    HRESULT Write(const void*, std::uint32_t size, std::uint32_t* written) override {
        *written = size - 1;
        return S_OK;
    }
    HRESULT SetSize(std::uint64_t) override { return E_FAIL; }
    HRESULT Stat(STATSTG*, std::uint32_t) override { return E_FAIL; }
    HRESULT Clone(IStream**) override { return E_FAIL; }

    HRESULT result = S_OK;

private:
    std::uint64_t Size() const noexcept override { return 10; }
};

TEST(BlockStream, FailsToCopyToATargetThatTakesLess) {
    ComPtr<IStream> target(new ReluctantStream);
    std::uint64_t read = 99, written = 99;
    EXPECT_EQ(StreamOver("abc")->CopyTo(target.Get(), 3, &read, &written), E_FAIL);
    EXPECT_EQ(read, 3u);
    EXPECT_EQ(written, 2u);
}

TEST(StreamCopy, EndsWhereTheSourceFailsOrHasNoMoreBytes) {
    ComPtr<ReluctantStream> source(new ReluctantStream);
    ComPtr<IStream> target = StreamOver("");
    std::uint64_t read = 99, written = 99;
    EXPECT_EQ(source->CopyTo(target.Get(), 10, &read, &written), S_OK);
    EXPECT_EQ(read + written, 0u);
    source->result = E_FAIL;
    EXPECT_EQ(source->CopyTo(target.Get(), 10, nullptr, nullptr), E_FAIL);
    EXPECT_EQ(SizeOf(*target.Get()), 0u);
}

TEST(BlockStream, HasNothingToCommitAndLocksNoRegions) {
    ComPtr<IStream> stream = StreamOver("abc");
    EXPECT_EQ(stream->Commit(0), S_OK);
    EXPECT_EQ(stream->Revert(), S_OK);
    EXPECT_EQ(stream->LockRegion(0, 1, 0), STG_E_INVALIDFUNCTION);
    EXPECT_EQ(stream->UnlockRegion(0, 1, 0), STG_E_INVALIDFUNCTION);
}

TEST(BlockStream, TellsItsSizeAndNoName) {
    ComPtr<IStream> stream = StreamOver("abc");
    STATSTG stat;
    std::memset(&stat, 0xFF, sizeof stat);
    ASSERT_EQ(stream->Stat(&stat, STATFLAG_DEFAULT), S_OK);
    EXPECT_EQ(stat.pwcsName, nullptr);
    EXPECT_EQ(stat.type, STGTY_STREAM);
    EXPECT_EQ(stat.cbSize, 3u);
    EXPECT_EQ(stat.mtime.dwHighDateTime, 0u);
    EXPECT_EQ(stream->Stat(nullptr, STATFLAG_DEFAULT), E_INVALIDARG);
}

TEST(BlockStream, ClonesWithAPositionOfItsOwnOverTheSameBytes) {
    ComPtr<IStream> stream = StreamOver("abcdef");
    ASSERT_EQ(stream->Seek(2, STREAM_SEEK_SET, nullptr), S_OK);
    ComPtr<IStream> clone;
    ASSERT_EQ(stream->Clone(clone.Out()), S_OK);
    EXPECT_EQ(Position(*clone.Get()), 2u);
    ASSERT_EQ(clone->Write("XY", 2, nullptr), S_OK);
    EXPECT_EQ(Position(*stream.Get()), 2u);
    EXPECT_EQ(ReadRest(*stream.Get()), "XYef");
    EXPECT_EQ(stream->Clone(nullptr), E_INVALIDARG);
}

TEST(BlockStream, KeepsTheBlockUntilTheLastCloneGoes) {
    ComPtr<IStream> clone;
    {
        ComPtr<IStream> stream = StreamOver("abc");
        ASSERT_EQ(stream->Clone(clone.Out()), S_OK);
    }
    EXPECT_EQ(ReadAll(*clone.Get()), "abc");
}

TEST(BlockStream, SeesInACloneWhatTheOtherGrew) {
    ComPtr<IStream> stream = StreamOver("abc");
    ComPtr<IStream> clone;
    ASSERT_EQ(stream->Clone(clone.Out()), S_OK);
    ASSERT_EQ(stream->SetSize(100'000), S_OK);
    EXPECT_EQ(SizeOf(*clone.Get()), 100'000u);
    EXPECT_EQ(ReadAll(*clone.Get()).size(), 100'000u);
}

}  // namespace
}  // namespace vexpa_test

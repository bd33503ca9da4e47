#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "tests/runtime/com/Blocks.h"
#include "tests/runtime/com/CompoundBytes.h"
#include "tests/support/ScratchFile.h"

namespace vexpa_test {
namespace {

ComPtr<IStorage> OpenBytes(const std::string& bytes) {
    HGBL block = NewBlock(bytes);
    ComPtr<IStorage> storage;
    if (_XStgOpenStorageOnHGBL2(&block, 1, storage.Out()) != S_OK) {
        throw std::runtime_error("no compound file");
    }
    return storage;
}

std::string Pattern(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 31 + i / 251);
    return bytes;
}

// One small stream, one large one, an empty one, a storage with a stream, an empty storage.
std::string SampleBytes() {
    return CompoundBytes({{"Small", "small content"},
                          {"Large", Pattern(100'000)},
                          {"Empty", ""},
                          {"Folder", "", {{"Inner", "inside"}}},
                          {"Hollow", "", {}, true}});
}

ComPtr<IStream> OpenStream(IStorage& storage, const char16_t* name) {
    ComPtr<IStream> stream;
    if (storage.OpenStream(name, nullptr, 0, 0, stream.Out()) != S_OK) {
        throw std::runtime_error("no such stream");
    }
    return stream;
}

ComPtr<IStorage> OpenStorage(IStorage& storage, const char16_t* name) {
    ComPtr<IStorage> inner;
    if (storage.OpenStorage(name, nullptr, 0, nullptr, 0, inner.Out()) != S_OK) {
        throw std::runtime_error("no such storage");
    }
    return inner;
}

std::u16string TakeName(STATSTG& stat) {
    const std::u16string name = stat.pwcsName == nullptr ? u"(null)" : stat.pwcsName;
    _XCoTaskMemFree(stat.pwcsName);
    return name;
}

std::vector<std::u16string> Names(IEnumSTATSTG& elements) {
    std::vector<std::u16string> names;
    STATSTG stat;
    while (elements.Next(1, &stat, nullptr) == S_OK) names.push_back(TakeName(stat));
    std::sort(names.begin(), names.end());
    return names;
}

TEST(OpenStorageOnBlock, RefusesNullArguments) {
    HGBL block = NewBlock(SampleBytes());
    IStorage* storage = nullptr;
    EXPECT_EQ(_XStgOpenStorageOnHGBL2(nullptr, 0, &storage), E_INVALIDARG);
    EXPECT_EQ(_XStgOpenStorageOnHGBL2(&block, 0, nullptr), E_INVALIDARG);
    HGBL none = nullptr;
    EXPECT_EQ(_XStgOpenStorageOnHGBL2(&none, 1, &storage), E_FAIL);
    EXPECT_EQ(storage, nullptr);
    vexpa_runtime::FreeBlock(block);
}

TEST(OpenStorageOnBlock, FreesAGivenAwayBlockAlsoWhenItFails) {
    HGBL block = NewBlock("no compound file");
    IStorage* storage = nullptr;
    EXPECT_EQ(_XStgOpenStorageOnHGBL2(&block, 1, &storage), E_FAIL);
    block = NewBlock(SampleBytes());
    EXPECT_EQ(_XStgOpenStorageOnHGBL2(&block, 1, nullptr), E_INVALIDARG);
}

TEST(OpenStorageOnBlock, LeavesTheBlockToTheCallerUnlessItIsGivenAway) {
    HGBL block = NewBlock(SampleBytes());
    ComPtr<IStorage> storage;
    ASSERT_EQ(_XStgOpenStorageOnHGBL2(&block, 0, storage.Out()), S_OK);
    EXPECT_NE(block->locks, 0);
    EXPECT_EQ(storage.Detach()->Release(), 0u);
    EXPECT_EQ(block->locks, 0);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(block->bytes), block->size), SampleBytes());
    vexpa_runtime::FreeBlock(block);
}

TEST(Storage, AnswersToItsInterfacesAndNoOthers) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    ComPtr<IStorage> same;
    EXPECT_EQ(storage->QueryInterface(IID_IStorage, reinterpret_cast<void**>(same.Out())), S_OK);
    EXPECT_EQ(same.Get(), storage.Get());
    void* other = &storage;
    EXPECT_EQ(storage->QueryInterface(IID_IStream, &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
}

TEST(Storage, OpensStreamsOfEverySize) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    EXPECT_EQ(ReadAll(*OpenStream(*storage.Get(), u"Small").Get()), "small content");
    EXPECT_EQ(ReadAll(*OpenStream(*storage.Get(), u"Large").Get()), Pattern(100'000));
    EXPECT_EQ(ReadAll(*OpenStream(*storage.Get(), u"Empty").Get()), "");
}

TEST(Storage, ReadsStreamsOfEverySizeAroundTheSectors) {
    for (const std::size_t size : {1u, 63u, 64u, 65u, 511u, 512u, 4095u, 4096u, 4097u, 4608u}) {
        SCOPED_TRACE(size);
        ComPtr<IStorage> storage = OpenBytes(CompoundBytes({{"S", Pattern(size)}}));
        ComPtr<IStream> stream = OpenStream(*storage.Get(), u"S");
        EXPECT_EQ(SizeOf(*stream.Get()), size);
        EXPECT_EQ(ReadAll(*stream.Get()), Pattern(size));
    }
}

TEST(Storage, IgnoresCaseInNames) {
    ComPtr<IStorage> storage =
        OpenBytes(CompoundBytes({{"Stra\xC3\x9F"
                                  "e \xC3\x84",
                                  "x"}}));
    EXPECT_EQ(ReadAll(*OpenStream(*storage.Get(), u"STRA\u00DFE \u00E4").Get()), "x");
    ComPtr<IStream> stream;
    EXPECT_EQ(storage->OpenStream(u"STRASSE \u00C4", nullptr, 0, 0, stream.Out()), STG_E_FILENOTFOUND);
}

TEST(Storage, KeepsControlCharactersInNames) {
    ComPtr<IStorage> storage =
        OpenBytes(CompoundBytes({{"\x01"
                                  "CompObj",
                                  "x"}}));
    EXPECT_EQ(ReadAll(*OpenStream(*storage.Get(), u"\u0001CompObj").Get()), "x");
    ComPtr<IEnumSTATSTG> elements;
    ASSERT_EQ(storage->EnumElements(0, nullptr, 0, elements.Out()), S_OK);
    EXPECT_EQ(Names(*elements.Get()), std::vector<std::u16string>{u"\u0001CompObj"});
}

TEST(Storage, OpensStoragesWithinStorages) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    ComPtr<IStorage> folder = OpenStorage(*storage.Get(), u"folder");
    EXPECT_EQ(ReadAll(*OpenStream(*folder.Get(), u"Inner").Get()), "inside");
    ComPtr<IStorage> hollow = OpenStorage(*storage.Get(), u"Hollow");
    ComPtr<IStream> stream;
    EXPECT_EQ(hollow->OpenStream(u"Inner", nullptr, 0, 0, stream.Out()), STG_E_FILENOTFOUND);
}

TEST(Storage, DoesNotTakeAStreamForAStorageOrTheReverse) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    IStream* stream = reinterpret_cast<IStream*>(&storage);
    EXPECT_EQ(storage->OpenStream(u"Folder", nullptr, 0, 0, &stream), STG_E_FILENOTFOUND);
    EXPECT_EQ(stream, nullptr);
    IStorage* inner = storage.Get();
    EXPECT_EQ(storage->OpenStorage(u"Small", nullptr, 0, nullptr, 0, &inner), STG_E_FILENOTFOUND);
    EXPECT_EQ(inner, nullptr);
}

TEST(Storage, RefusesNullNamesAndOuts) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    ComPtr<IStream> stream;
    ComPtr<IStorage> inner;
    EXPECT_EQ(storage->OpenStream(nullptr, nullptr, 0, 0, stream.Out()), E_INVALIDARG);
    EXPECT_EQ(storage->OpenStream(u"Small", nullptr, 0, 0, nullptr), E_INVALIDARG);
    EXPECT_EQ(storage->OpenStorage(nullptr, nullptr, 0, nullptr, 0, inner.Out()), E_INVALIDARG);
    EXPECT_EQ(storage->OpenStorage(u"Folder", nullptr, 0, nullptr, 0, nullptr), E_INVALIDARG);
    EXPECT_EQ(storage->EnumElements(0, nullptr, 0, nullptr), E_INVALIDARG);
    EXPECT_EQ(storage->Stat(nullptr, STATFLAG_DEFAULT), E_INVALIDARG);
    EXPECT_EQ(storage->CreateStream(u"New", 0, 0, 0, nullptr), E_INVALIDARG);
    EXPECT_EQ(storage->CreateStorage(u"New", 0, 0, 0, nullptr), E_INVALIDARG);
    EXPECT_EQ(storage->CreateStream(nullptr, 0, 0, 0, stream.Out()), E_INVALIDARG);
}

TEST(Storage, RefusesEverythingThatWouldWrite) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    ComPtr<IStorage> other = OpenBytes(SampleBytes());
    IStream* stream = reinterpret_cast<IStream*>(&storage);
    IStorage* inner = storage.Get();
    EXPECT_EQ(storage->CreateStream(u"New", 0, 0, 0, &stream), E_ACCESSDENIED);
    EXPECT_EQ(stream, nullptr);
    EXPECT_EQ(storage->CreateStorage(u"New", 0, 0, 0, &inner), E_ACCESSDENIED);
    EXPECT_EQ(inner, nullptr);
    EXPECT_EQ(storage->CopyTo(0, nullptr, nullptr, other.Get()), E_ACCESSDENIED);
    EXPECT_EQ(storage->MoveElementTo(u"Small", other.Get(), u"Moved", 0), E_ACCESSDENIED);
    EXPECT_EQ(storage->DestroyElement(u"Small"), E_ACCESSDENIED);
    EXPECT_EQ(storage->RenameElement(u"Small", u"Other"), E_ACCESSDENIED);
    EXPECT_EQ(storage->SetElementTimes(u"Small", nullptr, nullptr, nullptr), E_ACCESSDENIED);
    EXPECT_EQ(storage->SetClass(GUID{}), E_ACCESSDENIED);
    EXPECT_EQ(storage->SetStateBits(0, 0), E_ACCESSDENIED);
}

TEST(Storage, HasNothingToCommit) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    EXPECT_EQ(storage->Commit(0), S_OK);
    EXPECT_EQ(storage->Revert(), S_OK);
}

TEST(StorageStat, TellsTheClassOfTheRootAndNoName) {
    ComPtr<IStorage> storage = OpenBytes(CompoundBytes({{"S", "x"}},
                                                       "\x04\x03\x02\x01\x06\x05\x08\x07"
                                                       "abcdefgh"));
    STATSTG stat;
    ASSERT_EQ(storage->Stat(&stat, STATFLAG_DEFAULT), S_OK);
    EXPECT_EQ(stat.pwcsName, nullptr);
    EXPECT_EQ(stat.type, STGTY_STORAGE);
    EXPECT_EQ(stat.cbSize, 0u);
    EXPECT_EQ(stat.clsid, (GUID{0x01020304, 0x0506, 0x0708, {'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'}}));
}

TEST(StorageStat, NamesAnInnerStorageUnlessAskedNotTo) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    ComPtr<IStorage> folder = OpenStorage(*storage.Get(), u"FOLDER");
    STATSTG stat;
    ASSERT_EQ(folder->Stat(&stat, STATFLAG_DEFAULT), S_OK);
    EXPECT_EQ(TakeName(stat), u"Folder");
    ASSERT_EQ(folder->Stat(&stat, STATFLAG_NONAME), S_OK);
    EXPECT_EQ(stat.pwcsName, nullptr);
}

TEST(StorageStat, TellsWhenAStorageChanged) {
    RawEntry root{u"Root Entry", 5, kNoEntry, kNoEntry, 1};
    std::string bytes = RawCompoundBytes({root, {u"S", 1}});
    constexpr std::size_t kModifiedAt = 1024 + 128 + 108;
    Put32(bytes, kModifiedAt, 0x00000000);
    Put32(bytes, kModifiedAt + 4, 0x01C85000);
    ComPtr<IStorage> storage = OpenBytes(bytes);
    STATSTG stat;
    ASSERT_EQ(OpenStorage(*storage.Get(), u"S")->Stat(&stat, STATFLAG_NONAME), S_OK);
    // The library counts in microseconds, so the last digit of the ticks is lost.
    const std::uint64_t ticks =
        std::uint64_t{stat.mtime.dwHighDateTime} << 32 | stat.mtime.dwLowDateTime;
    EXPECT_EQ(ticks, 0x01C85000'00000000u / 10 * 10);
}

TEST(StorageEnumerator, ListsNamesTypesAndSizes) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    ComPtr<IEnumSTATSTG> elements;
    ASSERT_EQ(storage->EnumElements(0, nullptr, 0, elements.Out()), S_OK);
    STATSTG stats[9];
    std::uint32_t fetched = 0;
    EXPECT_EQ(elements->Next(9, stats, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 5u);
    std::vector<std::tuple<std::u16string, std::uint32_t, std::uint64_t>> found;
    for (std::uint32_t i = 0; i < fetched; ++i) {
        found.emplace_back(TakeName(stats[i]), stats[i].type, stats[i].cbSize);
    }
    std::sort(found.begin(), found.end());
    EXPECT_EQ(found, (decltype(found){{u"Empty", STGTY_STREAM, 0},
                                      {u"Folder", STGTY_STORAGE, 0},
                                      {u"Hollow", STGTY_STORAGE, 0},
                                      {u"Large", STGTY_STREAM, 100'000},
                                      {u"Small", STGTY_STREAM, 13}}));
}

TEST(StorageEnumerator, SkipsResetsAndClones) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    ComPtr<IEnumSTATSTG> elements;
    ASSERT_EQ(storage->EnumElements(0, nullptr, 0, elements.Out()), S_OK);
    EXPECT_EQ(elements->Skip(3), S_OK);
    ComPtr<IEnumSTATSTG> clone;
    ASSERT_EQ(elements->Clone(clone.Out()), S_OK);
    EXPECT_EQ(elements->Skip(std::numeric_limits<std::uint32_t>::max()), S_FALSE);
    EXPECT_EQ(Names(*elements.Get()).size(), 0u);
    EXPECT_EQ(Names(*clone.Get()).size(), 2u);
    EXPECT_EQ(elements->Reset(), S_OK);
    EXPECT_EQ(Names(*elements.Get()).size(), 5u);
    EXPECT_EQ(elements->Clone(nullptr), E_INVALIDARG);
}

TEST(StorageEnumerator, NeedsACountForSeveralElements) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    ComPtr<IEnumSTATSTG> elements;
    ASSERT_EQ(storage->EnumElements(0, nullptr, 0, elements.Out()), S_OK);
    STATSTG stats[2];
    std::uint32_t fetched = 99;
    EXPECT_EQ(elements->Next(2, stats, nullptr), E_INVALIDARG);
    EXPECT_EQ(elements->Next(1, nullptr, &fetched), E_INVALIDARG);
    EXPECT_EQ(fetched, 0u);
    EXPECT_EQ(elements->Next(0, nullptr, &fetched), S_OK);
    EXPECT_EQ(Names(*elements.Get()).size(), 5u);
}

TEST(StorageEnumerator, OutlivesTheStorage) {
    ComPtr<IEnumSTATSTG> elements;
    ASSERT_EQ(OpenBytes(SampleBytes())->EnumElements(0, nullptr, 0, elements.Out()), S_OK);
    EXPECT_EQ(Names(*elements.Get()).size(), 5u);
}

TEST(StorageStream, IsReadOnly) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    ComPtr<IStream> stream = OpenStream(*storage.Get(), u"Small");
    std::uint32_t written = 99;
    EXPECT_EQ(stream->Write("x", 1, &written), E_ACCESSDENIED);
    EXPECT_EQ(written, 0u);
    EXPECT_EQ(stream->SetSize(1), E_ACCESSDENIED);
    EXPECT_EQ(stream->Commit(0), S_OK);
    EXPECT_EQ(stream->LockRegion(0, 1, 0), STG_E_INVALIDFUNCTION);
    EXPECT_EQ(ReadAll(*stream.Get()), "small content");
}

TEST(StorageStream, RefusesNullMemoryForBytesButNotForNone) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    ComPtr<IStream> stream = OpenStream(*storage.Get(), u"Small");
    std::uint32_t read = 99;
    EXPECT_EQ(stream->Read(nullptr, 1, &read), E_INVALIDARG);
    EXPECT_EQ(read, 0u);
    EXPECT_EQ(stream->Read(nullptr, 0, &read), S_OK);
}

TEST(StorageStream, ReadsAndRefusesToWriteWithoutACount) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    ComPtr<IStream> stream = OpenStream(*storage.Get(), u"Small");
    char bytes[5];
    EXPECT_EQ(stream->Read(bytes, sizeof bytes, nullptr), S_OK);
    EXPECT_EQ(std::string(bytes, sizeof bytes), "small");
    EXPECT_EQ(stream->Write("x", 1, nullptr), E_ACCESSDENIED);
    EXPECT_EQ(ReadRest(*stream.Get()), " content");
}

TEST(StorageStream, SeeksAndReadsAnywhere) {
    const std::string content = Pattern(100'000);
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    ComPtr<IStream> stream = OpenStream(*storage.Get(), u"Large");
    for (const std::size_t at : {99'990u, 511u, 0u, 4'096u, 60'001u}) {
        SCOPED_TRACE(at);
        ASSERT_EQ(stream->Seek(static_cast<std::int64_t>(at), STREAM_SEEK_SET, nullptr), S_OK);
        EXPECT_EQ(ReadRest(*stream.Get()), content.substr(at));
    }
    ASSERT_EQ(stream->Seek(std::int64_t{1} << 40, STREAM_SEEK_SET, nullptr), S_OK);
    EXPECT_EQ(ReadRest(*stream.Get()), "");
    char byte = 0;
    EXPECT_EQ(stream->Read(nullptr, 1, nullptr), E_INVALIDARG);
    EXPECT_EQ(stream->Seek(-1, STREAM_SEEK_SET, nullptr), STG_E_INVALIDFUNCTION);
    EXPECT_EQ(stream->Read(&byte, 1, nullptr), S_OK);
}

TEST(StorageStream, CopiesToAnother) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    ComPtr<IStream> target = StreamOver("");
    std::uint64_t written = 0;
    EXPECT_EQ(OpenStream(*storage.Get(), u"Large")
                  ->CopyTo(target.Get(), std::numeric_limits<std::uint64_t>::max(), nullptr, &written),
              S_OK);
    EXPECT_EQ(written, 100'000u);
    EXPECT_EQ(ReadAll(*target.Get()), Pattern(100'000));
}

TEST(StorageStream, ClonesWithAPositionOfItsOwn) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    ComPtr<IStream> stream = OpenStream(*storage.Get(), u"Small");
    ASSERT_EQ(stream->Seek(6, STREAM_SEEK_SET, nullptr), S_OK);
    ComPtr<IStream> clone;
    ASSERT_EQ(stream->Clone(clone.Out()), S_OK);
    EXPECT_EQ(stream->Seek(0, STREAM_SEEK_SET, nullptr), S_OK);
    EXPECT_EQ(ReadRest(*clone.Get()), "content");
    EXPECT_EQ(ReadRest(*stream.Get()), "small content");
    EXPECT_EQ(stream->Clone(nullptr), E_INVALIDARG);
}

TEST(StorageStream, TellsItsNameAndSize) {
    ComPtr<IStorage> storage = OpenBytes(SampleBytes());
    ComPtr<IStream> stream = OpenStream(*storage.Get(), u"SMALL");
    STATSTG stat;
    ASSERT_EQ(stream->Stat(&stat, STATFLAG_DEFAULT), S_OK);
    EXPECT_EQ(TakeName(stat), u"Small");
    EXPECT_EQ(stat.type, STGTY_STREAM);
    EXPECT_EQ(stat.cbSize, 13u);
    EXPECT_EQ(stream->Stat(nullptr, STATFLAG_DEFAULT), E_INVALIDARG);
}

TEST(StorageStream, KeepsTheFileWhenTheStoragesAreGone) {
    ComPtr<IStream> stream;
    {
        ComPtr<IStorage> storage = OpenBytes(SampleBytes());
        stream = OpenStream(*OpenStorage(*storage.Get(), u"Folder").Get(), u"Inner");
    }
    EXPECT_EQ(ReadAll(*stream.Get()), "inside");
    ComPtr<IStream> clone;
    ASSERT_EQ(stream->Clone(clone.Out()), S_OK);
    stream = ComPtr<IStream>();
    EXPECT_EQ(ReadAll(*clone.Get()), "inside");
}

}  // namespace
}  // namespace vexpa_test

// What stays with the process when every package is closed: no more than SECURITY.md says.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "tests/opc/PackageFile.h"
#include "tests/support/HeapMeter.h"
#include "tests/support/OldFiles.h"
#include "tests/worst/FullWalk.h"
#include "tests/worst/ShapeParts.h"
#include "vexpa/platform/Runtime.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

constexpr std::size_t kKilobyte = 1 << 10;
constexpr std::size_t kMegabyte = 1 << 20;
constexpr std::size_t kPool = 32 * kMegabyte;
constexpr std::size_t kDirectories = 32 * kMegabyte;
constexpr std::size_t kThread = kMegabyte;  // a parser and two buffers

void OpenWalkAndClose(const ScratchFile& file) {
    const OldFiles old;
    const Handle<opc::Package> package = opc::Package::Open(file.Path16().c_str());
    ASSERT_TRUE(package);
    WalkAll(*package, WalkStorages::kYes);
}

// First, as it counts what comes to be kept.
TEST(KeptByTheProcess, OfAVeryLargeDirectoryIsNothingWhenOthersAreInUse) {
    ZipFile zip = PackageOf("");
    for (std::size_t i = 0; i < 800; ++i) {
        zip.Add(std::string(60'000, 'n') + std::to_string(i), "").stored = true;
    }
    const HeapMeter meter;
    {
        const ScratchFile file(zip.Bytes());
        OpenWalkAndClose(file);
        EXPECT_GE(meter.Live(), kDirectories) << "it is not that large";
    }
    const ScratchFile other(PackageOf("").Bytes());
    for (int i = 0; i < 256; ++i) OpenWalkAndClose(other);
    EXPECT_LE(meter.Live(), kPool + kThread);
}

// A package of this many bytes that do not deflate, in parts.
ScratchFile PackageOfBytes(std::size_t parts, std::size_t size) {
    const auto name = [](std::size_t i) { return std::to_string(i); };
    ZipFile zip = PackageOf(Each(parts, [&](std::size_t i) { return Related(name(i), name(i)); }));
    for (std::size_t i = 0; i < parts; ++i) zip.Add(name(i), std::string(size, 'x')).stored = true;
    return ScratchFile(zip.Bytes());
}

TEST(KeptByTheProcess, IsBoundedHoweverManyPackagesWereOpen) {
    const HeapMeter meter;
    for (int i = 0; i < 80; ++i) OpenWalkAndClose(PackageOfBytes(6, 100 * kKilobyte));
    EXPECT_GE(meter.Live(), kDirectories / 2) << "nothing is kept";
    EXPECT_LE(meter.Live(), kPool + kDirectories + kThread);
}

TEST(KeptByTheProcess, IsBoundedHoweverLargeThePackages) {
    const HeapMeter meter;
    for (int i = 0; i < 3; ++i) OpenWalkAndClose(PackageOfBytes(5, 7 * kMegabyte));
    EXPECT_LE(meter.Live(), kPool + kDirectories + kThread);
}

TEST(KeptByTheThread, OfTheNamesOfALargeArchiveIsNothingAfterTheNextCall) {
    ZipFile zip;
    for (std::size_t i = 0; i < 50; ++i) {
        zip.Add(std::string(60'000, 'n') + std::to_string(i), "").stored = true;
    }
    const ScratchFile file(zip.Bytes());
    const std::u16string path = file.Path16();
    const char16_t* names[50];

    const HeapMeter meter;
    ASSERT_EQ(_XGetZipFileList(path.c_str(), names, 50), S_OK);
    const std::size_t before = meter.Live();
    std::int32_t count = 0;
    _XGetZipFileCount(u"/none", &count);
    EXPECT_LE(meter.Live() + 2UL * 50 * 60'000, before);
}

std::string Document(std::size_t size, std::string (*piece)(std::size_t), const char* ending) {
    std::string xml = "<a";
    for (std::size_t i = 0; xml.size() < size; ++i) xml += piece(i);
    return xml + ending;
}

std::string Nested(std::size_t size) {
    return Repeated("<b>", size / 7) + Repeated("</b>", size / 7);
}

void Parse(const std::string& xml) {
    HGBL block = _XGblAlloc(0, xml.size());
    std::memcpy(_XGblLock(block), xml.data(), xml.size());
    _XGblUnlock(block);
    ComPtr<IStream> stream;
    ASSERT_EQ(_XCreateStreamOnHGBL(block, 1, stream.Out()), S_OK);
    IDomDocument* document = nullptr;
    if (_XDOMParse(&document, stream.Get(), 0, 0, 0, 0) == S_OK) document->Release();
}

// What makes a parser grow the most, at sizes that may leave one and at sizes that may not.
TEST(KeptByTheThread, OfAParserIsHalfAMegabyteAtMostBesidesTheBlockOfADocument) {
    const HeapMeter meter;
    std::size_t most = 0;
    for (std::size_t size = 2'000; size < 60'000; size = size * 5 / 4) {
        Parse("<a>" + Nested(size) + "</a>");
        Parse(Document(
            size, [](std::size_t i) { return " a" + std::to_string(i) + "=''"; }, "/>"));
        Parse(Document(
            size, [](std::size_t i) { return (i == 0 ? "><b" : "<b") + std::to_string(i) + "/>"; },
            "</a>"));
        most = std::max(most, meter.Live());
    }
    constexpr std::size_t kBlockOfADocument = 16 * kKilobyte;
    EXPECT_GE(most, 16 * kKilobyte + kBlockOfADocument) << "none is kept";
    EXPECT_LE(most, 512 * kKilobyte + kBlockOfADocument);
}

}  // namespace

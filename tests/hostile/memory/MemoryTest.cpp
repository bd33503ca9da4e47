// What reading hostile packages takes from the heap.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/hostile/memory/Bombs.h"
#include "tests/opc/PackageFile.h"
#include "tests/support/HeapMeter.h"
#include "tests/support/ScratchFile.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

constexpr std::size_t kMegabyte = 1 << 20;
constexpr std::size_t kForEachEntry = 1024;
constexpr std::size_t kForEachArchive = 16 * kMegabyte;

struct Reading {
    std::size_t found = 0;     // parts that are there
    std::size_t readable = 0;  // of them
    std::size_t peak = 0;
    std::size_t largestAllocation = 0;
};

std::size_t SizeOf(IStream& stream) {
    char buffer[4096];
    std::size_t size = 0;
    std::uint32_t read = 0;
    do {
        if (stream.Read(buffer, sizeof buffer, &read) != S_OK) return 0;
        size += read;
    } while (read != 0);
    return size;
}

// Reads each part that the package is related to, and keeps none of it.
Reading Read(const std::string& bytes) {
    const ScratchFile file(bytes);
    const std::u16string path = file.Path16();
    Reading reading;
    const HeapMeter meter;
    {
        const Handle<opc::Package> package = opc::Package::Open(path.c_str());
        if (!package) return reading;
        for (const auto& [id, relationship] : package->GetRelationships()) {
            opc::Part* part = package->GetPart(relationship->GetTarget());
            if (part == nullptr) continue;
            ++reading.found;
            ComPtr<IStream> stream;
            if (part->GetStream(stream.Out()) == S_OK && SizeOf(*stream.Get()) != 0) ++reading.readable;
        }
    }
    reading.peak = meter.Peak();
    reading.largestAllocation = meter.Largest();
    return reading;
}

void ExpectWithinBounds(const Bomb& bomb, const Reading& reading) {
    EXPECT_LE(reading.peak, 2 * bomb.partSize + kForEachArchive + bomb.parts * kForEachEntry);
    EXPECT_LE(reading.largestAllocation, 1032 * bomb.compressed + 65536);
}

TEST(MemoryOf, ALargePartIsTwiceThePart) {
    const Bomb bomb = LargePart(24 * kMegabyte);
    const Reading reading = Read(bomb.bytes);
    EXPECT_EQ(reading.readable, 1U);
    EXPECT_GE(reading.peak, bomb.partSize) << "the meter is not at work";
    ExpectWithinBounds(bomb, reading);
}

// 250 entries over one block of 20 kB: five gigabytes if each of them were read.
TEST(MemoryOf, AnOverlapBombIsThatOfOnePart) {
    const Bomb bomb = OverlapBomb(250, 20 * kMegabyte);
    ASSERT_LE(bomb.bytes.size(), 42'000U);
    const Reading reading = Read(bomb.bytes);
    EXPECT_EQ(reading.found, bomb.parts);
    EXPECT_EQ(reading.readable, 1U);
    ExpectWithinBounds(bomb, reading);
}

// Four fifths of a gigabyte if each of them were read.
TEST(MemoryOf, AQuotedOverlapBombIsThatOfOnePart) {
    const Bomb bomb = QuotedOverlapBomb(200, 4 * kMegabyte);
    ASSERT_LE(bomb.bytes.size(), 42'000U);
    const Reading reading = Read(bomb.bytes);
    EXPECT_EQ(reading.found, bomb.parts);
    EXPECT_EQ(reading.readable, 1U);
    ExpectWithinBounds(bomb, reading);
}

TEST(MemoryOf, AnOverlapBombOfExtraFieldsIsThatOfOnePart) {
    const Bomb bomb = ExtraFieldBomb(200, 4 * kMegabyte);
    ASSERT_LE(bomb.bytes.size(), 42'000U);
    const Reading reading = Read(bomb.bytes);
    EXPECT_EQ(reading.found, bomb.parts);
    EXPECT_EQ(reading.readable, 1U);
    ExpectWithinBounds(bomb, reading);
}

// In a file as long as all their data together entries that overlap are read: they do no harm, and
// the bombs are seen to be what they should be.
TEST(ABombInALongFile, IsReadWhole) {
    const std::string before(kMegabyte, '#');
    for (const Bomb& bomb : {OverlapBomb(20, kMegabyte), QuotedOverlapBomb(20, kMegabyte),
                             ExtraFieldBomb(20, kMegabyte)}) {
        EXPECT_EQ(Read(before + bomb.bytes).readable, 20U);
    }
}

TEST(MemoryOf, ASizeThatCannotBeIsNotTaken) {
    for (const bool stored : {false, true}) {
        PackageFile package;
        package.Relationship("rId1", "urn:part", "part");
        ZipEntry& part = package.Entry("part", "small");
        part.zip64 = true;
        part.stored = stored;
        part.size = std::uint64_t{1} << 40;
        if (stored) part.compressedSize = part.size;
        const Reading reading = Read(ReadFile(package.Write().Path()));
        EXPECT_EQ(reading.found, 1U);
        EXPECT_EQ(reading.readable, 0U);
        EXPECT_LE(reading.largestAllocation, kMegabyte);
    }
}

std::size_t PeakOfEntries(int count) {
    PackageFile package;
    package.Relationship("rId1", "urn:part", "part");
    package.Entry("part", "small");
    for (int i = 0; i < count; ++i)
        package.Entry("e" + std::to_string(1'000'000 + i), "").stored = true;
    const Reading reading = Read(ReadFile(package.Write().Path()));
    EXPECT_EQ(reading.readable, 1U);
    return reading.peak;
}

TEST(MemoryOf, AnEntryIsLessThanAKilobyte) {
    const std::size_t few = PeakOfEntries(10'000), many = PeakOfEntries(60'000);
    EXPECT_LE(many - few, 50'000 * kForEachEntry);
}

}  // namespace

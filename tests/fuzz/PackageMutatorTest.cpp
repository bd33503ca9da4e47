#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "fuzz/ReadZip.h"

extern "C" {
std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                    unsigned int seed);
std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* data1, std::size_t size1,
                                      const std::uint8_t* data2, std::size_t size2, std::uint8_t* out,
                                      std::size_t maxSize, unsigned int seed);

// In place of the fuzzer's: a change that is easy to find again.
std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize) {
    if (size == maxSize) return size;
    data[size] = '#';
    return size + 1;
}
}

namespace {

using vexpa_test::ZipFile;

std::string TwoParts() {
    ZipFile zip;
    zip.Add("a.xml", "<a/>");
    zip.Add("b.xml", "<b/>").stored = true;
    return zip.Bytes();
}

std::string Mutated(const std::string& bytes, unsigned int seed, std::size_t room = 4096) {
    std::string data = bytes;
    data.resize(bytes.size() + room);
    auto* units = reinterpret_cast<std::uint8_t*>(data.data());
    data.resize(LLVMFuzzerCustomMutator(units, bytes.size(), data.size(), seed));
    return data;
}

TEST(ReadZip, GivesNamesAndContent) {
    const auto zip = vexpa_fuzz::ReadZip(TwoParts());
    ASSERT_TRUE(zip);
    ASSERT_EQ(zip->entries.size(), 2U);
    EXPECT_EQ(zip->entries[0].name, "a.xml");
    EXPECT_EQ(zip->entries[0].content, "<a/>");
    EXPECT_EQ(zip->entries[1].content, "<b/>");
    EXPECT_TRUE(zip->entries[1].stored);
}

TEST(ReadZip, GivesNothingForADamagedArchive) {
    const std::string bytes = TwoParts();
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_FALSE(vexpa_fuzz::ReadZip(bytes.substr(0, size))) << "cut at " << size;
    }
}

TEST(PackageMutator, ChangesAPartAndKeepsTheArchiveSound) {
    int changedParts = 0;
    for (unsigned int seed = 1; seed <= 200; ++seed) {
        const auto zip = vexpa_fuzz::ReadZip(Mutated(TwoParts(), seed));
        if (!zip) continue;  // the archive itself was changed
        for (const auto& entry : zip->entries) changedParts += entry.content.ends_with("#");
    }
    EXPECT_GT(changedParts, 100);
}

TEST(PackageMutator, LeavesAnInputWithoutRoomForTheChange) {
    const std::string bytes = TwoParts();
    for (unsigned int seed = 1; seed <= 200; ++seed) {
        EXPECT_LE(Mutated(bytes, seed, 0).size(), bytes.size());
    }
}

TEST(PackageMutator, PutsAPartOfOnePackageIntoAnother) {
    ZipFile other;
    other.Add("a.xml", "<other/>");
    const std::string first = TwoParts();
    const std::string second = other.Bytes();
    std::string out(4096, '\0');
    const auto* units = reinterpret_cast<const std::uint8_t*>(first.data());
    out.resize(LLVMFuzzerCustomCrossOver(
        units, first.size(), reinterpret_cast<const std::uint8_t*>(second.data()), second.size(),
        reinterpret_cast<std::uint8_t*>(out.data()), out.size(), 1));
    const auto zip = vexpa_fuzz::ReadZip(out);
    ASSERT_TRUE(zip);
    ASSERT_EQ(zip->entries.size(), 2U);
    EXPECT_EQ(zip->entries[0].content, "<other/>");
    EXPECT_EQ(zip->entries[1].content, "<b/>");
}

}  // namespace

// Every damage of a kind, done to small packages: what is still read of them is never wrong.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/MemoryFile.h"
#include "tests/damage/SoundPackages.h"
#include "tests/damage/ZipAnatomy.h"
#include "tests/opc/PackageContent.h"
#include "tests/support/SystemCalls.h"

namespace {

using namespace vexpa_test;

struct SoundPackage {
    const char* name;
    ZipFile (*make)();
};

constexpr SoundPackage kPackages[] = {
    {"Document", SoundDocument},
    {"PackageWithObject", SoundPackageWithObject},
    {"Zip64Document", SoundZip64Document},
};

// Far enough ahead that every file has settled, and its directory is kept.
std::timespec InAnHour() {
    std::timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    now.tv_sec += 3600;
    return now;
}

struct Reading {
    std::optional<PackageContent> content;
    std::size_t calls;
    std::uint64_t bytes;
};

Reading Read(const std::string& bytes) {
    const vexpa_fuzz::MemoryFile file(bytes);
    SystemCalls system;
    system.SetClock(InAnHour());
    std::optional<PackageContent> content = ReadPackage(file.Path16());
    return {std::move(content), system.Count(), system.BytesRead()};
}

class DamageSweep : public testing::TestWithParam<SoundPackage> {
protected:
    void SetUp() override { ASSERT_TRUE(sound_.content); }

    // Reads the damaged package. What comes of it must be what the sound one has, or less.
    void Try(const std::string& damaged, const char* what, std::size_t at, std::uint64_t value = 0) {
        const Reading reading = Read(damaged);
        ++tried_;
        if (reading.content) ++opened_;
        const std::string wrong =
            reading.content ? WrongContent(*reading.content, {&*sound_.content}) : std::string();
        if (!wrong.empty()) ADD_FAILURE() << what << " at " << at << " to " << value << ":\n" << wrong;
        mostCalls_ = std::max(mostCalls_, reading.calls);
        mostBytes_ = std::max(mostBytes_, reading.bytes);
    }

    void TryWithByte(std::size_t at, unsigned change, const char* what) {
        std::string damaged = bytes_;
        damaged[at] = static_cast<char>(static_cast<unsigned char>(damaged[at]) ^ change);
        Try(damaged, what, at, change);
    }

    void TearDown() override {
        RecordProperty("tried", std::to_string(tried_));
        RecordProperty("opened", std::to_string(opened_));
        RecordProperty("calls", std::to_string(mostCalls_) + " of " + std::to_string(sound_.calls));
        RecordProperty("bytes", std::to_string(mostBytes_) + " of " + std::to_string(sound_.bytes));
        EXPECT_GT(tried_, opened_) << "no damage did any harm";
        EXPECT_LE(mostCalls_, 2 * sound_.calls);
        EXPECT_LE(mostBytes_, 2 * sound_.bytes);
    }

    const ZipFile zip_ = GetParam().make();
    const std::string bytes_ = zip_.Bytes();
    const ZipAnatomy anatomy_ = Dissect(bytes_, zip_.prefix.size());
    const Reading sound_ = Read(bytes_);
    std::size_t tried_ = 0;
    std::size_t opened_ = 0;
    std::size_t mostCalls_ = 0;
    std::uint64_t mostBytes_ = 0;
};

TEST_P(DamageSweep, HasNoTwoNamesThatOneDamageMakesEqual) {
    Try("", "nothing is left", 0);
    for (const ZipEntry& a : zip_.entries) {
        for (const ZipEntry& b : zip_.entries) {
            if (&a == &b) continue;
            EXPECT_FALSE(b.name.starts_with(a.name)) << a.name;
            if (a.name.size() != b.name.size()) continue;
            int differences = 0;
            for (std::size_t i = 0; i < a.name.size(); ++i) differences += a.name[i] != b.name[i];
            EXPECT_GT(differences, 1) << a.name << ' ' << b.name;
        }
    }
}

TEST_P(DamageSweep, OfAPackageCutAnywhere) {
    for (std::size_t size = 0; size < bytes_.size(); ++size) Try(bytes_.substr(0, size), "cut", size);
}

TEST_P(DamageSweep, OfAPackageWithoutItsFirstBytes) {
    for (std::size_t size = 1; size < bytes_.size(); ++size) Try(bytes_.substr(size), "begun", size);
}

TEST_P(DamageSweep, OfAPackageThatLostAByte) {
    for (std::size_t at = 0; at < bytes_.size(); ++at) {
        std::string damaged = bytes_;
        Try(damaged.erase(at, 1), "byte lost", at);
    }
}

TEST_P(DamageSweep, OfEveryBitOfTheHeaders) {
    for (std::size_t at = 0; at < bytes_.size(); ++at) {
        if (!anatomy_.isHeader[at]) continue;
        for (unsigned bit = 0; bit < 8; ++bit) TryWithByte(at, 1U << bit, "bits changed");
    }
}

TEST_P(DamageSweep, OfEveryByteOfTheData) {
    for (std::size_t at = 0; at < bytes_.size(); ++at) {
        if (anatomy_.isHeader[at]) continue;
        for (const unsigned change : {0x01U, 0x80U, 0xFFU}) TryWithByte(at, change, "bits changed");
    }
}

TEST_P(DamageSweep, OfEveryFieldWithOddValues) {
    for (const NumberField& field : anatomy_.fields) {
        const std::uint64_t most = ~std::uint64_t{0} >> (64 - 8 * field.width);
        for (const std::uint64_t value :
             {std::uint64_t{0}, std::uint64_t{1}, most / 2, most / 2 + 1, most - 1, most}) {
            std::string damaged = bytes_;
            for (std::size_t i = 0; i < field.width; ++i)
                damaged[field.at + i] = static_cast<char>(value >> (8 * i) & 0xFF);
            Try(damaged, "field set", field.at, value);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Of, DamageSweep, testing::ValuesIn(kPackages),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

}  // namespace

// Every damage of a kind, done to a compound file: a package whose check sums agree with the
// damage hands it on to the reader of compound files.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>

#include "tests/damage/SoundPackages.h"
#include "tests/opc/PackageContent.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/platform/Runtime.h"

namespace {

using namespace vexpa_test;

constexpr std::size_t kSector = 512;
constexpr std::size_t kDirectoryEntry = 128;

// What the storage over these bytes shows; nothing when there is none.
std::optional<std::string> Describe(const std::string& bytes) {
    HGBL block = _XGblAlloc(0, bytes.size());
    std::memcpy(_XGblLock(block), bytes.data(), bytes.size());
    _XGblUnlock(block);
    tarn::ComPtr<IStorage> storage;
    if (_XStgOpenStorageOnHGBL2(&block, 1, storage.Out()) != S_OK) return std::nullopt;
    return DescribeStorage(*storage.Get());
}

class CompoundSweep : public testing::Test {
protected:
    // Whatever is read, there are no more elements than entries have room, and none is longer
    // than the file.
    void Try(const std::string& damaged, const char* what, std::size_t at, std::uint64_t value = 0) {
        const std::optional<std::string> storage = Describe(damaged);
        ++tried_;
        if (!storage) return;
        ++opened_;
        const std::size_t elements = damaged.size() / kDirectoryEntry;
        if (storage->size() > elements * damaged.size())
            ADD_FAILURE() << what << " at " << at << " to " << value;
    }

    void TryField(std::size_t at, std::size_t width) {
        const std::uint64_t most = ~std::uint64_t{0} >> (64 - 8 * width);
        for (const std::uint64_t value : {std::uint64_t{0}, std::uint64_t{1}, most / 2, most / 2 + 1,
                                          most - 3, most - 2, most - 1, most}) {
            std::string damaged = object_;
            for (std::size_t i = 0; i < width; ++i)
                damaged[at + i] = static_cast<char>(value >> (8 * i) & 0xFF);
            Try(damaged, "field set", at, value);
        }
    }

    // Sectors of nothing but the content of the long stream are not worth their time.
    bool HoldsStructure(std::size_t sector) const {
        return object_.compare(sector, 64, std::string(64, 'l')) != 0;
    }

    void TearDown() override {
        RecordProperty("tried", std::to_string(tried_));
        RecordProperty("opened", std::to_string(opened_));
        EXPECT_GT(opened_, 0U);
        EXPECT_GT(tried_, opened_);
    }

    const std::string object_ = SoundObject();
    std::size_t tried_ = 0;
    std::size_t opened_ = 0;
};

TEST_F(CompoundSweep, OfAFileCutAnywhere) {
    for (std::size_t size = 1; size < object_.size(); ++size) Try(object_.substr(0, size), "cut", size);
    Try(object_, "nothing", 0);
}

TEST_F(CompoundSweep, OfEveryBitOfTheStructure) {
    for (std::size_t at = 0; at < object_.size(); ++at) {
        if (!HoldsStructure(at / kSector * kSector)) continue;
        for (unsigned bit = 0; bit < 8; ++bit) {
            std::string damaged = object_;
            damaged[at] = static_cast<char>(static_cast<unsigned char>(damaged[at]) ^ 1U << bit);
            Try(damaged, "bit changed", at, bit);
        }
    }
}

TEST_F(CompoundSweep, OfEveryFieldWithOddValues) {
    for (std::size_t sector = 0; sector < object_.size(); sector += kSector) {
        if (!HoldsStructure(sector)) continue;
        for (std::size_t at = sector; at < sector + kSector; at += 4) {
            TryField(at, 4);
            TryField(at, 2);
            if (at % 8 == 0) TryField(at, 8);
        }
    }
}

}  // namespace

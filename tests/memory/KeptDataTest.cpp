// What a package keeps of the parts that were asked for, and what it takes to get them.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/opc/PackageFile.h"
#include "tests/support/HeapMeter.h"
#include "tests/worst/ShapeParts.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

constexpr std::size_t kMegabyte = 1 << 20;
constexpr std::size_t kLittle = 512 * 1024;      // the buffers of a thread, and the part's record
constexpr std::size_t kAligned = 2 * kMegabyte;  // room to align malloc's copy in, for a moment
constexpr std::size_t kPool = 32 * kMegabyte;    // what the process keeps of freed runs

// Five parts of two megabytes and more.
constexpr std::size_t kParts = 5;
std::size_t SizeOf(std::size_t part) {
    return (part + 2) * kMegabyte;
}

class KeptData : public testing::Test {
protected:
    void SetUp() override {
        ZipFile zip = PackageOf("");
        for (std::size_t i = 0; i < kParts; ++i)
            zip.Add(std::to_string(i), std::string(SizeOf(i), 'x'));
        file_ = std::make_unique<ScratchFile>(zip.Bytes());
        path_ = file_->Path16();
    }

    static opc::Part* Part(opc::Package& package, std::size_t i) {
        return package.GetPart(opc::PartUri(Utf16(std::to_string(i)).c_str()));
    }

    std::unique_ptr<ScratchFile> file_;
    std::u16string path_;
};

TEST_F(KeptData, DoesNotGrowWithTheQuestionsAboutAPart) {
    Handle<opc::Package> package = opc::Package::Open(path_.c_str());
    opc::Part* part = Part(*package, 0);
    ASSERT_NE(part, nullptr);
    const HeapMeter all;
    for (int times = 0; times < 10'000; ++times) {
        part->GetEntryValue();
        EXPECT_EQ(Part(*package, 0), part);
    }
    EXPECT_LE(all.Live(), kLittle);
}

TEST_F(KeptData, IsThatOfEachStreamOnceAndTakesItTwiceForAMoment) {
    const HeapMeter all;
    Handle<opc::Package> package = opc::Package::Open(path_.c_str());
    std::size_t kept = 0;
    for (std::size_t i = 0; i < kParts; ++i) {
        const std::size_t before = all.Live();
        for (int times = 0; times < 3; ++times) {
            ComPtr<IStream> stream;
            ASSERT_EQ(Part(*package, i)->GetStream(stream.Out()), S_OK);
        }
        kept += SizeOf(i);
        EXPECT_GE(all.Peak(), before + 2 * SizeOf(i)) << "the meter is not at work";
        EXPECT_LE(all.Peak(), before + 2 * SizeOf(i) + kLittle + kAligned);
        EXPECT_LE(all.Live(), kept + kLittle);
    }
    package.Reset();
    EXPECT_LE(all.Live(), kLittle + kPool);
}

TEST_F(KeptData, OfWhatIsNoCompoundFileIsNothing) {
    const Handle<opc::Package> package = opc::Package::Open(path_.c_str());
    const HeapMeter meter;
    for (std::size_t i = 0; i < kParts; ++i) {
        ComPtr<IStorage> storage;
        EXPECT_EQ(Part(*package, i)->GetStorage(storage.Out()), E_FAIL);
    }
    EXPECT_LE(meter.Peak(), 2 * SizeOf(kParts - 1) + kLittle + kPool);
    EXPECT_LE(meter.Live(), kLittle + kPool);
}

// Two megabytes for each part would be four hundred.
TEST(MemoryOfParts, HasTheirContentTypeOnce) {
    constexpr std::size_t kCount = 200;
    const auto name = [](std::size_t i) { return std::to_string(i) + ".x"; };
    ZipFile zip =
        PackageOf(Each(kCount, [&](std::size_t i) { return Related(name(i), name(i)); }),
                  "<Default Extension='x' ContentType='" + std::string(kMegabyte, 't') + "'/>");
    for (std::size_t i = 0; i < kCount; ++i) zip.Add(name(i), "").stored = true;
    const ScratchFile file(zip.Bytes());
    const std::u16string path = file.Path16();

    const HeapMeter meter;
    const Handle<opc::Package> package = opc::Package::Open(path.c_str());
    ASSERT_TRUE(package);
    EXPECT_TRUE(Text(package->FindPart(u"199.x")->GetContentType()) == std::u16string(kMegabyte, u't'));
    EXPECT_GE(meter.Live(), 2 * kMegabyte) << "the meter is not at work";
    EXPECT_LE(meter.Live(), 2 * kMegabyte + kLittle + kPool + kCount * 2'048);
}

}  // namespace

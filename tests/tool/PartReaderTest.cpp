#include <gtest/gtest.h>

#include "tests/opc/PackageFile.h"
#include "tests/support/Sanitizers.h"
#include "tests/tool/RunTool.h"
#include "tool/model/PartReader.h"

namespace {

using namespace vexpa_test;
namespace opc = tarn::opc;

constexpr std::size_t kLarge = 48 << 20;

// Sanitizers need terabytes of address space for themselves.
#if VEXPA_SANITIZER_ALLOCATES
constexpr std::uint64_t kMostMemory = 0;
#else
constexpr std::uint64_t kMostMemory = 420 << 20;
#endif

TEST(PartReader, ReadsFromTheStartWhereverTheStreamStands) {
    PackageFile file = MinimalPackage();
    const tarn::Handle<opc::Package> package = file.Open();
    opc::Part* part = package->FindPart(u"word/document.xml");
    tarn::ComPtr<IStream> stream;
    ASSERT_EQ(part->GetStream(stream.Out()), S_OK);
    ReadToEnd(*stream.Get());

    std::string bytes;
    vexpa_tool::PartReader reader(file.Write().Path());
    EXPECT_TRUE(
        reader.Read(*part, [&](const char* piece, std::size_t size) { bytes.append(piece, size); }));
    EXPECT_EQ(bytes, "<document/>");
}

PackageFile LargePackage(int parts) {
    PackageFile file;
    const std::string content(kLarge, '\0');
    for (int i = 0; i < parts; ++i) {
        const std::string name = "p" + std::to_string(i);
        file.Relationship(name, kStyles, name);
        file.Entry(name, content);
    }
    return file;
}

TEST(PartReader, PartsBeyondAnyMemoryAreReadAllTheSame) {
    PackageFile file = LargePackage(10);
    const ToolRun run = RunTool({"parts", file.Write().Path()}, {.mostMemory = kMostMemory});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    const std::vector<std::string> lines = Lines(run.out);
    ASSERT_EQ(lines.size(), 11u);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        EXPECT_NE(lines[i].find(std::to_string(kLarge)), std::string::npos) << lines[i];
    }
}

}  // namespace

#include <gtest/gtest.h>

#include <csignal>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;

std::string EveryByte() {
    std::string bytes;
    for (int i = 0; i < 300'000; ++i) bytes.push_back(static_cast<char>(i * 7 + i / 256));
    return bytes;
}

class CatCommand : public testing::Test {
protected:
    CatCommand() {
        file_.Entry("word/media/a b.bin", EveryByte());
        file_.Entry("empty.bin", "");
        file_.Entry("broken.bin", "content").crc = 0;
        file_.Entry("locked.bin", "content").flags = 1;
        path_ = file_.Write().Path();
    }

    ToolRun Cat(const std::string& part) { return RunTool({"cat", path_, part}); }

    PackageFile file_ = MinimalPackage();
    std::string path_;
};

TEST_F(CatCommand, WritesTheBytesAsTheyAre) {
    const ToolRun run = Cat("word/media/a b.bin");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, EveryByte());
}

TEST_F(CatCommand, TakesThePartWithItsLeadingSlash) {
    EXPECT_EQ(Cat("/word/document.xml").out, "<document/>");
    EXPECT_EQ(Cat("word/document.xml").out, "<document/>");
}

TEST_F(CatCommand, ReachesEntriesThatNoRelationshipNames) {
    EXPECT_EQ(Cat("_rels/.rels").status, 0);
    EXPECT_EQ(Cat("[Content_Types].xml").out.substr(0, 6), "<Types");
}

TEST_F(CatCommand, AnEmptyPartHasNoBytes) {
    const ToolRun run = Cat("empty.bin");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "");
}

TEST_F(CatCommand, APartThatIsNotThereEndsWithStatus4) {
    const ToolRun run = Cat("word/Document.xml");
    EXPECT_EQ(run.status, 4);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "vexpa: " + path_ + ": word/Document.xml: no such part\n");
}

TEST_F(CatCommand, ADamagedOrEncryptedPartEndsWithStatus5) {
    for (const std::string part : {"broken.bin", "locked.bin"}) {
        const ToolRun run = Cat(part);
        EXPECT_EQ(run.status, 5);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err,
                  "vexpa: " + path_ + ": " + part + ": cannot be extracted: damaged or encrypted\n");
    }
}

TEST_F(CatCommand, AFullDiskEndsWithStatus5) {
    for (const std::string part : {"word/document.xml", "word/media/a b.bin"}) {
        const ToolRun run = RunTool({"cat", path_, part}, {.outputFile = "/dev/full"});
        EXPECT_EQ(run.status, 5);
        EXPECT_EQ(run.err, "vexpa: standard output: No space left on device\n");
    }
}

TEST_F(CatCommand, AClosedPipeEndsItWithoutAWord) {
    for (const bool ignored : {false, true}) {
        const ToolRun run = RunTool({"cat", path_, "word/media/a b.bin"},
                                    {.hasClosedPipe = true, .ignoresBrokenPipe = ignored});
        EXPECT_EQ(run.status, -SIGPIPE);
        EXPECT_EQ(run.err, "");
    }
}

}  // namespace

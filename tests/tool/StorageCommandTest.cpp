#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using nlohmann::json;
using testing::ElementsAre;

const std::string kLedger = VEXPA_SOURCE_DIR "/samples/ledger.xlsx";

TEST(StorageCommand, ShowsStoragesAndStreams) {
    const ToolRun run = RunTool({"storage", kLedger, "oleObject1.bin"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(Lines(run.out), ElementsAre("storage  xl/embeddings/oleObject1.bin", "  storage  notes",
                                            "    stream  buoy.txt                   20",
                                            "  stream  tides.csv                    44"));
}

TEST(StorageCommand, WritesAStreamByItsPathOrTheEndOfIt) {
    const std::string csv = RunTool({"storage", kLedger, "oleObject1.bin", "tides.csv"}).out;
    EXPECT_EQ(csv.size(), 44u);
    const std::string buoy = RunTool({"storage", kLedger, "oleObject1.bin", "notes/buoy.txt"}).out;
    EXPECT_EQ(buoy.size(), 20u);
    EXPECT_EQ(RunTool({"storage", kLedger, "oleObject1.bin", "buoy.txt"}).out, buoy);
    EXPECT_EQ(RunTool({"storage", kLedger, "oleObject1.bin", "buoy\\x2etxt"}).out, buoy);
}

TEST(StorageCommand, AStreamThatIsNotThereEndsWithStatus4) {
    for (const std::string stream : {"nothing", "notes", "otes/buoy.txt", "/tides.csv", ""}) {
        SCOPED_TRACE(stream);
        const ToolRun run = RunTool({"storage", kLedger, "oleObject1.bin", stream});
        EXPECT_EQ(run.status, 4);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "vexpa: " + kLedger + ": oleObject1.bin: " +
                               (stream.empty() ? "\"\"" : stream) + ": no such stream\n");
    }
}

TEST(StorageCommand, APartThatIsNoCompoundFileEndsWithStatus5) {
    PackageFile file = MinimalPackage();
    file.Entry("broken.bin", "x").crc = 0;
    const std::string path = file.Write().Path();
    const ToolRun run = RunTool({"storage", path, "main"});
    EXPECT_EQ(run.status, 5);
    EXPECT_EQ(run.err, "vexpa: " + path + ": main: is not a valid compound file\n");
    EXPECT_EQ(RunTool({"storage", path, "broken.bin"}).err,
              "vexpa: " + path + ": broken.bin: cannot be extracted: damaged or encrypted\n");
    EXPECT_EQ(RunTool({"storage", path, "nothing.bin"}).status, 4);
}

TEST(StorageCommand, AsJsonIsAFlatList) {
    const json elements =
        json::parse(RunTool({"storage", "--json", kLedger, "oleObject1.bin"}).out)["elements"];
    ASSERT_EQ(elements.size(), 4u);
    EXPECT_EQ(elements[0]["level"], 0);
    EXPECT_EQ(elements[2], (json{{"level", 2},
                                 {"kind", "stream"},
                                 {"name", "buoy.txt"},
                                 {"size", 20},
                                 {"clsid", nullptr},
                                 {"readable", true}}));
    EXPECT_EQ(RunTool({"storage", "--json", kLedger, "oleObject1.bin", "tides.csv"}).status, 2);
}

}  // namespace

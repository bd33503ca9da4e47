#include <gtest/gtest.h>

#include "tests/tool/container/Archive.h"
#include "tool/container/DirectoryFault.h"

namespace {

using namespace vexpa_test;
using namespace vexpa_tool;
using Kind = DirectoryFault::Kind;

DirectoryFault FaultOf(const std::string& bytes) {
    const Archive archive(bytes);
    EXPECT_NE(archive.container.Source(), ContainerSource::Directory);
    return FindDirectoryFault(archive.container);
}

TEST(DirectoryFault, NamesTheEntryThatTheFileIsCutIn) {
    const std::string bytes = Letters().Bytes();
    const DirectoryFault fault = FaultOf(bytes.substr(0, bytes.find("PK\1\2") - 3));
    EXPECT_EQ(fault.kind, Kind::CutInsideEntry);
    EXPECT_EQ(fault.entry, "c");
    EXPECT_EQ(fault.count, 3u);
}

TEST(DirectoryFault, TellsOfAFileCutInsideALocalHeader) {
    const std::string bytes = Letters().Bytes();
    const DirectoryFault fault = FaultOf(bytes.substr(0, bytes.rfind("PK\3\4") + 10));
    EXPECT_EQ(fault.kind, Kind::CutInsideEntry);
    EXPECT_EQ(fault.entry, "b");
}

TEST(DirectoryFault, TellsOfAFileCutWhereAnEntryEnds) {
    const std::string bytes = Letters().Bytes();
    const DirectoryFault fault = FaultOf(bytes.substr(0, bytes.find("PK\1\2")));
    EXPECT_EQ(fault.kind, Kind::CutBeforeDirectory);
    EXPECT_EQ(fault.position, bytes.find("PK\1\2"));
}

TEST(DirectoryFault, TellsOfAFileCutInsideTheDirectory) {
    const std::string bytes = Letters().Bytes();
    const DirectoryFault fault = FaultOf(bytes.substr(0, bytes.rfind("PK\1\2") + 4));
    EXPECT_EQ(fault.kind, Kind::CutInsideDirectory);
    EXPECT_EQ(fault.position, bytes.find("PK\1\2"));
}

TEST(DirectoryFault, TellsOfOtherBytesWhereADirectoryBelongs) {
    const std::string bytes = Letters().Bytes();
    const DirectoryFault fault = FaultOf(bytes.substr(0, bytes.find("PK\1\2")) + "<html></html>");
    EXPECT_EQ(fault.kind, Kind::NoEndRecord);
    EXPECT_EQ(fault.entry, "c");
}

TEST(DirectoryFault, TellsOfAnEndRecordThatLeadsNowhere) {
    ZipFile zip = Letters();
    zip.directoryOffset = 5;
    zip.directorySize = 7;
    const DirectoryFault fault = FaultOf(zip.Bytes());
    EXPECT_EQ(fault.kind, Kind::NoDirectory);
    EXPECT_EQ(fault.claimedOffset, 5u);
    EXPECT_EQ(fault.claimedSize, 7u);
    EXPECT_EQ(fault.claimedCount, 3u);
}

TEST(DirectoryFault, NamesTheHeaderThatRunsOutOfTheDirectory) {
    std::string bytes = Letters().Bytes();
    const std::size_t last = bytes.rfind("PK\1\2");
    bytes[last + 29] = '\x7F';  // the length of its name
    const DirectoryFault fault = FaultOf(bytes);
    EXPECT_EQ(fault.kind, Kind::DirectoryBreaksOff);
    EXPECT_EQ(fault.position, last);
    EXPECT_EQ(fault.count, 2u);
}

TEST(DirectoryFault, TellsOfACountThatDiffers) {
    ZipFile zip = Letters();
    zip.entryCount = 5;
    zip.directorySize = 3;
    const DirectoryFault fault = FaultOf(zip.Bytes());
    EXPECT_EQ(fault.kind, Kind::DirectoryMiscounted);
    EXPECT_EQ(fault.count, 3u);
    EXPECT_EQ(fault.claimedCount, 5u);
}

TEST(DirectoryFault, OfSomethingElseIsThatItIsNoArchive) {
    EXPECT_EQ(FaultOf("plain text").kind, Kind::NoArchive);
    EXPECT_EQ(FaultOf("").kind, Kind::NoArchive);
}

}  // namespace

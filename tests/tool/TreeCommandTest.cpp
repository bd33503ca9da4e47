#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using testing::ElementsAre;

constexpr const char* kImage =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/image";

// What follows the line with the file's name.
std::vector<std::string> Tree(PackageFile& file) {
    const std::string path = file.Write().Path();
    const ToolRun run = RunTool({"tree", path});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    std::vector<std::string> lines = Lines(run.out);
    EXPECT_EQ(lines.at(0), path);
    lines.erase(lines.begin());
    return lines;
}

TEST(TreeCommand, ShowsTheRelationshipsInTheOrderOfTheirIds) {
    PackageFile file = MinimalPackage();
    file.Default("png", "image/png");
    file.Override("/word/document.xml",
                  "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml");
    file.Entry("word/media/a.png", std::string(1536, 'x'));
    file.Entry("word/styles.xml", "<styles/>");
    file.Entry("word/_rels/document.xml.rels",
               RelationshipsXml(RelationshipXml("rId2", kStyles, "styles.xml") +
                                RelationshipXml("rId10", kImage, "media/a.png")));
    EXPECT_THAT(
        Tree(file),
        ElementsAre("`- rId1  officeDocument [9]  word/document.xml      11 B    "
                    "wordprocessingml.document.main+xml",
                    "   |- rId10  image [19]      word/media/a.png      1.5 KiB  image/png",
                    "   `- rId2   styles [11]     word/styles.xml         9 B    application/xml"));
}

TEST(TreeCommand, MarksWhatIsExternalMissingUnreadableOrOfNoKnownType) {
    PackageFile file;
    file.Relationship("a", "urn:x/other", "https://example.org/", "External");
    file.Relationship("b", kStyles, "gone.xml");
    file.Relationship("c", "", "broken.xml");
    file.Relationship("d",
                      "http://schemas.openxmlformats.org/package/2006/relationships/metadata/thumbnail",
                      "sound.bin");
    file.Entry("broken.xml", "content").crc = 0;
    file.Entry("sound.bin", "content");
    EXPECT_THAT(Tree(file), ElementsAre("|- a  other [-]       -> https://example.org/  (external)",
                                        "|- b  styles [11]     gone.xml                 (missing)",
                                        "|- c  \"\" [-]          broken.xml               unreadable",
                                        "`- d  thumbnail [33]  sound.bin                     7 B"));
}

TEST(TreeCommand, ExpandsAPartOnceAndMarksCyclesAndRepeats) {
    PackageFile file;
    file.Relationship("r1", kStyles, "a.xml");
    file.Relationship("r2", kStyles, "/b.xml");
    file.Entry("a.xml", "");
    file.Entry("b.xml", "");
    file.Entry("_rels/a.xml.rels", RelationshipsXml(RelationshipXml("s1", kStyles, "b.xml") +
                                                    RelationshipXml("s2", kStyles, "a.xml")));
    file.Entry("_rels/b.xml.rels", RelationshipsXml(RelationshipXml("t1", kStyles, "a.xml")));
    EXPECT_THAT(Tree(file), ElementsAre("|- r1  styles [11]        a.xml        0 B",
                                        "|  |- s1  styles [11]     b.xml        0 B",
                                        "|  |  `- t1  styles [11]  a.xml   (cycle)",
                                        "|  `- s2  styles [11]     a.xml   (cycle)",
                                        "`- r2  styles [11]        /b.xml  (above)"));
}

TEST(TreeCommand, EscapesWhatCouldMoveTheCursorOrTurnTheLine) {
    PackageFile file;
    file.Relationship("&#x9;&#x202E;1", "urn:t", "https://example.org/&#x202E;moc&#xA;`- r2",
                      "External");
    file.Relationship("z", kStyles, "a.xml");
    file.Entry("a.xml", "");
    EXPECT_EQ(Tree(file)[0],
              "|- \\x09\\u202e1  urn:t [-]    -> https://example.org/\\u202emoc\\x0a`- r2  (external)");
}

TEST(TreeCommand, FollowsALongChainOfPartsInLinearSpace) {
    constexpr int kParts = 5'000;
    PackageFile file;
    file.Relationship("r", "t", "p0.xml");
    for (int i = 0; i < kParts; ++i) {
        const std::string name = "p" + std::to_string(i) + ".xml";
        file.Entry(name, "").stored = true;
        file.Entry("_rels/" + name + ".rels",
                   RelationshipsXml(RelationshipXml("r", "t", "p" + std::to_string(i + 1) + ".xml")));
    }
    const std::vector<std::string> lines = Tree(file);
    ASSERT_EQ(lines.size(), kParts + 1u);
    const std::string head = "`- r  t [-]";
    EXPECT_EQ(lines[2], std::string(6, ' ') + head + std::string(41, ' ') + "p2.xml          0 B");
    EXPECT_EQ(lines.back(), "(level 5001) " + head + std::string(34, ' ') + "p5000.xml  (missing)");
}

PackageFile DeepPackage() {
    PackageFile file;
    file.Relationship("r", kStyles, "a.xml");
    for (const char* name : {"a.xml", "b.xml", "c.xml"}) file.Entry(name, "");
    file.Entry("_rels/a.xml.rels", RelationshipsXml(RelationshipXml("s1", kStyles, "b.xml") +
                                                    RelationshipXml("s2", kStyles, "c.xml")));
    file.Entry("_rels/b.xml.rels", RelationshipsXml(RelationshipXml("t", kStyles, "a.xml")));
    return file;
}

TEST(TreeCommand, GoesAsDeepAsIsAskedAndTellsWhatIsBelow) {
    PackageFile file = DeepPackage();
    const std::string path = file.Write().Path();
    const auto tree = [&](const char* depth) {
        return Lines(RunTool({"tree", "--depth", depth, path}).out);
    };
    EXPECT_THAT(tree("0"), ElementsAre(path));
    EXPECT_THAT(tree("1"), ElementsAre(path, "`- r  styles [11]  a.xml       0 B    (2 below)"));
    EXPECT_THAT(tree("2"), ElementsAre(path, "`- r  styles [11]      a.xml       0 B",
                                       "   |- s1  styles [11]  b.xml       0 B    (1 below)",
                                       "   `- s2  styles [11]  c.xml       0 B"));
}

TEST(TreeCommand, BeginsAtAPartThatMayComeAgain) {
    PackageFile file = DeepPackage();
    const std::string path = file.Write().Path();
    EXPECT_THAT(
        Lines(RunTool({"tree", "--from", "b.xml", path}).out),
        ElementsAre(path + ": b.xml", "`- t  styles [11]      a.xml       0 B",
                    "   |- s1  styles [11]  b.xml  (cycle)", "   `- s2  styles [11]  c.xml       0 B"));
    EXPECT_EQ(RunTool({"tree", "--from", "/", path}).out, RunTool({"tree", path}).out);
    EXPECT_EQ(RunTool({"tree", "--from", "nothing.xml", path}).status, 4);
}

}  // namespace

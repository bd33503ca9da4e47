#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "tests/opc/PackageFile.h"
#include "tests/tool/JsonLines.h"
#include "tests/tool/RunTool.h"

namespace {

using namespace vexpa_test;
using Json = nlohmann::ordered_json;
using testing::HasSubstr;

namespace fs = std::filesystem;

Json Dump(PackageFile& file) {
    const ToolRun run = RunTool({"dump", file.Write().Path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    return Json::parse(run.out);
}

TEST(DumpCommand, WritesTheWholePackageWithItsKeysInOrder) {
    PackageFile file = MinimalPackage();
    file.Entry("word/_rels/document.xml.rels",
               RelationshipsXml(RelationshipXml("rId2", "urn:other", "../up.bin") +
                                RelationshipXml("rId1", kStyles, "https://example.org/", "EXTERNAL")));
    file.Entry("up.bin", "abc");
    const std::string path = file.Write().Path();
    const ToolRun run = RunTool({"dump", path});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, R"({
  "package": ")" + path + R"(",
  "opened": true,
  "status": 0,
  "error": null,
  "relationships": [
    {
      "id": "rId1",
      "type": "http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument",
      "type_id": 9,
      "type_name": "RelTypeOfficeDocument",
      "target_mode": "internal",
      "source": "",
      "target": "word/document.xml",
      "resolved_target": "word/document.xml",
      "part": "word/document.xml"
    }
  ],
  "parts": [
    {
      "name": "word/document.xml",
      "content_type": "application/xml",
      "size": 11,
      "sha256": "8c92128223d6343d6b07f0cb0bbdaeddd1191862644092e5c8fe606c4285a8d9",
      "relationships": [
        {
          "id": "rId1",
          "type": "http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles",
          "type_id": 11,
          "type_name": "RelTypeStyles",
          "target_mode": "external",
          "source": "word/document.xml",
          "target": "https://example.org/",
          "resolved_target": "https://example.org/",
          "part": null
        },
        {
          "id": "rId2",
          "type": "urn:other",
          "type_id": -1,
          "type_name": "RelTypeUnknown",
          "target_mode": "internal",
          "source": "word/document.xml",
          "target": "../up.bin",
          "resolved_target": "up.bin",
          "part": "up.bin"
        }
      ]
    },
    {
      "name": "up.bin",
      "content_type": "",
      "size": 3,
      "sha256": "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad",
      "relationships": []
    }
  ]
}
)");
}

TEST(DumpCommand, APackageThatDoesNotOpenIsStillADocument) {
    const ScratchFile file("no package");
    const ToolRun run = RunTool({"dump", file.Path()});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.out, "{\n  \"package\": \"" + file.Path() +
                           "\",\n  \"opened\": false,\n  \"status\": 3,\n  \"error\": \"" +
                           file.Path() +
                           ": does not open: VX010 not a zip: looks like plain text\",\n"
                           "  \"relationships\": [],\n  \"parts\": []\n}\n");
    EXPECT_THAT(Lines(run.err), testing::SizeIs(1));
}

TEST(DumpCommand, SizeAndDigestAreNullForAPartThatCannotBeExtracted) {
    PackageFile file = MinimalPackage();
    file.Relationship("rId2", kStyles, "a.xml");
    file.Entry("a.xml", "content").crc = 0;
    const Json part = Dump(file)["parts"][1];
    EXPECT_EQ(part["name"], "a.xml");
    EXPECT_TRUE(part["size"].is_null());
    EXPECT_TRUE(part["sha256"].is_null());
}

TEST(DumpCommand, AnEmptyPartHasASizeAndADigest) {
    PackageFile file;
    file.Relationship("r", kStyles, "a.xml");
    file.Entry("a.xml", "");
    const Json part = Dump(file)["parts"][0];
    EXPECT_EQ(part["size"], 0);
    EXPECT_EQ(part["sha256"], "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

TEST(DumpCommand, NamesAPartAsItWasFirstAskedFor) {
    PackageFile file;
    file.Relationship("r1", kStyles, "/a.xml");
    file.Relationship("r2", kStyles, "a.xml");
    file.Entry("a.xml", "");
    const Json dump = Dump(file);
    EXPECT_EQ(dump["parts"].size(), 1u);
    EXPECT_EQ(dump["parts"][0]["name"], "/a.xml");
    EXPECT_EQ(dump["relationships"][1]["target"], "a.xml");
    EXPECT_EQ(dump["relationships"][1]["part"], "/a.xml");
}

TEST(DumpCommand, AThumbnailHasTheIdAndTheNameThatTheLibraryAnswers) {
    PackageFile file = MinimalPackage();
    file.Relationship("r",
                      "http://schemas.openxmlformats.org/package/2006/relationships/metadata/thumbnail",
                      "word/document.xml");
    const Json relationship = Dump(file)["relationships"][0];
    EXPECT_EQ(relationship["type_id"], 33);
    EXPECT_EQ(relationship["type_name"], "RelTypeCustomProperties");
}

TEST(DumpCommand, OrdersIdsByCodeUnit) {
    PackageFile file;
    for (const char* id : {"rId2", "rId10", "\uFF5E", "\U0001F600", "RID"}) {
        file.Relationship(id, kStyles, "a.xml");
    }
    file.Entry("a.xml", "");
    const Json dump = Dump(file);
    std::vector<std::string> ids;
    for (const Json& relationship : dump["relationships"]) ids.push_back(relationship["id"]);
    EXPECT_THAT(ids, testing::ElementsAre("RID", "rId10", "rId2", "\U0001F600", "\uFF5E"));
}

TEST(DumpCommand, ListsACycleOfPartsOnce) {
    PackageFile file;
    file.Relationship("r", kStyles, "a.xml");
    file.Entry("a.xml", "");
    file.Entry("b.xml", "");
    file.Entry("_rels/a.xml.rels", RelationshipsXml(RelationshipXml("r", kStyles, "b.xml")));
    file.Entry("_rels/b.xml.rels", RelationshipsXml(RelationshipXml("r", kStyles, "a.xml")));
    const Json dump = Dump(file);
    ASSERT_EQ(dump["parts"].size(), 2u);
    EXPECT_EQ(dump["parts"][1]["relationships"][0]["part"], "a.xml");
}

// External relationships only, but for the last, which has to have a part.
std::string DumpExternal(const std::string& id, const std::string& type, const std::string& target) {
    PackageFile file;
    file.Relationship(id, type, target, "External");
    file.Relationship("z", kStyles, "a.xml");
    file.Entry("a.xml", "");
    return RunTool({"dump", file.Write().Path()}).out;
}

TEST(DumpCommand, EscapesWhatATerminalShouldNotGetAndMeansTheSame) {
    const std::string text =
        DumpExternal("&#x9;&#x7F;&#x202E;", "urn:\U0001F4D6&#x9B;", "gr\u00fc\u00df&#x2028;&#xA;");
    EXPECT_THAT(text, HasSubstr("\"\\t\\u007f\\u202e\""));
    EXPECT_THAT(text, HasSubstr("\"urn:\U0001F4D6\\u009b\""));
    EXPECT_THAT(text, HasSubstr("\"gr\u00fc\u00df\\u2028\\n\""));
    const Json dump = Json::parse(text);
    const Json& relationship = dump["relationships"][0];
    EXPECT_EQ(relationship["id"], "\t\x7f\u202e");
    EXPECT_EQ(relationship["target"], "gr\u00fc\u00df\u2028\n");
}

TEST(DumpCommand, EscapesACharacterOfAHigherPlaneAsAPair) {
    const std::string text = DumpExternal("a", "\U0001FFFE", "a");
    EXPECT_THAT(text, HasSubstr("\"\\ud83f\\udffe\""));
    EXPECT_EQ(Json::parse(text)["relationships"][0]["type"], "\U0001FFFE");
}

TEST(DumpCommand, WritesTheFileNameAsGiven) {
    const ToolRun run = RunTool({"dump", "./no//such \u65e5.docx"});
    EXPECT_EQ(Json::parse(run.out)["package"], "./no//such \u65e5.docx");
}

fs::path CorpusFolder() {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): there is one thread.
    const char* given = std::getenv("VEXPA_CORPUS");
    return given != nullptr ? fs::path(given)
                            : fs::path(VEXPA_SOURCE_DIR).parent_path() / "shared" / "corpus";
}

TEST(DumpCommand, DumpsEverySoundDocumentOfTheCorpus) {
    const fs::path folder = CorpusFolder() / "good";
    if (!fs::exists(folder)) GTEST_SKIP() << "no corpus at " << folder;
    std::vector<std::string> arguments = {"dump"};
    for (const auto& entry : fs::directory_iterator(folder)) arguments.push_back(entry.path());
    const ToolRun run = RunTool(arguments);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    const std::vector<nlohmann::json> packages = JsonLines(run.out);
    EXPECT_EQ(packages.size(), arguments.size() - 1);
    for (const nlohmann::json& package : packages) {
        EXPECT_FALSE(package["parts"].empty()) << package["package"];
    }
}

}  // namespace

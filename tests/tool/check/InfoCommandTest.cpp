#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/tool/RunTool.h"
#include "tests/tool/check/FindingRows.h"

namespace {

using namespace vexpa_test;
using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

TEST(InfoCommand, ShowsAPackageOnOneScreen) {
    const ScratchFile file(SoundPackage().Bytes());
    const ToolRun run = RunTool({"info", file.Path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out,
                StartsWith(file.Path() + "  word processing document (Transitional), main part "
                                         "word/document.xml\n  container      zip, 5 entries, "));
    EXPECT_THAT(run.out, HasSubstr("\n  relationships  1 package, 1 in 1 part, 0 external, 0 dangling\n"
                                   "  content types  3 defaults, 1 override, 0 parts without a type\n"
                                   "  opens          yes\n"));
}

TEST(InfoCommand, OfARefusedPackageSaysWhyAndWhatItWouldHold) {
    const ScratchFile file(Spoiled([](SoundPackage& p) {
        p.relationships += Relation("rId2", OfficeType("theme"), "gone.xml");
        p.partRelationships +=
            Relation("rId2", OfficeType("hyperlink"), "http://a/", "TargetMode='External'");
    }));
    const ToolRun run = RunTool({"info", file.Path()});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(run.out,
                HasSubstr("\n  relationships  2 package, 2 in 1 part, 1 external, 1 dangling\n"));
    EXPECT_THAT(run.out,
                HasSubstr("\n  opens          no: VX301 _rels/.rels:1:228: the last relationship "
                          "rId2 (theme) has no part: gone.xml\n"));
}

TEST(InfoCommand, OfAFileThatCannotBeReadHasNoContainer) {
    const ToolRun run = RunTool({"info", "/no/such"});
    EXPECT_EQ(run.status, 5);
    EXPECT_EQ(run.out,
              "/no/such         no package\n"
              "  opens          no: VX001 cannot be read: No such file or directory\n");
}

TEST(InfoCommand, KnowsKindsByTheTypeOfTheMainPart) {
    struct Row {
        const char* contentType;
        const char* kind;
    };
    const Row rows[] = {
        {"application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml",
         "spreadsheet (Transitional)"},
        {"Application/VND.ms-word.document.macroEnabled.main+xml; a=b",
         "word processing document with macros (Transitional)"},
        {"application/x-other",
         "package (Transitional), main part word/document.xml of type application/"
         "x-other"},
    };
    for (const Row& row : rows) {
        const ScratchFile file(Spoiled([&](SoundPackage& p) {
            p.types = "<Override PartName='/word/document.xml' ContentType='" +
                      std::string(row.contentType) + "'/>";
        }));
        EXPECT_THAT(RunTool({"info", file.Path()}).out, HasSubstr(std::string("  ") + row.kind));
    }
}

TEST(InfoCommand, FindsTheMainPartOfAStrictDocument) {
    const ScratchFile file(Spoiled([](SoundPackage& p) {
        p.relationships =
            Relation("rId1", "http://purl.oclc.org/ooxml/officeDocument/relationships/officeDocument",
                     "word/document.xml");
    }));
    EXPECT_THAT(RunTool({"info", file.Path()}).out,
                HasSubstr("word processing document (Strict), main part word/document.xml\n"));
}

TEST(InfoCommand, OfSomethingElseSaysSo) {
    const ScratchFile text("plain text");
    EXPECT_EQ(RunTool({"info", text.Path()}).out,
              text.Path() +
                  "  no package\n"
                  "  container      none, 10 B\n"
                  "  opens          no: VX010 not a zip: looks like plain text\n");
}

TEST(InfoCommand, JsonHasTheSameShapeForEveryFile) {
    const ScratchFile sound(SoundPackage().Bytes()), text("text");
    const json first = json::parse(RunTool({"info", "--json", sound.Path()}).out);
    const json second = json::parse(RunTool({"info", "--json", text.Path()}).out);
    for (const auto& [key, value] : first.items()) EXPECT_TRUE(second.contains(key)) << key;
    EXPECT_EQ(first.size(), second.size());
    EXPECT_EQ(first["main_part"], "word/document.xml");
    EXPECT_EQ(first["reason"], nullptr);
    EXPECT_EQ(second["opened"], false);
    EXPECT_EQ(second["reason"]["id"], "VX010");
    EXPECT_EQ(first["error"], nullptr);
    EXPECT_EQ(second["error"], text.Path() + ": does not open: VX010 not a zip: looks like plain text");
}

}  // namespace

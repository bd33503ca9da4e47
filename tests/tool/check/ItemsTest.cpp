// All that a finding sums up, for those who ask.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/tool/RunTool.h"
#include "tests/tool/check/FindingRows.h"

namespace {

using namespace vexpa_test;
using namespace vexpa_tool;
using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

// The finding of this id in what a deep check writes.
json JsonOf(const std::string& bytes, const char* id) {
    const ScratchFile file(bytes);
    const json report = json::parse(RunTool({"check", "--deep", "--json", file.Path()}).out);
    for (const json& finding : report["findings"]) {
        if (finding["id"] == id) return finding;
    }
    ADD_FAILURE() << "no " << id;
    return {};
}

json Item(const json& entry, const json& name, const json& count) {
    return {{"entry", entry}, {"name", name}, {"count", count}};
}

// Ten of each, where a sentence names three or six.
std::string Crowded() {
    return Spoiled([](SoundPackage& p) {
        for (int i = 0; i < 10; ++i) {
            const std::string number = std::to_string(i);
            p.Add("x\\" + number + "/a.png", "x");
            p.Add("\x81" + number + ".png", "x");
            p.Add("bell\x07" + number + ".png", "x");
            p.partRelationships += Relation("u" + number, "urn:x/" + number, "media/image1.png");
            std::string elements = "<x xmlns='urn:" + number;
            elements.append("'/><w:n").append(number).append("/>");
            p.document.insert(p.document.rfind("</w:body>"), elements);
        }
    });
}

TEST(Items, AreAllInJson) {
    const std::string bytes = Crowded();
    const struct {
        const char* id;
        std::size_t count;
        json last;
    } rows[] = {
        {"VX104", 10, Item("x\\9/a.png", nullptr, nullptr)},
        {"VX111", 10, Item("\u00fc9.png", nullptr, nullptr)},
        {"VX405", 10, Item(nullptr, "9", 1)},
        {"VX410", 30,
         Item("bell\x07"
              "9.png",
              nullptr, nullptr)},
        {"VX609", 10,
         Item("bell\x07"
              "9.png",
              nullptr, nullptr)},
        {"VX701", 10, Item(nullptr, "urn:9", 1)},
        {"VX702", 10, Item(nullptr, "w:n9", 1)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id);
        const json finding = JsonOf(bytes, row.id);
        ASSERT_EQ(finding["items"].size(), row.count);
        EXPECT_EQ(finding["items"].back(), row.last);
        EXPECT_EQ(finding["items_omitted"], 0);
    }
}

TEST(Items, AreNoneWhereAFindingIsAboutOneThing) {
    const json finding = JsonOf(Dangling(), "VX401");
    EXPECT_EQ(finding["items"], json::array());
    EXPECT_EQ(finding["items_omitted"], 0);
}

TEST(Items, AreShownOnRequestWhereTheSentenceHasNoRoom) {
    const ScratchFile file(Crowded());
    const std::string all = RunTool({"check", "--all", file.Path()}).out;
    EXPECT_THAT(all, HasSubstr("(first: x\\0/a.png)\n                 x\\0/a.png\n"));
    EXPECT_THAT(all, HasSubstr("\n                 bell\\x079.png\n"));
    EXPECT_THAT(all, HasSubstr("\n                 9 (1)\n"));
    EXPECT_THAT(RunTool({"check", file.Path()}).out, Not(HasSubstr("bell\\x079.png")));
}

TEST(Items, StandBehindTheirFileWhereThereAreSeveral) {
    const ScratchFile file(Crowded()), sound(SoundPackage().Bytes());
    EXPECT_THAT(RunTool({"check", "--all", file.Path(), sound.Path()}).out,
                HasSubstr("\n" + file.Path() + ": info VX410   bell\\x079.png\n"));
}

TEST(Items, AreNotRepeatedWhereTheSentenceHasThemAll) {
    const ScratchFile file(Dangling());
    const std::string all = RunTool({"check", "--all", file.Path()}).out;
    EXPECT_THAT(all, HasSubstr("that the library has no number for: urn:x (1)\n\n"));
}

TEST(Items, OfAnArchiveOfVeryManyAreCounted) {
    const json finding = JsonOf(Spoiled([](SoundPackage& p) {
                                    for (int i = 0; i < 10'001; ++i) {
                                        p.Add("x" + std::to_string(i), "").stored = true;
                                    }
                                }),
                                "VX410");
    EXPECT_EQ(finding["items"].size(), 10'000u);
    EXPECT_EQ(finding["items_omitted"], 1);
}

// Three parts with a theme or two each.
std::string Repeating(int sources) {
    return Spoiled([&](SoundPackage& p) {
        for (const char* id : {"t1", "t2"}) {
            p.partRelationships += Relation(id, OfficeType("theme"), "media/image1.png");
        }
        for (int i = 1; i < sources; ++i) {
            const std::string part = "more" + std::to_string(i) + ".png";
            p.Add("word/" + part, "x");
            p.partRelationships += Relation("m" + std::to_string(i), "urn:x", part);
            std::string themes;
            for (const char* id : {"t1", "t2", "t3"}) {
                themes += Relation(id, OfficeType("theme"), "media/image1.png");
            }
            p.Add(
                "word/_rels/" + part + ".rels",
                "<Relationships xmlns='http://schemas.openxmlformats.org/package/2006/relationships'>" +
                    themes + "</Relationships>");
        }
    });
}

TEST(RepeatedTypes, NameThePart) {
    const Finding one = FindingOf(CheckBytes(Repeating(1)), FindingId::RepeatedType);
    EXPECT_EQ(one.entry, "word/document.xml");
    EXPECT_EQ(one.cause, "a look-up by type finds only the first of: theme (2)");
}

TEST(RepeatedTypes, NameTheFirstOfSeveralPartsAndListAll) {
    const Finding two = FindingOf(CheckBytes(Repeating(3)), FindingId::RepeatedType);
    EXPECT_EQ(two.entry, "");
    EXPECT_EQ(two.cause,
              "a look-up by type finds only the first of: "
              "theme (up to 3 in 3 parts, first in word/document.xml)");
    const json finding = JsonOf(Repeating(3), "VX402");
    EXPECT_EQ(finding["items"],
              json::array({Item("word/document.xml", "theme", 2), Item("word/more1.png", "theme", 3),
                           Item("word/more2.png", "theme", 3)}));
}

TEST(RepeatedTypes, OfOneLastWordAreTwo) {
    const std::string bytes = Spoiled([](SoundPackage& p) {
        const std::string start = "http://schemas.microsoft.com/office/";
        for (const char* id : {"a1", "a2", "b1", "b2", "b3"}) {
            const char* year = *id == 'a' ? "2006" : "2007";
            p.partRelationships +=
                Relation(id, start + year + "/relationships/ui/extensibility", "media/image1.png");
        }
    });
    const Finding finding = FindingOf(CheckBytes(bytes), FindingId::RepeatedType);
    EXPECT_EQ(finding.entry, "word/document.xml");
    EXPECT_EQ(finding.cause,
              "a look-up by type finds only the first of: "
              "extensibility (2) and extensibility (3)");
}

}  // namespace

// VX607: what editors load without being asked.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/tool/check/FindingRows.h"
#include "tool/check/FindingHelp.h"

namespace {

using namespace vexpa_test;
using namespace vexpa_tool;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kServer = "http://example.org/a";
const std::string kStrict = "http://purl.oclc.org/ooxml/officeDocument/relationships/";

CheckReport CheckWith(const std::string& type, const std::string& target) {
    return CheckBytes(Spoiled([&](SoundPackage& p) {
        p.partRelationships += Relation("rId2", type, target, "TargetMode='External'");
    }));
}

struct Loaded {
    const char* type;
    const char* what;
};

constexpr Loaded kLoaded[] = {
    {"attachedTemplate", "the attached template"},
    {"oleObject", "a linked object"},
    {"frame", "a frame"},
    {"subDocument", "a sub-document"},
    {"aFChunk", "an imported document"},
    {"mailMergeSource", "a data source"},
    {"mailMergeHeaderSource", "a data source"},
    {"image", "a linked image"},
};

TEST(LoadedFromOutside, IsToldByItsType) {
    for (const Loaded& loaded : kLoaded) {
        for (const std::string& type : {OfficeType(loaded.type), kStrict + loaded.type}) {
            SCOPED_TRACE(type);
            const Finding finding = FindingOf(CheckWith(type, kServer), FindingId::LoadedFromOutside);
            EXPECT_EQ(finding.cause, std::string(loaded.what) + " lies on another machine: " + kServer);
            EXPECT_EQ(finding.entry, "word/document.xml");
            EXPECT_EQ(finding.relationship, "rId2");
        }
    }
}

TEST(LoadedFromOutside, IsNotWhatWaitsForAClick) {
    for (const std::string& type : {OfficeType("hyperlink"), kStrict + "hyperlink"}) {
        EXPECT_THAT(Ids(CheckWith(type, kServer)), testing::Not(HasSubstr("VX607")));
    }
}

TEST(LoadedFromOutside, IsAWarningWhereTheTargetIsOnAnotherMachine) {
    const struct {
        const char* shows;
        const char* target;
        Severity severity;
    } rows[] = {
        {"a URL", "http://example.org/a", Severity::Warning},
        {"in capitals", "HTTPS://example.org/a", Severity::Warning},
        {"a file on a server", "ftp://example.org/a", Severity::Warning},
        {"a web archive", "mhtml:http://example.org/a", Severity::Warning},
        {"a share", "\\\\server\\share\\a.dotx", Severity::Warning},
        {"a share with slashes", "//server/share/a.dotx", Severity::Warning},
        {"a share as a file", "file:\\\\server\\share\\a.dotx", Severity::Warning},
        {"a share behind three slashes", "file:///\\\\server\\share\\a.dotx", Severity::Warning},
        {"a share behind five slashes", "file://///server/share/a.dotx", Severity::Warning},
        {"a file with a host", "file://server/share/a.dotx", Severity::Warning},
        {"a file here", "file:///C:/a.dotx", Severity::Info},
        {"a path", "C:\\a.dotx", Severity::Info},
        {"a name", "a.dotx", Severity::Info},
        {"a file without a name", "file://", Severity::Info},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shows);
        const CheckReport report = CheckWith(OfficeType("attachedTemplate"), row.target);
        const Finding finding = FindingOf(report, FindingId::LoadedFromOutside);
        EXPECT_EQ(finding.severity, row.severity);
        EXPECT_THAT(finding.cause, StartsWith(row.severity == Severity::Warning
                                                  ? "the attached template lies on another machine: "
                                                  : "the attached template lies outside: "));
    }
}

// "a linked object or image" names two.
TEST(LoadedFromOutside, IsExplainedWithAllItsKinds) {
    std::string help = FindingHelp("VX607");
    std::replace(help.begin(), help.end(), '\n', ' ');
    for (const char* kind : {"attached template", "linked object or image", "frame", "sub-document",
                             "imported document", "data source"}) {
        std::string words = help;
        for (std::size_t at; (at = words.find("  ")) != std::string::npos;) words.erase(at, 1);
        EXPECT_THAT(words, HasSubstr(kind));
    }
}

}  // namespace

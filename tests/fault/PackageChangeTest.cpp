// A package that changes while it is opened and read: each part is the old one or the new one,
// and so is each stream, storage and set of relationships of it, or it is missing.
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "tests/fault/ArchiveChanges.h"
#include "tests/fault/ChangingFile.h"
#include "tests/opc/PackageContent.h"
#include "tests/opc/PackageFile.h"

namespace {

using namespace vexpa_test;

constexpr const char* kImage =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/image";

// Two versions of a document with the same parts, not one of which has the same content.
std::string Document(const std::string& text, const std::string& image) {
    ZipFile zip;
    zip.Add("[Content_Types].xml",
            "<Types><Default Extension=\"xml\" ContentType=\"text/" + text + "\"/></Types>");
    zip.Add("_rels/.rels",
            RelationshipsXml(RelationshipXml(text, kOfficeDocument, "word/document.xml")));
    zip.Add("word/_rels/document.xml.rels", RelationshipsXml(RelationshipXml(text, kImage, "a.png")));
    zip.Add("word/document.xml", "<document>" + text + "</document>");
    zip.Add("word/a.png", image).stored = true;
    return zip.Bytes();
}

PackageContent ContentOf(const std::string& bytes) {
    return ReadPackage(ScratchFile(bytes).Path16()).value();
}

TEST(PackageChange, BetweenAnyTwoCallsGivesPartsOfOneVersionOrTheOther) {
    const std::string image(200, 'i');
    const std::string was = Document("old", image);
    const std::string becomes = Document("new version", WithTheSameCheckSum(image));
    const PackageContent oldContent = ContentOf(was);
    const PackageContent newContent = ContentOf(becomes);
    ASSERT_EQ(oldContent.parts.size(), 2U);
    ASSERT_NE(WrongContent(oldContent, {&newContent}), "");

    const ScratchFile file("");
    int opened = 0, mixed = 0;
    for (const Way way : kWays) {
        for (const Tell tell : kTells) {
            std::size_t n = 0;
            for (bool hasChanged = true; hasChanged;) {
                SCOPED_TRACE(++n);
                file.Write(was);
                const Times times(tell);
                SystemCalls system;
                times.Before(system);
                system.SetHook([&](const SystemCall& call) {
                    if (call.number != n) return SystemAnswer{};
                    way(file, becomes);
                    times.After(system);
                    return SystemAnswer{};
                });
                const std::optional<PackageContent> seen = ReadPackage(file.Path16());
                hasChanged = system.Count() >= n;
                if (!seen) continue;
                EXPECT_EQ(WrongContent(*seen, {&oldContent, &newContent}), "");
                ++opened;
                mixed += !WrongContent(*seen, {&oldContent}).empty() &&
                         !WrongContent(*seen, {&newContent}).empty();
            }
        }
    }
    EXPECT_GT(opened, 100);
    EXPECT_GT(mixed, 0) << "parts are read when they are asked for";
}

}  // namespace

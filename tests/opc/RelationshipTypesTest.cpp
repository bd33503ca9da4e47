#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/ScratchFile.h"
#include "vexpa/opc/RelationshipTypeTable.h"
#include "vexpa/opc/RelationshipTypes.h"

namespace {

using namespace tarn::opc;
using vexpa_test::Utf16;

constexpr char16_t kStyles[] =
    u"http://schemas.openxmlformats.org/officedocument/2006/relationships/styles";
constexpr char16_t kThumbnail[] =
    u"http://schemas.openxmlformats.org/package/2006/relationships/metadata/thumbnail";
constexpr char16_t kCustomProperties[] =
    u"http://schemas.openxmlformats.org/officedocument/2006/relationships/custom-properties";

std::u16string UriOf(std::uint32_t id) {
    return tarn::CopyText(GetRelationshipTypeUri(static_cast<RelationshipTypeId>(id)));
}

struct SourceRow {
    std::uint32_t id;
    std::u16string uri;
};

std::vector<SourceRow> ReadSourceTable() {
    std::ifstream file(VEXPA_SOURCE_DIR "/vexpa/opc/relationship-types.tsv");
    std::vector<SourceRow> rows;
    std::string line;
    for (std::getline(file, line); std::getline(file, line);) {
        std::istringstream fields(line);
        std::uint32_t id = 0;
        std::string enumerator, uri;
        fields >> id >> enumerator >> uri;
        rows.push_back({id, Utf16(uri)});
    }
    return rows;
}

TEST(RelationshipTypes, AreSixtyNumberedFromZero) {
    const std::vector<SourceRow> rows = ReadSourceTable();
    ASSERT_EQ(rows.size(), 60u);
    for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(rows[i].id, i);
}

TEST(RelationshipTypes, AgreeWithTheSourceTableInBothDirections) {
    for (const SourceRow& row : ReadSourceTable()) {
        SCOPED_TRACE(row.id);
        EXPECT_EQ(UriOf(row.id), row.uri);
        const std::uint32_t expected = row.id == 34 ? 33 : row.id;
        EXPECT_EQ(GetRelationshipTypeId(row.uri.c_str()), expected);
    }
}

TEST(RelationshipTypes, KeepTheNumbersThatCallersKnow) {
    EXPECT_EQ(RelTypeAfChunk, 0u);
    EXPECT_EQ(RelTypeOfficeDocument, 9u);
    EXPECT_EQ(RelTypeStyles, 11u);
    EXPECT_EQ(RelTypeCoreProperties, 22u);
    EXPECT_EQ(RelTypeCustomProperties, 33u);
    EXPECT_EQ(RelTypeThumbnail, 34u);
    EXPECT_EQ(RelTypePicture, 44u);
    EXPECT_EQ(RelTypeAttachedToolbars, 59u);
    EXPECT_EQ(RelTypeUnknown, 0xFFFFFFFFu);
    EXPECT_EQ(sizeof(RelationshipTypeId), 4u);
}

struct Spelling {
    const char* shows;
    const char16_t* type;
    RelationshipTypeId id;
};

const Spelling kSpellings[] = {
    {"as stored", kStyles, RelTypeStyles},
    {"in the case of the standard",
     u"http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles", RelTypeStyles},
    {"in capitals", u"HTTP://SCHEMAS.OPENXMLFORMATS.ORG/OFFICEDOCUMENT/2006/RELATIONSHIPS/STYLES",
     RelTypeStyles},
    {"after blanks of each kind",
     u"\t\n\r http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles",
     RelTypeStyles},
    {"before a blank", u"http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles ",
     RelTypeStyles},
    {"with backslashes",
     u"http:\\\\schemas.openxmlformats.org\\officeDocument\\2006\\relationships\\styles",
     RelTypeStyles},
    {"cut at an inner space to what is no type",
     u"http://schemas.openxmlformats.org/officeDocument/2006/relationships/ styles", RelTypeUnknown},
    {"cut at an inner space to what is a type",
     u"http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles x", RelTypeStyles},
    {"extensibility of 2006",
     u"http://schemas.microsoft.com/office/2006/relationships/ui/extensibility", RelTypeExtensibility},
    {"extensibility of 2007",
     u"http://schemas.microsoft.com/office/2007/relationships/ui/extensibility",
     RelTypeExtensibility2007},
    {"a prefix of a type", u"http://schemas.openxmlformats.org/officeDocument/2006/relationships/style",
     RelTypeUnknown},
    {"more than a type", u"http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles2",
     RelTypeUnknown},
    {"an unknown type", u"http://example.org/mine", RelTypeUnknown},
    {"blanks alone", u" \t", RelTypeUnknown},
    {"the empty text", u"", RelTypeUnknown},
    {"null", nullptr, RelTypeUnknown},
};

TEST(RelationshipTypes, AreFoundHoweverTheyAreSpelled) {
    for (const Spelling& row : kSpellings) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(GetRelationshipTypeId(row.type), row.id);
    }
}

TEST(RelationshipTypes, ThumbnailTypeAnswers33) {
    EXPECT_EQ(GetRelationshipTypeId(kThumbnail), 33u);
    EXPECT_EQ(UriOf(34), kThumbnail);
    EXPECT_EQ(UriOf(33), kCustomProperties);
}

TEST(RelationshipTypes, NoTypeAnswers34) {
    for (const RelationshipTypeRow& row : kRelationshipTypeRows) {
        EXPECT_NE(GetRelationshipTypeId(row.uri.data()), RelTypeThumbnail);
    }
}

TEST(RelationshipTypes, HaveAnEmptyUriOutsideTheTable) {
    for (const std::uint32_t id : {60u, 61u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        SCOPED_TRACE(id);
        ASSERT_NE(GetRelationshipTypeUri(static_cast<RelationshipTypeId>(id)), nullptr);
        EXPECT_EQ(UriOf(id), u"");
    }
}

TEST(RelationshipTypes, HandOutTheSameStorageEveryTime) {
    EXPECT_EQ(GetRelationshipTypeUri(RelTypeStyles), GetRelationshipTypeUri(RelTypeStyles));
}

}  // namespace

#include <gtest/gtest.h>

#include "vexpa/opc/NormalizeRelationshipType.h"

namespace {

using tarn::opc::NormalizeRelationshipType;

struct Folding {
    const char* shows;
    const char16_t* type;
    const char16_t* folded;
};

const Folding kFoldings[] = {
    {"a folded type stays", u"http://a.b/c", u"http://a.b/c"},
    {"letters become lower case", u"HTTP://A.b/officeDocument", u"http://a.b/officedocument"},
    {"backslashes become slashes", u"http:\\\\a.b\\C", u"http://a.b/c"},
    {"leading tab, line feed, carriage return and space go", u"\t\n\r a", u"a"},
    {"a trailing blank goes", u"a ", u"a"},
    {"an inner space cuts", u"a b", u"a"},
    {"an inner tab cuts", u"a\tb", u"a"},
    {"an inner vertical tab cuts, as all white space does", u"a\vb", u"a"},
    {"white space beyond ASCII cuts", u"a\u2003b", u"a"},
    {"a leading vertical tab is not passed over and cuts at once", u"\va", u""},
    {"a leading form feed after a blank cuts at once", u" \fa", u""},
    {"blanks alone fold to nothing", u" \t\r\n", u""},
    {"the empty text stays empty", u"", u""},
    {"digits, signs and punctuation stay", u"a-1_2.3?x=#%41", u"a-1_2.3?x=#%41"},
    {"control characters that are no white space stay",
     u"a\x01"
     u"B",
     u"a\x01"
     u"b"},
    {"small letters beyond ASCII stay", u"\u00E9", u"\u00E9"},
    {"capital letters beyond ASCII become small", u"\u00C9", u"\u00E9"},
    {"surrogates stay", u"\U0001F600", u"\U0001F600"},
};

TEST(NormalizeRelationshipType, FoldsATypeForComparison) {
    for (const Folding& row : kFoldings) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(NormalizeRelationshipType(row.type), row.folded);
    }
}

}  // namespace

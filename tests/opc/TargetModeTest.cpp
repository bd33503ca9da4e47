#include <gtest/gtest.h>

#include "vexpa/opc/TargetMode.h"
#include "vexpa/opc/TargetResolution.h"

namespace {

using namespace tarn::opc;

struct Mode {
    const char* shows;
    const char16_t* text;
    TargetMode mode;
};

const Mode kModes[] = {
    {"the word of the standard", u"External", TargetModeExternal},
    {"in lower case", u"external", TargetModeExternal},
    {"in capitals", u"EXTERNAL", TargetModeExternal},
    {"internal", u"Internal", TargetModeInternal},
    {"null", nullptr, TargetModeInternal},
    {"the empty text", u"", TargetModeInternal},
    {"a longer word", u"externals", TargetModeInternal},
    {"a shorter word", u"externa", TargetModeInternal},
    {"a blank before the word", u" External", TargetModeInternal},
    {"any other word", u"outside", TargetModeInternal},
};

TEST(ParseTargetMode, KnowsExternalFromEverythingElse) {
    for (const Mode& row : kModes) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(ParseTargetMode(row.text), row.mode);
    }
}

TEST(ParseTargetMode, KeepsTheNumbersThatCallersKnow) {
    EXPECT_EQ(TargetModeInternal, 0u);
    EXPECT_EQ(TargetModeExternal, 1u);
    EXPECT_EQ(sizeof(TargetMode), 4u);
}

}  // namespace

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "tests/support/ScratchFile.h"
#include "tool/model/RelationshipTypeNames.h"

namespace {

using namespace vexpa_tool;
namespace opc = tarn::opc;

TEST(RelationshipTypeNames, AreThoseOfTheSourceTable) {
    std::istringstream rows(vexpa_test::ReadFile(VEXPA_SOURCE_DIR "/vexpa/opc/relationship-types.tsv"));
    std::string line;
    std::getline(rows, line);
    std::uint32_t id = 0;
    for (; std::getline(rows, line); ++id) {
        const std::string prefix =
            std::to_string(id) + "\t" + RelationshipTypeName(opc::RelationshipTypeId{id}) + "\t";
        EXPECT_EQ(line.substr(0, prefix.size()), prefix);
    }
    EXPECT_EQ(id, kRelationshipTypeNameCount);
}

TEST(RelationshipTypeNames, EveryIdOutsideTheTableIsUnknown) {
    EXPECT_STREQ(RelationshipTypeName(opc::RelTypeUnknown), "RelTypeUnknown");
    EXPECT_STREQ(RelationshipTypeName(opc::RelationshipTypeId{60}), "RelTypeUnknown");
}

}  // namespace

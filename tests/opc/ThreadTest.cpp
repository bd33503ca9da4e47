// For ThreadSanitizer: what several threads may do at once.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <vector>

#include "tests/opc/PackageFile.h"
#include "tests/opc/PackageWalk.h"
#include "tests/support/EightThreads.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

TEST(Threads, WalkDifferentPackagesAtOnce) {
    std::vector<std::u16string> paths;
    for (const char* name : {"report.docx", "talk.pptx", "tides.xlsx", "ledger.xlsx"}) {
        paths.push_back(Utf16(std::string(VEXPA_SOURCE_DIR) + "/samples/" + name));
    }
    std::vector<std::size_t> expected;
    for (const std::u16string& path : paths) expected.push_back(OpenAndWalk(path));

    std::atomic<int> wrong = 0;
    OnEightThreads([&](unsigned i) {
        for (std::size_t round = 0; round < 5; ++round) {
            const std::size_t which = (i + round) % paths.size();
            if (OpenAndWalk(paths[which]) != expected[which]) ++wrong;
        }
    });
    EXPECT_EQ(wrong, 0);
}

TEST(Threads, UseTheTypeIndexesFirstAtOnce) {
    std::atomic<int> wrong = 0;
    OnEightThreads([&](unsigned) {
        for (std::uint32_t id = 0; id < 60; ++id) {
            const auto type = static_cast<opc::RelationshipTypeId>(id);
            const std::uint32_t expected = id == opc::RelTypeThumbnail ? 33 : id;
            if (opc::GetRelationshipTypeId(opc::GetRelationshipTypeUri(type)) != expected) ++wrong;
        }
    });
    EXPECT_EQ(wrong, 0);
}

}  // namespace

// What a closed package still holds, by the allocations that are alive.
#include <gtest/gtest.h>

#include <string>

#include "tests/opc/PackageFile.h"
#include "tests/support/FailingAllocator.h"
#include "vexpa/opc/Package.h"

namespace {

using namespace vexpa_test;
using tarn::Handle;
namespace opc = tarn::opc;

// How much a package with so many relationships, all of them with the same Id, holds when it is
// closed.
long LeftAfterClose(int relationships) {
    PackageFile file = MinimalPackage();
    for (int i = 0; i < relationships; ++i) {
        file.Relationship("same", "urn:type" + std::to_string(i), "word/document.xml");
    }
    const std::u16string path = file.Write().Path16();
    const long before = LiveAllocations();
    const Handle<opc::Package> package = opc::Package::Open(path.c_str());
    EXPECT_EQ(package->GetRelationships().size(), 2U);
    EXPECT_GT(LiveAllocations(), before + relationships);
    package->Close();
    return LiveAllocations() - before;
}

TEST(PackageClose, LeavesNothingOfRelationshipsThatHaveOneId) {
    LeftAfterClose(2);  // fills what is kept for the next package
    EXPECT_EQ(LeftAfterClose(100), LeftAfterClose(2));
}

}  // namespace

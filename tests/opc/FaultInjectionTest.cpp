#include <gtest/gtest.h>

#include <new>

#include "tests/opc/PackageFile.h"
#include "tests/support/FaultRuntime.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

TEST(FaultInjection, AFailedListingIsTriedAgain) {
    PackageFile file = MinimalPackage();
    file.Entry("_rels/.rels", RelationshipsXml(""));
    const Handle<opc::Package> package = file.Open();
    ASSERT_TRUE(package);
    const opc::PartUri document(u"/word/document.xml");
    for (const char* call : {"_Xaccess", "_XGetZipFileCount", "_XGetZipFileList"}) {
        SCOPED_TRACE(call);
        FaultRuntime platform;
        platform.FailCall(call);
        EXPECT_FALSE(package->PartExists(document));
        EXPECT_EQ(platform.FailedCall(), call);
    }
    EXPECT_TRUE(package->PartExists(document));
}

TEST(FaultInjection, AListingThatRunsOutOfMemoryIsTriedAgainWhole) {
    PackageFile file = MinimalPackage();
    file.Entry("_rels/.rels", RelationshipsXml(""));
    const Handle<opc::Package> package = file.Open();
    const opc::PartUri last(u"/[Content_Types].xml");
    FaultRuntime platform;
    platform.FailCall("_XSysAllocString", 2);
    EXPECT_THROW(package->PartExists(last), std::bad_alloc);
    EXPECT_TRUE(package->PartExists(last));
}

}  // namespace

#include <gtest/gtest.h>

#include <new>
#include <string>

#include "tests/opc/PackageFile.h"
#include "tests/opc/PackageWalk.h"
#include "tests/support/FaultRuntime.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

// Fails each platform call of a walk in turn, until none is left to fail.
void FailEveryCall(const std::string& file) {
    const std::u16string path = Utf16(file);
    const std::size_t parts = OpenAndWalk(path);
    ASSERT_GT(parts, 0u);
    for (std::size_t n = 1;; ++n) {
        SCOPED_TRACE(n);
        FaultRuntime platform;
        platform.FailCall(n);
        std::size_t reached = 0;
        try {
            reached = OpenAndWalk(path);
        } catch (const std::bad_alloc&) {
            // The name set says so when a name cannot be copied.
            EXPECT_EQ(platform.FailedCall(), "_XSysAllocString");
        }
        EXPECT_LE(reached, parts);
        // Only an allocation that fails for a part's bytes may lose them.
        if (platform.FailedCall() != "_XGblAlloc") {
            EXPECT_EQ(platform.LostBuffers(), 0u);
        }
        if (platform.FailedCall().empty()) break;
    }
    EXPECT_EQ(OpenAndWalk(path), parts);
}

TEST(FaultInjection, NoFailingCallBreaksAWalkOfADocument) {
    FailEveryCall(std::string(VEXPA_SOURCE_DIR) + "/samples/report.docx");
}

TEST(FaultInjection, NoFailingCallBreaksAWalkWithACompoundFile) {
    FailEveryCall(std::string(VEXPA_SOURCE_DIR) + "/samples/ledger.xlsx");
}

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

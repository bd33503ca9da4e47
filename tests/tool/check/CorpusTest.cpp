// What the check says of real files.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "tests/tool/check/SoundPackage.h"
#include "tool/model/OpenPackage.h"

namespace {

using namespace vexpa_test;
using namespace vexpa_tool;
namespace fs = std::filesystem;

fs::path CorpusFolder() {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): there is one thread.
    const char* given = std::getenv("VEXPA_CORPUS");
    return given != nullptr ? fs::path(given) : fs::path(VEXPA_SOURCE_DIR) / "../shared/corpus";
}

std::vector<fs::path> FilesIn(const char* folder) {
    std::vector<fs::path> files;
    std::error_code missing;
    for (const auto& entry : fs::directory_iterator(CorpusFolder() / folder, missing)) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

TEST(CheckCorpus, AgreesWithTheLibraryAndAlwaysFindsTheReason) {
    if (FilesIn("good").empty()) GTEST_SKIP() << "no test documents in " << CorpusFolder();
    for (const char* folder : {"good", "damaged", "zip", "cfb"}) {
        for (const fs::path& file : FilesIn(folder)) {
            SCOPED_TRACE(file.filename());
            const bool opens = static_cast<bool>(FindPackage(file.string()));
            const CheckReport report = CheckPackage(file.string(), {});
            EXPECT_EQ(report.opens, opens);
            ASSERT_EQ(report.Stop() == nullptr, opens);
            if (opens) continue;
            EXPECT_NE(report.Stop()->id, FindingId::UnknownReason);
        }
    }
}

// What the files were kept for, by many makers of documents and of damage.
TEST(CheckCorpus, FindsWhatItIsKnownToFind) {
    const struct {
        const char* file;
        FindingId id;
        Severity severity;
        const char* cause;
    } rows[] = {
        {"damaged/protected_agile.docx", FindingId::EncryptedPackage, Severity::Error,
         "not a zip: compound file with EncryptedPackage (password-protected document)"},
        {"damaged/~_LoadPivotTables.xlsx", FindingId::NotAZip, Severity::Error,
         "not a zip: looks like the lock file that an editor keeps beside a document"},
        {"damaged/truncated62886.docx", FindingId::NoDirectory, Severity::Error,
         "no end record: the file is cut off inside its directory, which begins at offset 18,337"},
        {"damaged/49609.xlsx", FindingId::NoContentTypes, Severity::Error,
         "no [Content_Types].xml; there is [content_types].xml"},
        {"damaged/49609.xlsx", FindingId::Backslash, Severity::Info,
         "7 entry names are written with '\\' and read with '/' (first: xl\\styles.xml)"},
        {"damaged/49609.xlsx", FindingId::CaseVariant, Severity::Warning,
         "an entry differs from the target only in letter case: xl/sharedstrings.xml"},
        {"damaged/UrbanFax_TP10192755.dotx", FindingId::LastTargetMissing, Severity::Error,
         "the last relationship rId5 (thumbnail) has no part: docProps/thumbnail.jpeg"},
        {"damaged/UrbanFax_TP10192755.dotx", FindingId::RepeatedType, Severity::Info,
         "a look-up by type finds only the first of: footer (2)"},
        {"damaged/xlsx-corrupted.xlsx", FindingId::NoPackageRelationships, Severity::Error,
         "is not well-formed: syntax error"},
        {"damaged/duplicate-filename.xlsx", FindingId::DuplicateName, Severity::Warning,
         "the name occurs again; the library reads the first entry"},
        {"damaged/missingcalcchainpart.xlsx", FindingId::DanglingTarget, Severity::Warning,
         "rId10 (calcChain) has no part: xl/calcChain.xml"},
        {"damaged/bug62513.pptx", FindingId::BytesAfter, Severity::Warning,
         "1 byte after the end of the archive"},
        {"damaged/poc-xmlbomb.xlsx", FindingId::PartDocumentType, Severity::Warning,
         "has a document type declaration; its entities make it grow without bound"},
        {"zip/invalidDeflate.zip", FindingId::DamagedData, Severity::Error,
         "cannot be extracted: its packed data is broken"},
        {"zip/prepended.zip", FindingId::BytesBefore, Severity::Warning,
         "149 bytes before the first entry"},
        {"zip/NullCharFileName_FromUnix.zip", FindingId::DeceptiveName, Severity::Warning,
         "the name has control characters or turns the direction of writing: a\\x006b6d"},
        {"good/OLE-O12-XL-OLE.xlsx", FindingId::ActiveContent, Severity::Info,
         "holds 2 OLE objects and 1 embedded package"},
        {"good/vba-user-function.xlsm", FindingId::ActiveContent, Severity::Info,
         "holds 1 macro project"},
    };
    if (FilesIn("good").empty()) GTEST_SKIP() << "no test documents in " << CorpusFolder();
    CheckOptions options;
    options.isDeep = true;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.file);
        const CheckReport report = CheckPackage((CorpusFolder() / row.file).string(), options);
        const Finding finding = FindingOf(report, row.id);
        EXPECT_EQ(finding.severity, row.severity);
        EXPECT_EQ(finding.cause, row.cause);
    }
}

TEST(CheckCorpus, FindsNoErrorsInGoodFiles) {
    if (FilesIn("good").empty()) GTEST_SKIP() << "no test documents in " << CorpusFolder();
    CheckOptions options;
    options.isDeep = true;
    for (const fs::path& file : FilesIn("good")) {
        SCOPED_TRACE(file.filename());
        for (const Finding& finding : CheckPackage(file.string(), options).findings) {
            EXPECT_NE(finding.severity, Severity::Error) << IdText(finding.id) << " " << finding.cause;
        }
    }
}

}  // namespace

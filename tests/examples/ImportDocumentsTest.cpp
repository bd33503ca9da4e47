// Whole documents through both importers.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "examples/QtImporter.h"
#include "examples/XercesImporter.h"
#include "examples/importer/PartStream.h"
#include "tests/examples/SameTree.h"
#include "tests/runtime/zip/ZipClient.h"
#include "tests/xmlfx/RegistryFixture.h"
#include "vexpa/opc/Package.h"

namespace {

using namespace importer;
using namespace tarn;
using namespace vexpa_test;

namespace fs = std::filesystem;

fs::path CorpusFolder() {
    const char* given = std::getenv("VEXPA_CORPUS");
    return given != nullptr ? fs::path(given)
                            : fs::path(VEXPA_SOURCE_DIR).parent_path() / "shared" / "corpus";
}

std::vector<fs::path> FilesOf(const fs::path& folder) {
    std::vector<fs::path> files;
    if (!fs::exists(folder)) return files;
    for (const auto& entry : fs::directory_iterator(folder)) files.push_back(entry.path());
    return files;
}

bool EndsWith(const std::u16string& text, std::u16string_view end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

bool IsXml(const opc::Part& part, const std::u16string& entry) {
    const std::u16string type = CopyText(part.GetContentType());
    return EndsWith(type, u"/xml") || EndsWith(type, u"+xml") || EndsWith(entry, u".xml") ||
           EndsWith(entry, u".rels") || EndsWith(entry, u".vml");
}

class ImportDocuments : public RegistryFixture {
protected:
    static std::optional<Tree> Import(Importer& importer, opc::Part& part) {
        try {
            return importer.Import(*OpenStream(part).Get());
        } catch (const ImportError&) {
            return std::nullopt;
        }
    }

    // Counts what it compared.
    void ComparePart(opc::Part& part) {
        const std::optional<Tree> byXerces = Import(xerces_, part), byQt = Import(qt_, part);
        ASSERT_EQ(byXerces.has_value(), byQt.has_value());
        if (!byXerces) {
            EXPECT_TRUE(IsEmpty(part)) << "in a sound document nothing else is malformed";
            return;
        }
        EXPECT_TRUE(SameTree(*byXerces, *byQt));
        ++imported_;
    }

    static bool IsEmpty(opc::Part& part) {
        char byte;
        return ReadBytes(*OpenStream(part).Get(), &byte, 1) == 0;
    }

    // Every entry, so that parts which no relationship names are there as well.
    void CompareParts(const fs::path& file) {
        const Handle<opc::Package> package = opc::Package::Open(file.u16string().c_str());
        ASSERT_TRUE(package);
        const std::optional<Names> entries = ListZip(file);
        ASSERT_TRUE(entries);
        for (const std::u16string& entry : *entries) {
            SCOPED_TRACE(fs::path(entry));
            opc::Part* part = package->GetPart(opc::PartUri(entry.c_str()));
            if (part != nullptr && IsXml(*part, entry)) ComparePart(*part);
        }
    }

    XercesImporter xerces_;
    QtImporter qt_;
    int imported_ = 0;
};

TEST_F(ImportDocuments, BothImportersMakeTheSameOfEverySample) {
    for (const fs::path& file : FilesOf(fs::path(VEXPA_SOURCE_DIR) / "samples")) {
        if (file.extension() == ".md") continue;
        SCOPED_TRACE(file.filename());
        CompareParts(file);
    }
    EXPECT_GT(imported_, 20);
}

TEST_F(ImportDocuments, BothImportersMakeTheSameOfEveryRealDocument) {
    const std::vector<fs::path> files = FilesOf(CorpusFolder() / "good");
    if (files.empty()) GTEST_SKIP() << "no corpus at " << CorpusFolder();
    for (const fs::path& file : files) {
        SCOPED_TRACE(file.filename());
        CompareParts(file);
    }
    EXPECT_GT(imported_, 1'000);
}

}  // namespace

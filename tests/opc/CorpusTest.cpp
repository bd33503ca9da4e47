#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <filesystem>
#include <set>
#include <vector>

#include "tests/opc/PackageFile.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

namespace fs = std::filesystem;

fs::path CorpusFolder() {
    const char* given = std::getenv("VEXPA_CORPUS");
    return given != nullptr ? fs::path(given)
                            : fs::path(VEXPA_SOURCE_DIR).parent_path() / "shared" / "corpus";
}

std::vector<fs::path> FilesOf(const std::string& folder) {
    std::vector<fs::path> files;
    const fs::path path = CorpusFolder() / folder;
    if (!fs::exists(path)) return files;
    for (const auto& entry : fs::directory_iterator(path)) files.push_back(entry.path());
    return files;
}

void ReadAll(opc::Part& part) {
    ComPtr<IStream> stream;
    if (part.GetStream(stream.Out()) == S_OK) ReadToEnd(*stream.Get());
    ComPtr<IStorage> storage;
    part.GetStorage(storage.Out());
}

// Visits and reads every part that the package reaches.
void WalkAll(opc::Package& package) {
    std::set<opc::Part*> seen;
    std::deque<const opc::RelationshipMap*> open{&package.GetRelationships()};
    for (; !open.empty(); open.pop_front()) {
        for (const auto& entry : *open.front()) {
            if (entry.second->GetTargetMode() == opc::TargetModeExternal) continue;
            opc::Part* part = package.GetPart(entry.second->GetResolvedTarget());
            if (part == nullptr || !seen.insert(part).second) continue;
            ReadAll(*part);
            open.push_back(&part->GetRelationships());
        }
    }
}

TEST(Corpus, EverySoundPackageOpensAndIsWalkedWhole) {
    const std::vector<fs::path> files = FilesOf("good");
    if (files.empty()) GTEST_SKIP() << "no corpus at " << CorpusFolder();
    for (const fs::path& file : files) {
        SCOPED_TRACE(file.filename());
        const Handle<opc::Package> package = opc::Package::Open(file.u16string().c_str());
        ASSERT_TRUE(package);
        WalkAll(*package);
    }
}

TEST(Corpus, NoDamagedOrForeignFileBreaksTheReader) {
    for (const char* folder : {"damaged", "zip", "cfb"}) {
        const std::vector<fs::path> files = FilesOf(folder);
        if (files.empty()) GTEST_SKIP() << "no corpus at " << CorpusFolder();
        for (const fs::path& file : files) {
            SCOPED_TRACE(file.filename());
            const Handle<opc::Package> package = opc::Package::Open(file.u16string().c_str());
            if (package) WalkAll(*package);
        }
    }
}

}  // namespace

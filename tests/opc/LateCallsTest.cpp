// Packages that are opened by a thread or a process that is ending, from destructors of objects
// that were there before the first call.
#include <gtest/gtest.h>

#include <QTextCodec>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/opc/PackageFile.h"
#include "tests/support/Late.h"
#include "tests/support/OldFiles.h"

namespace {

using namespace tarn;
using namespace vexpa_test;

constexpr const char* kDocument = "<document/>";

// A package with or without so much in it that the file is not kept whole.
class OldPackage {
public:
    explicit OldPackage(std::size_t more) {
        file_.Default("xml", "application/xml");
        file_.Entry("more", std::string(more, 'x')).stored = true;
        file_.Relationship("rId1", kOfficeDocument, "word/document.xml");
        file_.Entry("word/document.xml", kDocument);
        file_.Entry("word/_rels/document.xml.rels",
                    RelationshipsXml(RelationshipXml("rId1", kStyles, "styles.xml")));
        path_ = file_.Write().Path16();
    }

    bool IsReadWhole() const {
        const Handle<opc::Package> package = opc::Package::Open(path_.c_str());
        if (!package) return false;
        opc::Relationship* main = package->GetRelationshipByType(opc::RelTypeOfficeDocument);
        if (main == nullptr || main->GetTypeId() != opc::RelTypeOfficeDocument) return false;
        opc::Part* part = package->GetPart(main->GetResolvedTarget());
        if (part == nullptr || part->GetRelationships().size() != 1) return false;
        ComPtr<IStream> stream;
        return part->GetStream(stream.Out()) == S_OK && ReadToEnd(*stream.Get()) == kDocument;
    }

private:
    PackageFile file_;
    std::u16string path_;
};

struct Packages {
    OldFiles old;
    OldPackage small{0};
    OldPackage large{9UL << 20};

    bool AreReadWhole() const { return small.IsReadWhole() && large.IsReadWhole(); }
};

TEST(LateCalls, OfAnEndingThreadReadPackages) {
    const Packages packages;
    const Worked worked = CallOnAnEndingThread([&] { return packages.AreReadWhole(); });
    EXPECT_TRUE(worked.first);
    EXPECT_TRUE(worked.late);
}

TEST(LateCalls, OfAnEndingProcessReadPackages) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto readAndExit = [] {
        static const Packages packages;
        static const Late late{[] { std::fputs(packages.AreReadWhole() ? "late" : "wrong", stderr); }};
        std::fputs(packages.AreReadWhole() ? "works " : "wrong ", stderr);
        std::exit(0);  // NOLINT(concurrency-mt-unsafe): there is one thread
    };
    EXPECT_EXIT(readAndExit(), ::testing::ExitedWithCode(0), "works late");
}

// What the document's part says, or "nothing".
std::string ReadPart(opc::Package& package, const char16_t* name) {
    opc::Part* part = package.GetPart(opc::PartUri(name));
    ComPtr<IStream> stream;
    if (part == nullptr || part->GetStream(stream.Out()) != S_OK) return "nothing";
    return ReadToEnd(*stream.Get());
}

// The encoding of the locale is gone then; a question mark in place of the letter would match the
// other entry.
TEST(LateCalls, DoNotReadAnotherPartForOneOutsideAscii) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto readAndExit = [] {
        static PackageFile file = MinimalPackage();
        static Handle<opc::Package> early;
        static Handle<opc::Package> package;
        static const Late late{
            [] { std::fputs(ReadPart(*package, u"word/\u4E2D.xml").c_str(), stderr); }};
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
        file.Entry("word/x.xml", "another");
        file.Entry("word/\xE4\xB8\xAD.xml", "right");
        const std::u16string path = file.Write().Path16();
        early = opc::Package::Open(path.c_str());
        package = opc::Package::Open(path.c_str());
        std::fputs((ReadPart(*early, u"word/\u4E2D.xml") + " ").c_str(), stderr);
        std::exit(0);  // NOLINT(concurrency-mt-unsafe): there is one thread
    };
    EXPECT_EXIT(readAndExit(), ::testing::ExitedWithCode(0), "right nothing");
}

}  // namespace

// Reading a package opens the package's file and nothing else, whatever it says inside.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/hostile/PackageText.h"
#include "tests/hostile/SmallPackage.h"
#include "tests/hostile/outside/PathRecorder.h"
#include "tests/opc/PackageFile.h"
#include "tests/support/ScratchFile.h"
#include "vexpa/opc/Package.h"

namespace {

using namespace vexpa_test;

std::string Read(const ScratchFile& file) {
    const tarn::Handle<tarn::opc::Package> package = tarn::opc::Package::Open(file.Path16().c_str());
    return package ? PackageText(*package) : "does not open";
}

class ReadingAPackage : public testing::Test {
protected:
    // What a library loads for itself on its first use is not the package's doing.
    static void SetUpTestSuite() { Read(ScratchFile(SmallPackage().Bytes())); }

    // Reads these bytes, and answers what it gave.
    static std::string ExpectOnlyTheFileIsReached(const std::string& bytes) {
        const ScratchFile file(bytes);
        std::string text;
        const PathRecorder recorder;
        text = Read(file);
        EXPECT_THAT(recorder.Paths(), testing::ElementsAre(file.Path()));
        return text;
    }

    // Files that would be there to be found.
    static std::string Outside() {
        static const ScratchFile outside("<!ENTITY inside '<found/>'>", "outside.xml");
        return outside.Path();
    }
};

std::vector<std::string> Names(const std::string& outside) {
    return {outside,
            "/" + outside,
            "../../../../../../../../../../.." + outside,
            "..\\..\\..\\..\\outside.xml",
            "./outside.xml",
            "outside.xml",
            "/etc/passwd",
            "etc/passwd",
            "~/.profile",
            "$HOME/.profile",
            "%HOME%/.profile",
            "C:\\outside.xml",
            "C:/outside.xml",
            "\\\\server\\share\\outside.xml",
            "//server/share/outside.xml",
            "file://" + outside,
            "http://127.0.0.1/outside.xml",
            "ftp://localhost/outside.xml",
            "jar:file:///a.zip!/outside.xml",
            "data:text/xml,outside",
            "/dev/stdin",
            "/proc/self/maps",
            "| touch outside.xml",
            "`touch outside.xml`",
            "NUL",
            "word/"};
}

// Related to each of the names, from the package or from its document.
std::string RelationshipsTo(const std::vector<std::string>& names, const char* mode) {
    std::string elements;
    for (std::size_t i = 0; i < names.size(); ++i) {
        elements += RelationshipXml("n" + std::to_string(i), "urn:outside", names[i], mode);
    }
    return elements;
}

ZipFile PackageOfNames(const std::vector<std::string>& names, const char* mode) {
    ZipFile zip =
        SmallPackageWith(kPackageRelationshipsEntry,
                         RelationshipsXml(RelationshipsTo(names, mode) +
                                          RelationshipXml("rId1", kOfficeDocument, kDocumentEntry)));
    EntryOf(zip, kDocumentRelationshipsEntry).content =
        RelationshipsXml(RelationshipsTo(names, mode) + RelationshipXml("rId1", kImage, "a.png"));
    return zip;
}

TEST_F(ReadingAPackage, NeverOpensTheNamesOfItsEntries) {
    const std::vector<std::string> names = Names(Outside());
    ZipFile zip = PackageOfNames(names, "");
    for (const std::string& name : names) {
        zip.Add(name, "an entry");
        zip.Add("word/" + name, "an entry");
    }
    EXPECT_THAT(ExpectOnlyTheFileIsReached(zip.Bytes()), testing::HasSubstr("\"an entry\""));
}

TEST_F(ReadingAPackage, NeverOpensTargetsThatItDoesNotHave) {
    EXPECT_THAT(ExpectOnlyTheFileIsReached(PackageOfNames(Names(Outside()), "").Bytes()),
                testing::HasSubstr("\"pixels\""));
}

TEST_F(ReadingAPackage, NeverOpensExternalTargets) {
    EXPECT_THAT(ExpectOnlyTheFileIsReached(PackageOfNames(Names(Outside()), "External").Bytes()),
                testing::HasSubstr("\"pixels\""));
}

TEST_F(ReadingAPackage, NeverOpensTheNamesOfItsContentTypes) {
    std::string rules;
    for (const std::string& name : Names(Outside())) {
        rules += "<Override PartName=\"" + name + "\" ContentType=\"" + name + "\"/>";
    }
    EXPECT_THAT(ExpectOnlyTheFileIsReached(
                    SmallPackageWith(kContentTypesEntry, "<Types>" + rules + "</Types>").Bytes()),
                testing::HasSubstr("\"pixels\""));
}

TEST_F(ReadingAPackage, NeverFollowsASymbolicLink) {
    constexpr std::uint32_t kLink = 0120777U << 16;
    ZipFile zip = SmallPackage();
    EntryOf(zip, kPictureEntry).attributes = kLink;
    EntryOf(zip, kPictureEntry).content = "/../outside.xml";
    EXPECT_THAT(ExpectOnlyTheFileIsReached(zip.Bytes()),
                testing::HasSubstr("word/a.png: image/png \"/../outside.xml\""));
}

// Each of these names a file or a host outside.
std::vector<std::string> ReferencesOutside(const std::string& root, const std::string& path) {
    const std::string open = "<" + root + ">", close = "</" + root + ">";
    std::vector<std::string> documents;
    for (const std::string& name : {path, "file://" + path, std::string("outside.xml"),
                                    std::string("http://127.0.0.1/outside.dtd")}) {
        const std::string system = "SYSTEM '" + name + "'";
        const std::string type = "<!DOCTYPE " + root + " ";
        documents.push_back(type + system + ">" + open + close);
        documents.push_back(type + "PUBLIC 'p' '" + name + "'>" + open + close);
        documents.push_back(type + system + ">" + open + "&inside;" + close);
        documents.push_back(type + "[<!ENTITY e " + system + ">]>" + open + "&e;" + close);
        documents.push_back(type + "[<!ENTITY e PUBLIC 'p' '" + name + "'>]>" + open + "&e;" + close);
        documents.push_back(type + "[<!ENTITY % e " + system + ">%e;]>" + open + "&inside;" + close);
        documents.push_back(type + "[<!ENTITY e " + system + "><!ENTITY f '&e;'>]>" + open + "&f;" +
                            close);
        documents.push_back(type + "[<!ENTITY e " + system + ">]><" + root + " a='&e;'/>");
        documents.push_back(type + "[<!ENTITY e " + system + "><!ATTLIST " + root +
                            " a CDATA '&e;'>]>" + open + close);
        documents.push_back(type + "[<!NOTATION n " + system + "><!ENTITY e " + system + " NDATA n>]>" +
                            open + close);
        documents.push_back("<?xml-stylesheet href='" + name + "'?>" + open + close);
        documents.push_back(open + "<xi:include xmlns:xi='http://www.w3.org/2001/XInclude' href='" +
                            name + "'/>" + close);
        documents.push_back("<" + root + " xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' " +
                            "xsi:schemaLocation='urn:x " + name + "'/>");
    }
    return documents;
}

TEST_F(ReadingAPackage, NeverOpensWhatItsXmlRefersTo) {
    for (const char* entry : {kContentTypesEntry, kPackageRelationshipsEntry,
                              kDocumentRelationshipsEntry, kDocumentEntry}) {
        for (const std::string& document : ReferencesOutside("Relationships", Outside())) {
            SCOPED_TRACE(std::string(entry) + ": " + document);
            ZipFile zip = SmallPackage();
            EntryOf(zip, entry).content = document;
            ExpectOnlyTheFileIsReached(zip.Bytes());
        }
    }
}

}  // namespace

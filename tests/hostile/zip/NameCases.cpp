// Names that no writer of documents would choose.

#include <string>
#include <utility>
#include <vector>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/SmallPackage.h"
#include "tests/opc/PackageFile.h"

namespace {

using namespace vexpa_test;
using namespace std::string_literals;

constexpr std::uint16_t kUtf8Flag = 0x0800;
constexpr std::uint16_t kMadeByFat = 0x0014;

// The small package with its picture under another name, and the document related to `target`.
std::string NamedBytes(const std::string& entry, const std::string& target, std::uint16_t flags = 0,
                       std::uint16_t madeBy = 0x031E) {
    ZipFile zip = SmallPackageWith(kDocumentRelationshipsEntry,
                                   RelationshipsXml(RelationshipXml("rId1", kImage, target)));
    ZipEntry& picture = EntryOf(zip, kPictureEntry);
    picture.name = entry;
    picture.flags = flags;
    picture.madeBy = madeBy;
    return zip.Bytes();
}

// The same with the package related to `target`, before its document.
std::string NamedFromPackageBytes(const std::string& entry, const std::string& target,
                                  std::uint16_t madeBy = 0x031E) {
    ZipFile zip =
        SmallPackageWith(kPackageRelationshipsEntry,
                         RelationshipsXml(RelationshipXml("rId0", kImage, target) +
                                          RelationshipXml("rId1", kOfficeDocument, kDocumentEntry)));
    EntryOf(zip, kDocumentRelationshipsEntry).content = "";
    ZipEntry& picture = EntryOf(zip, kPictureEntry);
    picture.name = entry;
    picture.madeBy = madeBy;
    return zip.Bytes();
}

std::string NamedText(const std::string& name, const std::string& part) {
    const std::string relationship = kDocumentText + "word/document.xml: rId1 image -> " + name;
    return part.empty() ? relationship + ", no part\n"
                        : relationship + "\n" + name + ": " + part + "\n";
}

std::string NamedFromPackageText(const std::string& name, const std::string& part) {
    const std::string document = "word/document.xml: application/xml \"<document/>\"\n";
    const std::string text = "package: rId0 image -> " + name + (part.empty() ? ", no part" : "") +
                             "\npackage: rId1 officedocument -> word/document.xml\n";
    return part.empty() ? text + document : text + name + ": " + part + "\n" + document;
}

constexpr const char* kPixels = "image/png \"pixels\"";

CraftedPackages LengthCases() {
    return {
        {"Zero", "the part of no name, whose relationships are the package's",
         [] { return NamedFromPackageBytes("", ""); },
         "package: rId0 image -> (empty)\n"
         "package: rId1 officedocument -> word/document.xml\n"
         "(empty): (empty) \"pixels\"\n"
         "(empty): rId0 image -> (empty)\n"
         "(empty): rId1 officedocument -> word/document.xml\n"
         "word/document.xml: application/xml \"<document/>\"\n"},
        {"ZeroUnasked", "an entry without a name does not cost the others",
         PackageWith([](ZipFile& zip) { zip.Add("", "nothing"); }), SmallPackageText()},
        {"ZeroOfEveryOther", "nor do ten thousand", PackageWith([](ZipFile& zip) {
             for (int i = 0; i < 10'000; ++i) zip.Add("", "").stored = true;
         }),
         SmallPackageText()},
        {"LongestFromThePackage", "65,535 bytes: too long to have relationships of its own",
         [] {
             const std::string name = std::string(65'531, 'n') + ".png";
             return NamedFromPackageBytes(name, name);
         },
         NamedFromPackageText("nnnnnnnnnnnn...(65535 units)...nnnnnnnn.png", kPixels)},
        {"LongestFromAPart", "the same, resolved against the document",
         [] {
             return NamedBytes("word/" + std::string(65'526, 'n') + ".png",
                               std::string(65'526, 'n') + ".png");
         },
         NamedText("word/nnnnnnn...(65535 units)...nnnnnnnn.png", kPixels)},
        {"LongestMadeOfSlashes", "32,767 folders deep, none of which is made",
         [] {
             std::string name;
             for (int i = 0; i < 32'767; ++i) name += "d/";
             return NamedFromPackageBytes(name + "f", name + "f");
         },
         NamedFromPackageText("d/d/d/d/d/d/...(65535 units).../d/d/d/d/d/f", "(empty) \"pixels\"")},
        {"LongestMadeOfDots", "each pair of dots in the target climbs",
         [] { return NamedBytes(std::string(65'535, '.'), std::string(65'535, '.')); },
         NamedText(".", "")},
        {"FortyTimesTheLongest", "a directory of mostly names", PackageWith([](ZipFile& zip) {
             for (int i = 0; i < 40; ++i) {
                 zip.Add(std::string(65'532, 'n') + std::to_string(100 + i), "").stored = true;
             }
         }),
         SmallPackageText()},
    };
}

CraftedPackages NulCases() {
    return {
        {"InTheMiddle", "the name must not end there", [] { return NamedBytes("word/a\0.png"s, "a"); },
         NamedText("word/a", "")},
        {"InTheMiddleAskedForWhole", "it stands for a character that cannot be shown",
         [] { return NamedBytes("word/a\0.png"s, "a\xEF\xBF\xBD.png"); },
         NamedText("word/a\\uFFFD.png", kPixels)},
        {"AfterAnotherEntrysName", "no entry may pass for another one", PackageWith([](ZipFile& zip) {
             ZipEntry& e = zip.Add("word/a.png\0"s, "others");
             std::swap(zip.entries.front(), e);
         }),
         SmallPackageText()},
        {"AfterTheNameOfTheContentTypes", "which are then missing", PackageWith([](ZipFile& zip) {
             EntryOf(zip, kContentTypesEntry).name = "[Content_Types].xml\0"s;
         }),
         kDoesNotOpen},
        {"AfterTheNameOfTheRelationships", "which are then missing", PackageWith([](ZipFile& zip) {
             EntryOf(zip, kPackageRelationshipsEntry).name = "_rels/.rels\0.txt"s;
         }),
         kDoesNotOpen},
        {"Alone", "a name of one NUL is not the empty name",
         [] { return NamedFromPackageBytes("\0"s, ""); }, NamedFromPackageText("(empty)", "")},
        {"AlikeWithTheCharacterThatStandsForIt", "the first of the two counts",
         [] {
             ZipFile zip = SmallPackageWith(
                 kDocumentRelationshipsEntry,
                 RelationshipsXml(RelationshipXml("rId1", kImage, "\xEF\xBF\xBD.png")));
             zip.Add("word/\xEF\xBF\xBD.png", "first");
             zip.Add("word/\0.png"s, "second");
             return zip.Bytes();
         },
         NamedText("word/\\uFFFD.png", "image/png \"first\"")},
    };
}

// Names that would lead out of a folder if an archive were unpacked. Here they are names.
CraftedPackages PathCases() {
    return {
        {"ThatClimbs", "read from the archive, like any other",
         [] { return NamedFromPackageBytes("../../../etc/passwd", "../../../etc/passwd"); },
         NamedFromPackageText("../../../etc/passwd", "(empty) \"pixels\"")},
        {"ThatClimbsFromAPart", "the target is resolved, so the entry is out of reach",
         [] { return NamedBytes("../../etc/passwd", "../../etc/passwd"); },
         NamedText("etc/passwd", "")},
        {"ThatIsNotThere", "what is not in the archive is not there, whatever the system has",
         [] { return NamedFromPackageBytes("a.png", "/etc/passwd"); },
         NamedFromPackageText("/etc/passwd", "")},
        {"ThatIsAbsolute", "the slash is the target's own, so the entry is out of reach",
         [] { return NamedFromPackageBytes("/etc/passwd", "/etc/passwd"); },
         NamedFromPackageText("/etc/passwd", "")},
        {"ThatIsAbsoluteWithTwoSlashes", "of which one is the target's own",
         [] { return NamedFromPackageBytes("/etc/passwd", "//etc/passwd"); },
         NamedFromPackageText("//etc/passwd", "(empty) \"pixels\"")},
        {"ThatIsAbsoluteWithoutItsSlash", "the part is the entry, not the file of the system",
         [] { return NamedFromPackageBytes("etc/passwd", "/etc/passwd"); },
         NamedFromPackageText("/etc/passwd", "(empty) \"pixels\"")},
        {"WithADrive", "a colon makes a target absolute; backslashes are slashes to the archive",
         [] { return NamedBytes("C:/evil.png", "C:\\evil.png"); }, NamedText("C:\\evil.png", kPixels)},
        {"WithADriveFromAFatSystem", "the entry's backslash is a slash there",
         [] { return NamedBytes("C:\\evil.png", "C:/evil.png", 0, kMadeByFat); },
         NamedText("C:/evil.png", kPixels)},
        {"OfAShare", "two backslashes, one of which is the target's own",
         [] {
             return NamedFromPackageBytes("\\server\\share\\a.png", "\\\\server\\share\\a.png",
                                          kMadeByFat);
         },
         NamedFromPackageText("\\\\server\\share\\a.png", kPixels)},
        {"OfADevice", "a name is no device", [] { return NamedBytes("word/NUL", "NUL"); },
         NamedText("word/NUL", "(empty) \"pixels\"")},
        {"OfThisFolder", "a dot is a name", [] { return NamedBytes("word/.", "."); },
         NamedText("word/.", "(empty) \"pixels\"")},
        {"OfAFolder", "an entry that ends in a slash is a part like another",
         [] { return NamedBytes("word/folder/", "folder/"); },
         NamedText("word/folder/", "(empty) \"pixels\"")},
        {"WithALineFeed", "and a tab, and a quote",
         [] { return NamedBytes("word/a\n\t\".png", "a&#10;&#9;&quot;.png"); },
         NamedText("word/a\\u000A\\u0009\".png", kPixels)},
        {"OfAUrl", "is not fetched",
         [] { return NamedBytes("http://e.org/a.png", "http://e.org/a.png"); },
         NamedText("http://e.org/a.png", kPixels)},
        {"OfAFileUrl", "is not opened", [] { return NamedBytes("word/a.png", "file:///etc/passwd"); },
         NamedText("file:///etc/passwd", "")},
    };
}

CraftedPackages EncodingCases() {
    return {
        {"CodePage437", "bytes that are no UTF-8 are the old code page's",
         [] { return NamedBytes("word/\x82\xFE\x80.png", "\u00E9\u25A0\u00C7.png"); },
         NamedText("word/\\u00E9\\u25A0\\u00C7.png", kPixels)},
        {"Utf8WithoutItsFlag", "most writers leave the flag out",
         [] { return NamedBytes("word/\u00E9\U0001F600.png", "\u00E9\U0001F600.png"); },
         NamedText("word/\\u00E9\\uD83D\\uDE00.png", kPixels)},
        {"Utf8WithItsFlag", "as the flag says",
         [] { return NamedBytes("word/\u00E9.png", "\u00E9.png", kUtf8Flag); },
         NamedText("word/\\u00E9.png", kPixels)},
        {"InvalidUtf8WithTheFlag", "the flag lies, and the code page keeps the name",
         [] { return NamedBytes("word/\x82.png", "\u00E9.png", kUtf8Flag); },
         NamedText("word/\\u00E9.png", kPixels)},
        {"AnOverlongSlash", "two bytes for a slash are no slash",
         [] {
             return NamedBytes(
                 "word\xC0\xAF"
                 "a.png",
                 "a.png");
         },
         NamedText("word/a.png", "")},
        {"AnOverlongNul", "two bytes for a NUL are two characters",
         [] { return NamedBytes("word/\xC0\x80.png", "\u2514\u00C7.png"); },
         NamedText("word/\\u2514\\u00C7.png", kPixels)},
        {"ASurrogate", "three bytes for half a character are three characters",
         [] { return NamedBytes("word/\xED\xA0\x80.png", "\u03C6\u00E1\u00C7.png"); },
         NamedText("word/\\u03C6\\u00E1\\u00C7.png", kPixels)},
        {"BeyondUnicode", "four bytes for a character that there is not",
         [] { return NamedBytes("word/\xF4\x90\x80\x80.png", "\u2320\u00C9\u00C7\u00C7.png"); },
         NamedText("word/\\u2320\\u00C9\\u00C7\\u00C7.png", kPixels)},
        {"ACutCharacter", "a name that ends within a character",
         [] { return NamedBytes("word/\xE2\x82", "\u0393\u00E9"); },
         NamedText("word/\\u0393\\u00E9", "(empty) \"pixels\"")},
        {"AByteOrderMarkInside", "is a character",
         [] { return NamedBytes("word/\uFEFFa.png", "\uFEFFa.png"); },
         NamedText("word/\\uFEFFa.png", kPixels)},
        {"AByteOrderMarkInFront", "is listed, and lost when the entry is asked for",
         [] { return NamedFromPackageBytes("\uFEFFa.png", "\uFEFFa.png"); },
         NamedFromPackageText("\\uFEFFa.png", "image/png no stream")},
        {"AMirroredExtension", "an override of direction is a character",
         [] { return NamedBytes("word/gnp.\u202Ea", "gnp.\u202Ea"); },
         NamedText("word/gnp.\\u202Ea", "(empty) \"pixels\"")},
    };
}

// The entry is asked for by a pattern, but a name that is there is never taken for one.
CraftedPackages WildcardCases() {
    constexpr const char* kEscaped = "\\[Content_Types\\].xml";
    const auto named = [](const std::string& name) {
        return [name] {
            ZipFile zip = SmallPackageWith(kDocumentRelationshipsEntry,
                                           RelationshipsXml(RelationshipXml("rId1", kImage, name)));
            zip.Add("word/" + name, "named so");
            return zip.Bytes();
        };
    };
    const auto text = [](const std::string& name) {
        return NamedText("word/" + name, "image/png \"named so\"");
    };
    return {
        {"Star", "not the first picture", named("*.png"), text("*.png")},
        {"QuestionMark", "not the one of one letter", named("?.png"), text("?.png")},
        {"Class", "not the one of a letter of the class", named("[a].png"), text("[a].png")},
        {"NegatedClass", "not the one of another letter", named("[!b].png"), text("[!b].png")},
        {"UnclosedClass", "a bracket alone is a name", named("[a.png"), text("[a.png")},
        {"StarOnly", "whose own relationship stream is looked for by a name that matches another",
         named("*"), NamedText("word/*", "(empty) \"named so\"") + "word/*: rId1 image -> word/*\n"},
        {"ThousandStars", "matching them is not tried",
         [named] { return named(std::string(1000, '*') + ".png")(); },
         NamedText("word/*******...(1009 units)...********.png", "image/png \"named so\"")},
        {"NotThere", "a target that no entry has is no part, whatever it would match",
         [] { return NamedBytes("word/a.png", "*.png"); }, NamedText("word/*.png", "")},
        {"OfARelationshipStream", "a part named so takes the relationships that its name matches",
         [] {
             ZipFile zip = SmallPackageWith(
                 kPackageRelationshipsEntry,
                 RelationshipsXml(RelationshipXml("rId1", kOfficeDocument, "word/*.xml")));
             EntryOf(zip, kDocumentEntry).name = "word/*.xml";
             return zip.Bytes();
         },
         "package: rId1 officedocument -> word/*.xml\n"
         "word/*.xml: application/xml \"<document/>\"\n"
         "word/*.xml: rId1 image -> word/a.png\n"
         "word/a.png: image/png \"pixels\"\n"},
        {"InsteadOfTheContentTypes", "their brackets are no class that a letter would match",
         PackageWith([](ZipFile& zip) { EntryOf(zip, kContentTypesEntry).name = "C.xml"; }),
         kDoesNotOpen},
        {"EscapedInstead", "nor are they the escapes that they are asked for with",
         PackageWith([](ZipFile& zip) { EntryOf(zip, kContentTypesEntry).name = kEscaped; }),
         kDoesNotOpen},
        {"EscapedBesides", "an entry of the pattern's own text is another one",
         PackageWith([](ZipFile& zip) { zip.Add(kEscaped, "<Types"); }), SmallPackageText()},
    };
}

INSTANTIATE_TEST_SUITE_P(ZipNameLength, HostilePackage, testing::ValuesIn(LengthCases()), NameOfCase);
INSTANTIATE_TEST_SUITE_P(ZipNul, HostilePackage, testing::ValuesIn(NulCases()), NameOfCase);
INSTANTIATE_TEST_SUITE_P(ZipName, HostilePackage, testing::ValuesIn(PathCases()), NameOfCase);
INSTANTIATE_TEST_SUITE_P(ZipNameOf, HostilePackage, testing::ValuesIn(EncodingCases()), NameOfCase);
INSTANTIATE_TEST_SUITE_P(ZipWildcard, HostilePackage, testing::ValuesIn(WildcardCases()), NameOfCase);

}  // namespace

// Targets that lead nowhere, or where one would not expect.

#include <string>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/relationships/RelatedPackage.h"

namespace {

using namespace vexpa_test;

std::string Repeat(std::string_view text, int count) {
    std::string repeated;
    for (int i = 0; i < count; ++i) repeated += text;
    return repeated;
}

std::function<std::string()> DocumentTo(std::string target) {
    return [target = std::move(target)] {
        return DocumentRelated(RelationshipXml("rId1", kImage, target))();
    };
}

std::string TargetText(const std::string& resolved, const std::string& part = "") {
    return kDocumentText + "word/document.xml: rId1 image -> " + resolved +
           (part.empty() ? ", no part\n" : "\n" + resolved + ": " + part + "\n");
}

ZipFile ToItsOwnStream() {
    return SmallPackageWith(
        kDocumentRelationshipsEntry,
        RelationshipsXml(RelationshipXml("rId1", kImage, "_rels/document.xml.rels")));
}

constexpr const char* kPixels = "image/png \"pixels\"";

CraftedPackages TargetCases() {
    return {
        {"Dangling", "an entry that is not there", DocumentTo("b.png"), TargetText("word/b.png")},
        {"NullInLetters", "what some writers leave of a picture they lost", DocumentTo("NULL"),
         TargetText("word/NULL")},
        {"ADot", "is not resolved", DocumentTo("."), TargetText("word/.")},
        {"TwoDots", "climb to nothing", DocumentTo(".."), TargetText("(empty)")},
        {"ThreeDots", "climb once, and leave a dot", DocumentTo("..."), TargetText(".")},
        {"ASlash", "the root, which is no entry", DocumentTo("/"), TargetText("(empty)")},
        {"TwoSlashes", "one of which stays", DocumentTo("//"), TargetText("/")},
        {"ADotSegment", "is not removed", DocumentTo("./a.png"), TargetText("word/./a.png")},
        {"AStepUpAndDown", "leads back", DocumentTo("../word/a.png"),
         TargetText("word/a.png", kPixels)},
        {"StepsBehindAName", "lead up as far as they are many", DocumentTo("x/../../word/a.png"),
         TargetText("word/a.png", kPixels)},
        {"DotsInsideAName", "climb as if they were a segment", DocumentTo("b..word/a.png"),
         TargetText("word/a.png", kPixels)},
        {"AThousandStepsUp", "do not leave the package",
         [] { return DocumentTo(Repeat("../", 1000) + "word/a.png")(); },
         TargetText("word/a.png", kPixels)},
        {"AHundredThousandStepsUp", "nor does it take long to find out",
         [] { return DocumentTo(Repeat("../", 100'000) + "word/a.png")(); },
         TargetText("word/a.png", kPixels)},
        {"AHundredThousandUnits", "a name that no entry can have",
         [] { return DocumentTo(std::string(100'000, 'x'))(); },
         TargetText("word/xxxxxxx...(100005 units)...xxxxxxxxxxxx")},
        {"AHundredThousandSegments", "nor this one",
         [] { return DocumentTo(Repeat("x/", 100'000) + "a.png")(); },
         TargetText("word/x/x/x/x...(200010 units).../x/x/x/a.png")},
        {"AHundredThousandEscapes", "escapes are kept in the name",
         [] { return DocumentTo(Repeat("%41", 100'000))(); },
         TargetText("word/%41%41%...(300005 units)...%41%41%41%41")},
        {"AHundredThousandColons", "and make no URI",
         [] { return DocumentTo("x/" + std::string(100'000, ':'))(); },
         TargetText("word/x/:::::...(100007 units)...::::::::::::")},
        {"ABackslash", "separates like a slash when the entry is looked for",
         DocumentTo("..\\word\\a.png"), TargetText("word\\a.png", kPixels)},
        {"OnlyBackslashes", "are slashes", DocumentTo("\\\\\\"), TargetText("word/\\\\\\")},
        {"AFragment", "stays in the name", DocumentTo("a.png#top"), TargetText("word/a.png#top")},
        {"AFragmentAlone", "a link within the document", DocumentTo("#top"), TargetText("word/#top")},
        {"AQuery", "stays in the name", DocumentTo("a.png?x=1"), TargetText("word/a.png?x=1")},
        {"AnEscape", "is not decoded", DocumentTo("%61.png"), TargetText("word/%61.png")},
        {"ABlankInFront", "is not trimmed", DocumentTo(" a.png"), TargetText("word/\\u0020a.png")},
        {"AnotherCase", "is another name", DocumentTo("A.png"), TargetText("word/A.png")},
        {"AScheme", "makes it absolute, and no part", DocumentTo("pack:/word/a.png"),
         TargetText("pack:/word/a.png")},
        {"AColonAlone", "is a scheme of no name, and absolute", DocumentTo(":a.png"),
         TargetText(":a.png")},
        {"TheContentTypes", "an entry is an entry", DocumentTo("/[Content_Types].xml"),
         TargetText("[Content_Types].xml",
                    "application/xml " + StreamText(SmallPackage(), kContentTypesEntry))},
        {"TheDocumentItself", "a part may be related to itself", DocumentTo("document.xml"),
         kDocumentText + "word/document.xml: rId1 image -> word/document.xml\n"},
        {"ItsOwnRelationshipStream", "which is a part like another",
         [] { return ToItsOwnStream().Bytes(); },
         TargetText("word/_rels/document.xml.rels",
                    "(empty) " + StreamText(ToItsOwnStream(), kDocumentRelationshipsEntry))},
        {"ThePackageRelationships", "and so is this", DocumentTo("/_rels/.rels"),
         TargetText("_rels/.rels",
                    "(empty) " + StreamText(SmallPackage(), kPackageRelationshipsEntry))},
        {"AnUnknownScript", "names are Unicode", DocumentTo("\u0430.png"),
         TargetText("word/\\u0430.png")},
        {"HalfASurrogatePair", "is no XML", DocumentTo("&#xD800;.png"), kDocumentText},
    };
}

INSTANTIATE_TEST_SUITE_P(RelationshipTarget, HostilePackage, testing::ValuesIn(TargetCases()),
                         NameOfCase);
}  // namespace

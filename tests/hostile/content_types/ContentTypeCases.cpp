// [Content_Types].xml: its XML, rules in conflict, rules that match nothing, and very many rules.

#include <string>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/SmallPackage.h"

namespace {

using namespace vexpa_test;

// The small package with these rules, or with this for the whole entry.
std::function<std::string()> Rules(std::string rules) {
    return [rules = std::move(rules)] {
        return SmallPackageWith(kContentTypesEntry, "<Types>" + rules + "</Types>").Bytes();
    };
}
std::function<std::string()> Whole(std::string xml) {
    return [xml = std::move(xml)] { return SmallPackageWith(kContentTypesEntry, xml).Bytes(); };
}

std::string Default(std::string_view extension, std::string_view type) {
    return "<Default Extension=\"" + std::string(extension) + "\" ContentType=\"" + std::string(type) +
           "\"/>";
}
std::string Override(std::string_view partName, std::string_view type) {
    return "<Override PartName=\"" + std::string(partName) + "\" ContentType=\"" + std::string(type) +
           "\"/>";
}

// What reading gives when the document and the picture have these types.
std::string TypesText(const std::string& document, const std::string& picture = "(empty)") {
    return "package: rId1 officedocument -> word/document.xml\n"
           "word/document.xml: " +
           document +
           " \"<document/>\"\n"
           "word/document.xml: rId1 image -> word/a.png\n"
           "word/a.png: " +
           picture + " \"pixels\"\n";
}

const std::string kNoTypes = TypesText("(empty)", "(empty)");

// The small package whose picture has this name, and these rules.
std::function<std::string()> RulesForPicture(std::string name, std::string rules) {
    return [name = std::move(name), rules = std::move(rules)] {
        ZipFile zip = SmallPackageWith(kContentTypesEntry, "<Types>" + rules + "</Types>");
        EntryOf(zip, kDocumentRelationshipsEntry).content =
            "<Relationship Id=\"rId1\" Type=\"" + std::string(kImage) + "\" Target=\"/" + name + "\"/>";
        EntryOf(zip, kPictureEntry).name = name;
        return zip.Bytes();
    };
}
std::string PictureTypeText(const std::string& name, const std::string& type) {
    return "package: rId1 officedocument -> word/document.xml\n"
           "word/document.xml: (empty) \"<document/>\"\n"
           "word/document.xml: rId1 image -> " +
           name + "\n" + name + ": " + type + " \"pixels\"\n";
}

CraftedPackages EntryCases() {
    return {
        {"Missing", "a package without content types is none",
         PackageWith([](ZipFile& zip) { zip.entries.erase(zip.entries.begin()); }), kDoesNotOpen},
        {"InTheLastEntry", "its place in the archive does not count",
         PackageWith([](ZipFile& zip) { std::swap(zip.entries.front(), zip.entries.back()); }),
         SmallPackageText()},
        {"InLowerCase", "its name is matched exactly", PackageWith([](ZipFile& zip) {
             EntryOf(zip, kContentTypesEntry).name = "[content_types].xml";
         }),
         kDoesNotOpen},
        {"WithASlashInFront", "its name is matched exactly", PackageWith([](ZipFile& zip) {
             EntryOf(zip, kContentTypesEntry).name = "/[Content_Types].xml";
         }),
         kDoesNotOpen},
        {"InAFolder", "nor is it sought in folders", PackageWith([](ZipFile& zip) {
             EntryOf(zip, kContentTypesEntry).name = "word/[Content_Types].xml";
         }),
         kDoesNotOpen},
        {"OfNoBytes", "is no document", Whole(""), kDoesNotOpen},
        {"OfBlanks", "is no document", Whole(" \n "), kDoesNotOpen},
        {"NotXml", "is no document", Whole("\x89PNG"), kDoesNotOpen},
        {"CutOff", "rules before the cut do not count either", Whole("<Types>" + Default("xml", "a/b")),
         kDoesNotOpen},
        {"OfAnEmptyRoot", "no rules are no failure", Whole("<Types/>"), kNoTypes},
        {"OfAnotherRoot", "the root is not asked", Whole("<html>" + Default("xml", "a/b") + "</html>"),
         TypesText("a/b")},
        {"OfARuleForRoot", "nor need there be another one", Whole(Default("xml", "a/b")),
         TypesText("a/b")},
        {"OfAnotherNamespace", "nor is the namespace",
         Whole(
             "<t:Types xmlns:t=\"urn:t\"><t:Default Extension=\"xml\" ContentType=\"a/b\"/></t:Types>"),
         TypesText("a/b")},
        {"OfNestedRules", "a rule inside another one counts",
         Rules("<Default Extension=\"png\" ContentType=\"c/d\">" + Default("xml", "a/b") +
               "</Default>"),
         TypesText("a/b", "c/d")},
        {"InComments", "a rule in a comment does not", Rules("<!--" + Default("xml", "a/b") + "-->"),
         kNoTypes},
        {"InLowerCaseElements", "element names are matched exactly",
         Rules("<default Extension=\"xml\" ContentType=\"a/b\"/>"
               "<OVERRIDE PartName=\"/word/a.png\" ContentType=\"a/b\"/>"),
         kNoTypes},
    };
}

CraftedPackages ConflictCases() {
    return {
        {"OfTwoDefaults", "the first one counts", Rules(Default("xml", "a/b") + Default("xml", "c/d")),
         TypesText("a/b")},
        {"OfTwoOverrides", "the first one counts",
         Rules(Override("/word/document.xml", "a/b") + Override("/word/document.xml", "c/d")),
         TypesText("a/b")},
        {"OfTwoOverridesWithAndWithoutASlash", "they name one part",
         Rules(Override("word/document.xml", "a/b") + Override("/word/document.xml", "c/d")),
         TypesText("a/b")},
        {"OfADefaultAndAnOverride", "the override wins, wherever it stands",
         Rules(Default("xml", "a/b") + Override("/word/document.xml", "c/d")), TypesText("c/d")},
        {"OfAnOverrideAndADefault", "the override wins, wherever it stands",
         Rules(Override("/word/document.xml", "c/d") + Default("xml", "a/b")), TypesText("c/d")},
        {"OfAnEmptyOverrideAndADefault", "also when it says nothing",
         Rules(Override("/word/document.xml", "") + Default("xml", "a/b")), kNoTypes},
        {"OfDefaultsInTwoCases", "are two rules, of which one fits",
         Rules(Default("XML", "a/b") + Default("xml", "c/d")), TypesText("c/d")},
        {"OfAnIncompleteDefaultAndAWholeOne", "the incomplete one is none",
         Rules("<Default Extension=\"xml\"/>" + Default("xml", "a/b")), TypesText("a/b")},
        {"OfManyOverridesOfOnePart", "the first of fifty thousand",
         [] {
             std::string rules;
             for (int i = 0; i < 50'000; ++i)
                 rules += Override("/word/document.xml", "a/" + std::to_string(i));
             return Rules(rules)();
         },
         TypesText("a/0")},
        {"OfManyDefaultsOfOneExtension", "the first of fifty thousand",
         [] {
             std::string rules;
             for (int i = 0; i < 50'000; ++i) rules += Default("xml", "a/" + std::to_string(i));
             return Rules(rules)();
         },
         TypesText("a/0")},
    };
}

CraftedPackages RuleCases() {
    return {
        {"WithoutAPartName", "is none", Rules("<Override ContentType=\"a/b\"/>"), kNoTypes},
        {"WithoutAnExtension", "is none", Rules("<Default ContentType=\"a/b\"/>"), kNoTypes},
        {"WithoutAContentType", "is none",
         Rules("<Override PartName=\"/word/document.xml\"/><Default Extension=\"xml\"/>"), kNoTypes},
        {"WithoutAttributes", "is none", Rules("<Default/><Override/>"), kNoTypes},
        {"WithAttributesInLowerCase", "attribute names are matched exactly",
         Rules("<Default extension=\"xml\" contenttype=\"a/b\"/>"), kNoTypes},
        {"WithAttributesOfTheOtherKind", "a part name is no extension",
         Rules("<Default PartName=\"/word/document.xml\" ContentType=\"a/b\"/>"
               "<Override Extension=\"xml\" ContentType=\"a/b\"/>"),
         kNoTypes},
        {"WithEmptyAttributes", "match the part of no name, and no other",
         Rules(Default("", "a/b") + Override("", "a/b") + Override("/", "a/b")), kNoTypes},
        {"WithADotBeforeTheExtension", "the dot is no part of an extension",
         Rules(Default(".xml", "a/b")), kNoTypes},
        {"WithABlankBehindTheExtension", "nothing is trimmed", Rules(Default("xml ", "a/b")), kNoTypes},
        {"WithAWildcard", "a star is a star", Rules(Default("*", "a/b") + Override("/word/*", "a/b")),
         kNoTypes},
        {"ForAnotherCase", "part names are compared exactly",
         Rules(Override("/Word/Document.xml", "a/b") + Default("Xml", "c/d")), kNoTypes},
        {"WithABackslashInFront", "which counts as the slash",
         Rules(Override("\\word/document.xml", "a/b")), TypesText("a/b")},
        {"WithBackslashesInside", "which do not", Rules(Override("\\word\\document.xml", "a/b")),
         kNoTypes},
        {"WithTwoSlashesInFront", "of which one counts", Rules(Override("//word/document.xml", "a/b")),
         kNoTypes},
        {"WithAnEscape", "which is not decoded", Rules(Override("/word/document%2Exml", "a/b")),
         kNoTypes},
        {"WithADotSegment", "which is not resolved", Rules(Override("/word/./document.xml", "a/b")),
         kNoTypes},
        {"WithAReference", "which is what it stands for",
         Rules(Override("/word/document&#46;xml", "a&#47;b")), TypesText("a/b")},
        {"ForAMissingPart", "costs nothing", Rules(Override("/missing", "a/b")), kNoTypes},
        {"WithATypeThatIsNone", "types are not checked",
         Rules(Default("xml", "&lt;script&gt;") + Default("png", "\u00E9&#10;")),
         TypesText("<script>", "\\u00E9\\u000A")},
        {"WithALongType", "a hundred thousand units of it",
         [] { return Rules(Default("xml", std::string(100'000, 't')))(); },
         TypesText("tttttttttttt...(100000 units)...tttttttttttt")},
        {"WithALongPartName", "a hundred thousand units of it",
         [] { return Rules(Override("/" + std::string(100'000, 'n'), "a/b"))(); }, kNoTypes},
        {"WithALongExtension", "a hundred thousand units of it",
         [] { return Rules(Default(std::string(100'000, 'n'), "a/b") + Default("xml", "c/d"))(); },
         TypesText("c/d")},
    };
}

CraftedPackages DotCases() {
    return {
        {"None", "a name without a dot is its own extension",
         RulesForPicture("word/readme", Default("word/readme", "a/b")),
         PictureTypeText("word/readme", "a/b")},
        {"NoneAndARuleForItsLastSegment", "the whole name is, with its folder",
         RulesForPicture("word/readme", Default("readme", "a/b")),
         PictureTypeText("word/readme", "(empty)")},
        {"OneInTheFolder", "the extension reaches over the slash",
         RulesForPicture("word.d/readme", Default("d/readme", "a/b")),
         PictureTypeText("word.d/readme", "a/b")},
        {"OneAtTheEnd", "the extension is empty", RulesForPicture("word/a.", Default("", "a/b")),
         PictureTypeText("word/a.", "a/b")},
        {"OneInFront", "the rest is the extension", RulesForPicture(".rels", Default("rels", "a/b")),
         PictureTypeText(".rels", "a/b")},
        {"Several", "the last one begins the extension",
         RulesForPicture("word/a.tar.gz", Default("tar.gz", "a/b") + Default("gz", "c/d")),
         PictureTypeText("word/a.tar.gz", "c/d")},
        {"Only", "and nothing else", RulesForPicture("...", Default("", "a/b") + Default(".", "c/d")),
         PictureTypeText("...", "a/b")},
    };
}

// Rules by the fifty thousand; the ones that fit stand first, in the middle and last.
CraftedPackages ManyCases() {
    const auto many = [](const std::string& first, const std::string& middle, const std::string& last) {
        return [=] {
            std::string rules = first;
            for (int i = 0; i < 50'000; ++i) {
                const std::string number = std::to_string(i);
                rules += i % 2 == 0 ? Override("/word/p" + number + ".xml", "x/" + number)
                                    : Default("e" + number, "x/" + number);
                if (i == 25'000) rules += middle;
            }
            return Rules(rules + last)();
        };
    };
    const std::string document = Override("/word/document.xml", "a/b");
    const std::string picture = Default("png", "c/d");
    return {
        {"BehindTheOnesThatFit", "fifty thousand rules for nothing", many(document + picture, "", ""),
         TypesText("a/b", "c/d")},
        {"AroundTheOnesThatFit", "fifty thousand rules for nothing", many("", document + picture, ""),
         TypesText("a/b", "c/d")},
        {"BeforeTheOnesThatFit", "fifty thousand rules for nothing", many("", "", document + picture),
         TypesText("a/b", "c/d")},
        {"OfPartsThatAreNot", "fifty thousand names, of which one is there",
         [] {
             std::string rules;
             for (int i = 0; i < 50'000; ++i) {
                 rules += Override("/word/p" + std::to_string(i) + ".xml", "x/y");
                 if (i == 25'000) rules += Override("/word/document.xml", "a/b");
             }
             return Rules(rules)();
         },
         TypesText("a/b")},
        {"OfNamesThatGrow", "three hundred names of a unit more each",
         [] {
             std::string rules;
             for (std::size_t size = 1; size <= 300; ++size) {
                 rules += Override("/" + std::string(size, 'n'), "x/y");
             }
             return Rules(rules + Default("xml", "a/b"))();
         },
         TypesText("a/b")},
        {"WithoutAttributes", "a hundred thousand rules that are none",
         [] {
             std::string rules;
             for (int i = 0; i < 50'000; ++i) rules += "<Default/><Override/>";
             return Rules(rules + Default("xml", "a/b"))();
         },
         TypesText("a/b")},
    };
}

INSTANTIATE_TEST_SUITE_P(ContentTypes, HostilePackage, testing::ValuesIn(EntryCases()), NameOfCase);
INSTANTIATE_TEST_SUITE_P(ContentTypeConflict, HostilePackage, testing::ValuesIn(ConflictCases()),
                         NameOfCase);
INSTANTIATE_TEST_SUITE_P(ContentTypeRule, HostilePackage, testing::ValuesIn(RuleCases()), NameOfCase);
INSTANTIATE_TEST_SUITE_P(ContentTypeDots, HostilePackage, testing::ValuesIn(DotCases()), NameOfCase);
INSTANTIATE_TEST_SUITE_P(ManyContentTypes, HostilePackage, testing::ValuesIn(ManyCases()), NameOfCase);

}  // namespace

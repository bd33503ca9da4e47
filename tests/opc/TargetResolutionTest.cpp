#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/opc/ResolveTarget.h"
#include "tests/support/FaultRuntime.h"

namespace {

using vexpa_test::ResolveTarget;

struct Resolution {
    const char* shows;
    const char16_t* source;
    const char16_t* target;
    const char16_t* result;
};

void ExpectAll(const std::initializer_list<Resolution>& rows) {
    for (const Resolution& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(ResolveTarget(row.source, row.target), row.result);
    }
}

std::u16string Repeat(std::u16string_view text, std::size_t count) {
    std::u16string result;
    for (std::size_t i = 0; i < count; ++i) result += text;
    return result;
}

constexpr char16_t kDocument[] = u"/word/document.xml";
constexpr char16_t kSlide[] = u"/ppt/slides/slide1.xml";

TEST(ResolveTarget, TakesOneLeadingSlashOffAnAbsoluteTarget) {
    ExpectAll({
        {"from a part", kDocument, u"/word/styles.xml", u"word/styles.xml"},
        {"from a part without a leading slash", u"a.xml", u"/word/styles.xml", u"word/styles.xml"},
        {"a second slash stays", kDocument, u"//x", u"/x"},
        {"a second separator of the other kind too", kDocument, u"/\\x", u"\\x"},
        {"steps up are not followed", kDocument, u"/a/../b", u"a/../b"},
        {"a colon after it is part of the name", kDocument, u"/a:b", u"a:b"},
        {"a slash alone leaves nothing", kDocument, u"/", u""},
    });
}

TEST(ResolveTarget, LeavesAUriAsItIs) {
    ExpectAll({
        {"scheme and host", kDocument, u"http://example.org/x", u"http://example.org/x"},
        {"a colon before the first slash", kDocument, u"x:y/z", u"x:y/z"},
        {"a colon and no separator", kDocument, u"mailto:a@example.org", u"mailto:a@example.org"},
        {"a colon before the first backslash", kDocument, u"C:\\a\\b", u"C:\\a\\b"},
        {"a backslash counts only without a slash", kDocument, u"a\\b:c/d", u"a\\b:c/d"},
        {"also a leading one", kDocument, u"\\a:b/c", u"\\a:b/c"},
        {"steps up stay in it", kDocument, u"x:../y", u"x:../y"},
        {"a leading colon is before everything", kDocument, u":a/b", u":a/b"},
        {"a colon alone", kDocument, u":", u":"},
    });
}

TEST(ResolveTarget, TakesAColonBehindASeparatorForPartOfAName) {
    ExpectAll({
        {"slash first", kDocument, u"a/b:c", u"word/a/b:c"},
        {"backslash first, without a slash", kDocument, u"a\\b:c", u"word/a\\b:c"},
        {"leading backslash, without a slash", kDocument, u"\\a:b", u"word/\\a:b"},
    });
}

TEST(ResolveTarget, AppendsARelativeTargetToTheDirectoryOfTheSource) {
    ExpectAll({
        {"an image", kDocument, u"media/image1.png", u"word/media/image1.png"},
        {"a source in the root", u"/document.xml", u"a.xml", u"a.xml"},
        {"a source without a directory", u"document.xml", u"a.xml", u"a.xml"},
        {"a source without a leading slash", u"word/document.xml", u"a.xml", u"word/a.xml"},
        {"a directory in backslashes", u"\\word\\document.xml", u"a.xml", u"word/a.xml"},
        {"one separator is taken off the directory", u"/word//document.xml", u"a.xml", u"word//a.xml"},
        {"and one off the result", u"//word/document.xml", u"a.xml", u"/word/a.xml"},
        {"a drive letter is ordinary text", u"C:\\word\\document.xml", u"a.xml", u"C:\\word/a.xml"},
        {"a single dot stays", kDocument, u"./a.xml", u"word/./a.xml"},
        {"an escape and a fragment stay", kDocument, u"a%20b.xml#c", u"word/a%20b.xml#c"},
        {"a backslash in front stays", kDocument, u"\\a.xml", u"word/\\a.xml"},
        {"which is the one taken off without a directory", u"a", u"\\b.xml", u"\\b.xml"},
        {"the empty target is the directory", kDocument, u"", u"word/"},
        {"the empty target of a source in the root", u"/a.xml", u"", u""},
    });
}

TEST(ResolveTarget, ClimbsADirectoryForEachStepUp) {
    ExpectAll({
        {"one", kDocument, u"../customXml/item1.xml", u"customXml/item1.xml"},
        {"one of two", kSlide, u"../media/image1.png", u"ppt/media/image1.png"},
        {"both", kSlide, u"../../x.xml", u"x.xml"},
        {"backslashes separate too", u"\\ppt\\slides\\slide1.xml", u"..\\x.xml", u"ppt\\x.xml"},
        {"what stands between the steps is dropped", kSlide, u"../a/b/../x.xml", u"x.xml"},
        {"what stands before them too", kDocument, u"a/../x.xml", u"x.xml"},
        {"nothing behind them", kSlide, u"..", u"ppt"},
        {"a source without a directory", u"slide1.xml", u"../x.xml", u"x.xml"},
        {"a source in the root", u"/slide1.xml", u"../../x.xml", u"x.xml"},
    });
}

TEST(ResolveTarget, TwoDotsInsideAFileNameClimb) {
    ExpectAll({
        {"in the middle", kDocument, u"a..b.xml", u"b.xml"},
        {"the tail is joined without a slash", kSlide, u"a..b.xml", u"pptb.xml"},
        {"three dots are one step and a dot", kSlide, u".../x.xml", u"ppt./x.xml"},
        {"four dots are two steps", kSlide, u"..../x.xml", u"x.xml"},
        {"five dots are two steps and a dot", kSlide, u"...../x.xml", u"./x.xml"},
    });
}

TEST(ResolveTarget, StepsBeyondTheRootBeginAgainAtTheEnd) {
    ExpectAll({
        {"the third of two", kSlide, u"../../../x.xml", u"ppt/x.xml"},
        {"the fourth of two", kSlide, u"../../../../x.xml", u"x.xml"},
        {"the only one again and again", kDocument, u"../../../x.xml", u"x.xml"},
        {"three levels, four steps", u"/a/b/c/d.xml", u"../../../../x.xml", u"a/b/x.xml"},
    });
}

TEST(ResolveTarget, StepsBeyondARelativeDirectoryStayAtItsFirstSeparator) {
    ExpectAll({
        {"two steps", u"ppt/slides/slide1.xml", u"../../x.xml", u"ppt/x.xml"},
        {"five steps", u"ppt/slides/slide1.xml", u"../../../../../x.xml", u"ppt/x.xml"},
        {"no separator at all", u"ppt/slide1.xml", u"../x.xml", u"x.xml"},
        {"nor for more steps", u"ppt/slide1.xml", u"../../x.xml", u"x.xml"},
    });
}

TEST(ResolveTarget, AnExternalTargetWithoutASchemeIsResolvedLikeAnyOther) {
    EXPECT_EQ(ResolveTarget(kDocument, u"other.docx"), u"word/other.docx");
}

TEST(ResolveTarget, UsesADirectoryThatJustFitsItsBuffer) {
    const std::u16string directory = u"/" + std::u16string(4093, u'a');
    const std::u16string source = directory + u"/x.xml";
    EXPECT_EQ(ResolveTarget(source, u"y.xml"), directory.substr(1) + u"/y.xml");
}

TEST(ResolveTarget, TakesADirectoryWithoutASeparatorAtItsEndAsWell) {
    vexpa_test::FaultRuntime platform;
    platform.AnswerSplitPath(u"/word");
    EXPECT_EQ(ResolveTarget(kDocument, u"styles.xml"), u"word/styles.xml");
    platform.AnswerSplitPath(u"");
    EXPECT_EQ(ResolveTarget(kDocument, u"styles.xml"), u"styles.xml");
}

TEST(ResolveTarget, TakesADirectoryThatDoesNotFitForTheRoot) {
    const std::u16string source = u"/" + std::u16string(4094, u'a') + u"/x.xml";
    EXPECT_EQ(ResolveTarget(source, u"y.xml"), u"y.xml");
    EXPECT_EQ(ResolveTarget(source, u"../y.xml"), u"y.xml");
}

TEST(ResolveTarget, CountsStepsByTheTensOfThousands) {
    // 2,000 levels: after 50,001 steps the searches have gone round 25 times, and one more.
    const std::u16string source = Repeat(u"/a", 2000) + u"/x.xml";
    const std::u16string result = Repeat(u"/a", 1999).substr(1) + u"/y.xml";
    EXPECT_EQ(ResolveTarget(source, Repeat(u"../", 50001) + u"y.xml"), result);
}

TEST(ResolveTarget, KeepsALongTargetWhole) {
    const std::u16string target(100000, u'b');
    EXPECT_EQ(ResolveTarget(kDocument, target), u"word/" + target);
}

}  // namespace

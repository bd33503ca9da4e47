#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/opc/PackageFile.h"
#include "tests/tool/RunTool.h"
#include "tool/model/PrettyXml.h"
#include "tool/model/XmlElements.h"
#include "tool/model/XmlMarkup.h"
#include "vexpa/opc/Part.h"

namespace {

using namespace vexpa_tool;
using vexpa_test::MinimalPackage;
using vexpa_test::PackageFile;
using vexpa_test::RunTool;

struct PrettyRow {
    const char* shows;
    std::string xml;
    std::string pretty;
};

TEST(PrettyXml, HasALineForEachTagAndLeavesWhatMayHaveAMeaning) {
    const PrettyRow rows[] = {
        {"elements", "<a><b/><c><d/></c></a>", "<a>\n  <b/>\n  <c>\n    <d/>\n  </c>\n</a>\n"},
        {"what was indented before", "<a>\n\n <b/>\r\n</a>\n\n", "<a>\n  <b/>\n</a>\n"},
        {"text stays with its tags", "<a><t>x y</t></a>", "<a>\n  <t>x y</t>\n</a>\n"},
        {"blanks alone may be text", "<a><t> </t><t>\n</t></a>",
         "<a>\n  <t> </t>\n  <t>\n</t>\n</a>\n"},
        {"an element with nothing in it", "<a><t></t></a>", "<a>\n  <t></t>\n</a>\n"},
        {"text beside elements", "<a>x <b/> <c><d/></c></a>", "<a>x <b/> <c>\n    <d/>\n  </c></a>\n"},
        {"text after the last element", "<a> <b/> x</a>", "<a> <b/> x</a>\n"},
        {"preserved blanks", "<a xml:space='preserve'> <b> <c/></b></a>",
         "<a xml:space='preserve'> <b> <c/></b></a>\n"},
        {"blanks preserved no longer", "<a xml:space='preserve'> <b xml:space='default'> <c/></b></a>",
         "<a xml:space='preserve'> <b xml:space='default'>\n    <c/>\n  </b></a>\n"},
        {"a blank that is written as a reference", "<a>&#32;<b/></a>", "<a>&#32;<b/></a>\n"},
        {"a section of character data", "<a><![CDATA[ ]]><b/></a>", "<a><![CDATA[ ]]><b/></a>\n"},
        {"brackets in it are no tags", "<a><![CDATA[<b>]]></a>", "<a><![CDATA[<b>]]></a>\n"},
        {"declaration, comments and instructions",
         "<?xml version='1.0'?><!-- x\n --><a><!--y--><?z  q?></a><!--e-->",
         "<?xml version='1.0'?>\n<!-- x\n -->\n<a>\n  <!--y-->\n  <?z  q?>\n</a>\n<!--e-->\n"},
        {"not a byte of a tag changes", "<a  b = '1'\n c=\"&gt;>&#x9;\" ><d\t/></a >",
         "<a  b = '1'\n c=\"&gt;>&#x9;\" >\n  <d\t/>\n</a >\n"},
        {"a byte order mark", "\xEF\xBB\xBF<a><b/></a>", "\xEF\xBB\xBF<a>\n  <b/>\n</a>\n"},
        {"one byte a character", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE4<b/></a>",
         "<?xml version='1.0' encoding='ISO-8859-1'?>\n<a>\xE4<b/></a>\n"},
        {"a prefix that nobody declared", "<x:a><b/></x:a>", "<x:a>\n  <b/>\n</x:a>\n"},
        {"blanks after the root", "<a/> \n ", "<a/>\n"},
    };
    for (const PrettyRow& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(PrettyXml(row.xml), row.pretty);
        EXPECT_EQ(PrettyXml(row.pretty), row.pretty) << "again";
    }
}

TEST(PrettyXml, RefusesWhatItCouldNotWriteExactly) {
    const struct {
        const char* shows;
        std::string xml;
        const char* reason;
    } rows[] = {
        {"a document type", "<!DOCTYPE a><a/>", "line 1: a document type declaration"},
        {"tags that cross", "<a>\n<b></a>", "line 2: mismatched tag"},
        {"nothing", "", "line 1: no element found"},
        {"UTF-16", std::string("\xFF\xFE<\0a\0/\0>\0", 10), "in UTF-16"},
        {"UTF-16 without a mark", std::string("\0<\0a\0/\0>", 8), "in UTF-16"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shows);
        try {
            PrettyXml(row.xml);
            ADD_FAILURE() << "nothing was refused";
        } catch (const XmlError& error) {
            EXPECT_STREQ(error.what(), row.reason);
        }
    }
}

// A level more costs no more than two blanks a line, and only so far.
TEST(PrettyXml, ADeepDocumentStaysAboutAsLongAsItIs) {
    constexpr std::size_t kDepth = 100'000;
    std::string xml;
    for (std::size_t i = 0; i < kDepth; ++i) xml += "<a>";
    xml += "<b/>";
    for (std::size_t i = 0; i < kDepth; ++i) xml += "</a>";
    EXPECT_LT(PrettyXml(xml).size(), kDepth * 2 * 200);
}

// What a document says: its tags as bytes, and the text between them unless it is blank.
std::vector<std::string> Content(const std::string& xml) {
    std::vector<std::string> content;
    std::size_t end = 0;
    const auto text = [&](std::size_t to) {
        const std::string between = xml.substr(end, to - end);
        if (between.find_first_not_of(" \t\r\n") != std::string::npos) content.push_back(between);
    };
    ScanMarkup(xml, [&](const Markup& markup) {
        text(markup.begin);
        content.push_back(xml.substr(markup.begin, markup.end - markup.begin));
        end = markup.end;
    });
    text(xml.size());
    return content;
}

std::string PartBytes(tarn::opc::Part& part) {
    tarn::ComPtr<IStream> stream;
    if (part.GetStream(stream.Out()) != S_OK) return {};
    stream->Seek(0, STREAM_SEEK_SET, nullptr);
    return vexpa_test::ReadToEnd(*stream.Get());
}

TEST(PrettyXml, SaysTheSameOfEveryPartOfTheCorpus) {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): there is one thread.
    const char* given = std::getenv("VEXPA_CORPUS");
    const std::filesystem::path corpus =
        given != nullptr ? given : VEXPA_SOURCE_DIR "/../shared/corpus";
    if (!std::filesystem::exists(corpus / "good")) GTEST_SKIP() << corpus << " is not there";
    std::size_t parts = 0;
    for (const auto& entry : std::filesystem::directory_iterator(corpus / "good")) {
        const auto package = tarn::opc::Package::Open(entry.path().u16string().c_str());
        if (!package) continue;
        tarn::opc::Relationship* main =
            package->GetRelationshipByType(tarn::opc::RelTypeOfficeDocument);
        tarn::opc::Part* part = main == nullptr ? nullptr : package->GetPart(main->GetResolvedTarget());
        if (part == nullptr) continue;
        const std::string xml = PartBytes(*part);
        try {
            ASSERT_EQ(Content(PrettyXml(xml)), Content(xml)) << entry.path();
            ++parts;
        } catch (const XmlError&) {
            continue;  // binary parts, and those with a document type
        }
    }
    EXPECT_GT(parts, 100u);
}

TEST(CatPretty, WritesWhatIsNoXmlAsItIsAndSaysSo) {
    PackageFile file = MinimalPackage();
    file.Entry("a.bin", "<a><b></a>");
    const std::string path = file.Write().Path();
    const auto run = RunTool({"cat", "--pretty", path, "a.bin"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "<a><b></a>");
    EXPECT_EQ(run.err, "vexpa: " + path + ": a.bin: line 1: mismatched tag; written as it is\n");
    EXPECT_EQ(RunTool({"cat", "--pretty", path, "main"}).out, "<document/>\n");
}

TEST(CatHex, WritesLinesOfSixteenBytes) {
    PackageFile file = MinimalPackage();
    file.Entry("a.bin", std::string("PK\x03\x04\0\x7f\xff 0123456789", 18));
    file.Entry("full.bin", "0123456789abcdef");
    file.Entry("empty.bin", "");
    const std::string path = file.Write().Path();
    EXPECT_EQ(RunTool({"cat", "--hex", path, "a.bin"}).out,
              "00000000  50 4b 03 04 00 7f ff 20  30 31 32 33 34 35 36 37  |PK..... 01234567|\n"
              "00000010  38 39                                             |89|\n"
              "00000012\n");
    EXPECT_EQ(RunTool({"cat", "--hex", path, "full.bin"}).out,
              "00000000  30 31 32 33 34 35 36 37  38 39 61 62 63 64 65 66  |0123456789abcdef|\n"
              "00000010\n");
    EXPECT_EQ(RunTool({"cat", "--hex", path, "empty.bin"}).out, "");
    EXPECT_EQ(RunTool({"cat", "--hex", "--pretty", path, "a.bin"}).status, 2);
}

}  // namespace

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "tests/runtime/xml/Dom.h"

namespace vexpa_test {
namespace {

using Texts = std::vector<std::u16string>;

TEST(XmlService, StartsAndStopsAgainAndAgain) {
    EXPECT_EQ(_XMLInitialize(0), 0);
    EXPECT_EQ(_XMLInitialize(0), 0);
    EXPECT_EQ(_XMLTerminate(), 0);
    EXPECT_EQ(_XMLTerminate(), 0);
    EXPECT_EQ(_XMLInitialize(0), 0);
    EXPECT_EQ(ParseResult("<a/>"), S_OK);
    EXPECT_EQ(_XMLTerminate(), 0);
}

TEST(DomParse, RefusesNullArguments) {
    ComPtr<IStream> stream = StreamOver("<a/>");
    EXPECT_EQ(_XDOMParse(nullptr, stream.Get(), 0, 0, 0, 0), E_INVALIDARG);
    IDomDocument* document = reinterpret_cast<IDomDocument*>(&stream);
    EXPECT_EQ(_XDOMParse(&document, nullptr, 0, 0, 0, 0), E_INVALIDARG);
    EXPECT_EQ(document, nullptr);
}

TEST(DomParse, TakesNoNoticeOfTheOptions) {
    for (const std::uint32_t options : {0u, 1u, 0xFFFFFFFFu}) {
        SCOPED_TRACE(options);
        ComPtr<IStream> stream = StreamOver("<a/>");
        ComPtr<IDomDocument> document;
        EXPECT_EQ(_XDOMParse(document.Out(), stream.Get(), options, options, options, options), S_OK);
        EXPECT_EQ(Count(*document.Get(), u"a"), 1u);
    }
}

TEST(DomParse, ReadsTheStreamFromWhereItStandsToItsEnd) {
    ComPtr<IStream> stream = StreamOver("junk<a/>");
    ASSERT_EQ(stream->Seek(4, STREAM_SEEK_SET, nullptr), S_OK);
    ComPtr<IDomDocument> document;
    EXPECT_EQ(_XDOMParse(document.Out(), stream.Get(), 0, 0, 0, 0), S_OK);
    EXPECT_EQ(Position(*stream.Get()), 8u);
}

TEST(DomParse, LeavesTheStreamToTheCaller) {
    ComPtr<IStream> stream = StreamOver("<a/>");
    ComPtr<IDomDocument> document;
    ASSERT_EQ(_XDOMParse(document.Out(), stream.Get(), 0, 0, 0, 0), S_OK);
    EXPECT_EQ(stream.Detach()->Release(), 0u);
    EXPECT_EQ(Count(*document.Get(), u"a"), 1u);
}

TEST(DomParse, RefusesWhatIsNotWellFormed) {
    struct Row {
        const char* shows;
        std::string_view xml;
    };
    const Row rows[] = {
        {"nothing at all", ""},
        {"only blanks", "  \n"},
        {"only a byte order mark", "\xEF\xBB\xBF"},
        {"only a declaration", "<?xml version='1.0'?>"},
        {"text", "text"},
        {"an element that does not end", "<a>"},
        {"an end that is another's", "<a></b>"},
        {"an end without a start", "</a>"},
        {"elements that cross", "<a><b></a></b>"},
        {"two roots", "<a/><b/>"},
        {"text after the root", "<a/>text"},
        {"a second attribute of the same name", "<a x='1' x='2'/>"},
        {"an attribute without quotes", "<a x=1/>"},
        {"an attribute without a value", "<a x/>"},
        {"a less-than sign in an attribute", "<a x='<'/>"},
        {"a bare ampersand", "<a>&</a>"},
        {"an entity that nobody declared", "<a>&nobody;</a>"},
        {"such an entity in an attribute", "<a x='&nobody;'/>"},
        {"a reference to no character", "<a>&#0;</a>"},
        {"a reference to half a character", "<a x='&#xD800;'/>"},
        {"a control character", "<a>\x01</a>"},
        {"a NUL", std::string_view("<a>\0</a>", 8)},
        {"UTF-8 that is none", "<a x='\xC3('/>"},
        {"UTF-8 longer than it need be", "<a x='\xC0\xAF'/>"},
        {"a surrogate in UTF-8", "<a x='\xED\xA0\x80'/>"},
        {"beyond the last character", "<a x='\xF4\x90\x80\x80'/>"},
        {"two hyphens in a comment", "<a><!-- -- --></a>"},
        {"a declaration that comes late", " <?xml version='1.0'?><a/>"},
        {"an attribute list after a name that is none", "<1a/>"},
        {"the end of a CDATA section in text", "<a>]]></a>"},
        {"cut within a tag", "<a x='1"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        IDomDocument* document = reinterpret_cast<IDomDocument*>(&document);
        EXPECT_EQ(Parse(row.xml, &document), E_FAIL);
        EXPECT_EQ(document, nullptr);
    }
}

TEST(GetElementsByTagName, FindsElementsAtAnyDepthInDocumentOrder) {
    ComPtr<IDomDocument> document =
        Parsed("<r n='0'><e n='1'><e n='2'/><f n='x'/></e><g><h><e n='3'/></h></g><e n='4'/></r>");
    EXPECT_EQ(Values(*document.Get(), u"e", u"n"), (Texts{u"1", u"2", u"3", u"4"}));
    EXPECT_EQ(Values(*document.Get(), u"r", u"n"), (Texts{u"0"}));
}

TEST(GetElementsByTagName, GivesAnEmptyListForANameThatIsNotThere) {
    ComPtr<IDomDocument> document = Parsed("<a x='1'/>");
    for (const char16_t* name : {u"b", u"", u"x", u"A", static_cast<const char16_t*>(nullptr)}) {
        IDomNodeList* list = document->GetElementsByTagName(name);
        ASSERT_NE(list, nullptr);
        EXPECT_EQ(list->GetLength(), 0u);
        EXPECT_EQ(list->GetItem(0), nullptr);
    }
}

TEST(GetElementsByTagName, EndsItsListAtItsLength) {
    ComPtr<IDomDocument> document = Parsed("<r><a/><b/><a/></r>");
    IDomNodeList* list = document->GetElementsByTagName(u"a");
    ASSERT_EQ(list->GetLength(), 2u);
    EXPECT_NE(list->GetItem(1), nullptr);
    EXPECT_EQ(list->GetItem(2), nullptr);
    EXPECT_EQ(list->GetItem(0xFFFFFFFF), nullptr);
}

TEST(GetElementsByTagName, MatchesTheNameAfterThePrefix) {
    struct Row {
        const char* shows;
        std::string_view xml;
        const char16_t* name;
        std::uint32_t count;
    };
    const Row rows[] = {
        {"no prefix", "<name/>", u"name", 1},
        {"a prefix", "<p:name/>", u"name", 1},
        {"two prefixes together", "<p:name><q:name/></p:name>", u"name", 2},
        {"a prefix that nobody declared counts like any", "<x:name/>", u"name", 1},
        {"the whole name is not the local name", "<p:name/>", u"p:name", 0},
        {"nor is the prefix", "<p:name/>", u"p", 0},
        {"case counts", "<Name/>", u"name", 0},
        {"only the first colon ends a prefix", "<a:b:c/>", u"b:c", 1},
        {"so the last part alone is no name", "<a:b:c/>", u"c", 0},
        {"a prefix may be empty", "<:x/>", u"x", 1},
        {"and so may the name after it", "<x:/>", u"", 1},
        {"a name that begins another", "<names/>", u"name", 0},
        {"letters beyond ASCII", "<\xC3\xA9t\xC3\xA9/>", u"\u00E9t\u00E9", 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        ComPtr<IDomDocument> document = Parsed(row.xml);
        EXPECT_EQ(Count(*document.Get(), row.name), row.count);
    }
}

TEST(GetElementsByTagName, GivesTheSameAnswerEveryTime) {
    ComPtr<IDomDocument> document = Parsed("<r><a x='1'/><a x='1'/></r>");
    IDomNodeList* list = document->GetElementsByTagName(u"a");
    EXPECT_EQ(document->GetElementsByTagName(u"a"), list);
    EXPECT_EQ(list->GetItem(1), list->GetItem(1));
    EXPECT_NE(list->GetItem(0), list->GetItem(1));
}

TEST(GetAttributes, IsNullForAnElementWithoutAny) {
    ComPtr<IDomDocument> document = Parsed("<r><a/><a x=''/></r>");
    IDomNodeList* list = document->GetElementsByTagName(u"a");
    EXPECT_EQ(list->GetItem(0)->GetAttributes(), nullptr);
    EXPECT_NE(list->GetItem(1)->GetAttributes(), nullptr);
}

TEST(GetNamedItem, MatchesTheFullName) {
    ComPtr<IDomDocument> document = Parsed("<a Id='1' p:Id='2' xmlns='urn:u'/>");
    IDomNode* element = document->GetElementsByTagName(u"a")->GetItem(0);
    EXPECT_EQ(Value(element, u"Id"), u"1");
    EXPECT_EQ(Value(element, u"p:Id"), u"2");
    EXPECT_EQ(Value(element, u"xmlns"), u"urn:u");
    EXPECT_EQ(Value(element, u"id"), u"(none)");
    EXPECT_EQ(Value(element, u""), u"(none)");
    EXPECT_EQ(element->GetAttributes()->GetNamedItem(nullptr), nullptr);
}

TEST(GetNamedItem, KnowsOnlyTheAttributesOfItsElement) {
    ComPtr<IDomDocument> document = Parsed("<r z='0'><a x='1'/><a y='2'/></r>");
    EXPECT_EQ(Values(*document.Get(), u"a", u"x"), (Texts{u"1", u"(none)"}));
    EXPECT_EQ(Values(*document.Get(), u"a", u"y"), (Texts{u"(none)", u"2"}));
    EXPECT_EQ(Values(*document.Get(), u"r", u"z"), (Texts{u"0"}));
}

TEST(AttributeValue, IsWhatXmlMakesOfIt) {
    struct Row {
        const char* shows;
        std::string_view xml;
        const char16_t* value;
    };
    const Row rows[] = {
        {"nothing", "<a x=''/>", u""},
        {"plain text", "<a x='text'/>", u"text"},
        {"blanks stay", "<a x='  a  b '/>", u"  a  b "},
        {"tabs and line ends become blanks", "<a x='\t\r\n\n'/>", u"   "},
        {"references to them do not", "<a x='&#9;&#10;&#13;'/>", u"\t\n\r"},
        {"the predefined entities", "<a x='&lt;&gt;&amp;&quot;&apos;'/>", u"<>&\"'"},
        {"references are not read twice", "<a x='&amp;lt;'/>", u"&lt;"},
        {"characters of every length", "<a x='z\xC3\x9F\xE2\x82\xAC\xF0\x9D\x84\x9E'/>",
         u"z\u00DF\u20AC\U0001D11E"},
        {"the first and last of each length",
         "<a x='\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBD\xF0\x90\x80\x80\xF4\x8F\xBF\xBF'/>",
         u"\x7F\u0080\u07FF\u0800\uFFFD\U00010000\U0010FFFF"},
        {"a reference beyond the first plane", "<a x='&#x10FFFF;'/>", u"\U0010FFFF"},
        {"an entity of the document", "<!DOCTYPE a [<!ENTITY e 'b&#99;d'>]><a x='[&e;]'/>", u"[bcd]"},
        {"a value that is declared and not written", "<!DOCTYPE a [<!ATTLIST a x CDATA 'd'>]><a/>",
         u"d"},
        {"a written value before a declared one", "<!DOCTYPE a [<!ATTLIST a x CDATA 'd'>]><a x='w'/>",
         u"w"},
        {"blanks of a declared token", "<!DOCTYPE a [<!ATTLIST a x NMTOKENS #IMPLIED>]><a x=' b  c '/>",
         u"b c"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        ComPtr<IDomDocument> document = Parsed(row.xml);
        EXPECT_EQ(Values(*document.Get(), u"a", u"x"), Texts{row.value});
    }
}

TEST(DomParse, PassesOverEverythingThatIsNoElement) {
    ComPtr<IDomDocument> document = Parsed(
        "<?xml version='1.0' standalone='yes'?><!-- <a/> --><?target <a/>?><!DOCTYPE r>"
        "<r>text<!-- <a/> --><![CDATA[<a/>]]><?target <a/>?>&lt;a/&gt;<b/></r><!-- <a/> -->\n");
    EXPECT_EQ(Count(*document.Get(), u"a"), 0u);
    EXPECT_EQ(Count(*document.Get(), u"b"), 1u);
}

TEST(DomParse, FindsElementsThatAnEntityBrings) {
    ComPtr<IDomDocument> document =
        Parsed("<!DOCTYPE r [<!ENTITY e \"<a n='1'/><a n='2'/>\">]><r>&e;<a n='3'/></r>");
    EXPECT_EQ(Values(*document.Get(), u"a", u"n"), (Texts{u"1", u"2", u"3"}));
}

// Hands out `piece` bytes a call at most, and fails from `failAt` on.
class SlowStream final : public IStream {
public:
    SlowStream(std::string bytes, std::uint32_t piece, std::size_t failAt = std::string::npos)
        : bytes_(std::move(bytes)), piece_(piece), failAt_(failAt) {}
    virtual ~SlowStream() = default;

    HRESULT Read(void* destination, std::uint32_t size, std::uint32_t* read) override {
        if (at_ >= failAt_) return E_ACCESSDENIED;
        const std::size_t count = std::min<std::size_t>({size, piece_, bytes_.size() - at_});
        std::memcpy(destination, bytes_.data() + at_, count);
        at_ += count;
        *read = static_cast<std::uint32_t>(count);
        return count == 0 ? S_FALSE : S_OK;
    }
    HRESULT QueryInterface(const GUID&, void**) override { return E_NOINTERFACE; }
    std::uint32_t AddRef() override { return 1; }
    std::uint32_t Release() override { return 1; }
    HRESULT Write(const void*, std::uint32_t, std::uint32_t*) override { return E_NOTIMPL; }
    HRESULT Seek(std::int64_t, std::uint32_t, std::uint64_t*) override { return E_NOTIMPL; }
    HRESULT SetSize(std::uint64_t) override { return E_NOTIMPL; }
    HRESULT CopyTo(IStream*, std::uint64_t, std::uint64_t*, std::uint64_t*) override {
        return E_NOTIMPL;
    }
    HRESULT Commit(std::uint32_t) override { return E_NOTIMPL; }
    HRESULT Revert() override { return E_NOTIMPL; }
    HRESULT LockRegion(std::uint64_t, std::uint64_t, std::uint32_t) override { return E_NOTIMPL; }
    HRESULT UnlockRegion(std::uint64_t, std::uint64_t, std::uint32_t) override { return E_NOTIMPL; }
    HRESULT Stat(STATSTG*, std::uint32_t) override { return E_NOTIMPL; }
    HRESULT Clone(IStream**) override { return E_NOTIMPL; }

private:
    std::string bytes_;
    std::uint32_t piece_;
    std::size_t failAt_;
    std::size_t at_ = 0;
};

TEST(DomParse, DoesNotTakeAShortReadForTheEnd) {
    SlowStream stream("<r><a n='\xE2\x82\xAC'/><a n='2'/></r>", 1);
    ComPtr<IDomDocument> document;
    ASSERT_EQ(_XDOMParse(document.Out(), &stream, 0, 0, 0, 0), S_OK);
    EXPECT_EQ(Values(*document.Get(), u"a", u"n"), (Texts{u"\u20AC", u"2"}));
}

TEST(DomParse, FailsWithAStreamThatFails) {
    for (const std::size_t failAt : {0u, 3u, 8u}) {
        SCOPED_TRACE(failAt);
        SlowStream stream("<r><a/></r>", 1, failAt);
        IDomDocument* document = nullptr;
        EXPECT_EQ(_XDOMParse(&document, &stream, 0, 0, 0, 0), E_ACCESSDENIED);
        EXPECT_EQ(document, nullptr);
    }
}

TEST(DomParse, ReadsDocumentsOfManyPieces) {
    std::string xml = "<r>";
    for (int i = 0; i < 50'000; ++i) xml += "<a n='" + std::to_string(i) + "'/>text";
    ComPtr<IDomDocument> document = Parsed(xml + "</r>");
    ASSERT_EQ(Count(*document.Get(), u"a"), 50'000u);
    IDomNodeList* list = document->GetElementsByTagName(u"a");
    EXPECT_EQ(Value(list->GetItem(0), u"n"), u"0");
    EXPECT_EQ(Value(list->GetItem(12'345), u"n"), u"12345");
    EXPECT_EQ(Value(list->GetItem(49'999), u"n"), u"49999");
}

TEST(DomParse, KeepsDocumentsApart) {
    ComPtr<IDomDocument> first = Parsed("<a n='1'/>");
    ComPtr<IDomDocument> second = Parsed("<a n='2'/>");
    EXPECT_EQ(Values(*first.Get(), u"a", u"n"), Texts{u"1"});
    first = ComPtr<IDomDocument>();
    EXPECT_EQ(Values(*second.Get(), u"a", u"n"), Texts{u"2"});
}

}  // namespace
}  // namespace vexpa_test

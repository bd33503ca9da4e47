#include <gtest/gtest.h>

#include <string>

#include "tests/opc/UriText.h"
#include "vexpa/opc/UriComponents.h"
#include "vexpa/opc/UriParser.h"

namespace {

using namespace tarn::opc;
using vexpa_test::Describe;
using vexpa_test::DescribeParsed;

struct Parsing {
    const char* shows;
    const char* text;
    const char* components;
};

void ExpectAll(std::initializer_list<Parsing> rows, std::uint32_t options = 0) {
    for (const Parsing& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(DescribeParsed(row.text, options), row.components);
    }
}

TEST(UriParser, ReadsRelativeReferences) {
    ExpectAll({
        {"an absolute path", "/word/document.xml", "p(/word/document.xml)"},
        {"a relative path", "media/image1.png", "p(media/image1.png)"},
        {"steps up", "../a/./b", "p(../a/./b)"},
        {"a slash alone", "/", "p(/)"},
        {"empty segments", "/a//b/", "p(/a//b/)"},
        {"a query", "a?b", "p(a)q(b)"},
        {"a fragment", "a#b", "p(a)f(b)"},
        {"both", "/a?b#c", "p(/a)q(b)f(c)"},
        {"a query alone has an empty path", "?b", "p()q(b)"},
        {"a fragment alone has an empty path", "#b", "p()f(b)"},
        {"empty query and fragment", "a?#", "p(a)q()f()"},
        {"a query may hold slashes, question marks and brackets", "a?/b?[c]", "p(a)q(/b?[c])"},
        {"so may a fragment", "a#/b?[c]", "p(a)f(/b?[c])"},
        {"a colon after the first segment", "a/b:c", "p(a/b:c)"},
        {"a colon in a first segment that is no scheme", "1:b", "p(1:b)"},
        {"every character that may come first but a letter", "!$&'()*+,-.;=@_~1",
         "p(!$&'()*+,-.;=@_~1)"},
        {"an escape may come first", "%41b", "p(Ab)"},
        {"an authority", "//host/a", "h(host)p(/a)"},
    });
}

TEST(UriParser, RefusesWhatIsNoRelativeReference) {
    ExpectAll({
        {"a colon first", ":a", "error"},
        {"a colon alone", ":", "error"},
        {"nothing", "", "error"},
        {"a space", "a b", "error"},
        {"a backslash", "a\\b", "error"},
        {"a bracket in a path", "a[b", "error"},
        {"a bracket first", "[a]", "error"},
        {"a byte above ASCII", "a\xC3\xA9", "error"},
        {"a control character", "a\x01", "error"},
        {"an unwise character", "a{b", "error"},
        {"a second fragment", "a#b#c", "error"},
        {"a space left over in the fragment", "a#b c", "error"},
        {"a percent sign alone", "a%", "error"},
        {"half an escape", "a%4", "error"},
        {"an escape of letters beyond F", "a%4g", "error"},
        {"half an escape first", "%4", "error"},
        {"half an escape in a query", "a?%4", "error"},
    });
}

TEST(UriParser, RefusesANulInTheText) {
    EXPECT_EQ(DescribeParsed(std::string_view("a\0b", 3)), "error");
}

TEST(UriParser, ReadsASchemeAndAPath) {
    ExpectAll({
        {"the leading slash stays", "file:/a/b", "s(file)p(/a/b)"},
        {"a slash alone", "file:/", "s(file)p(/)"},
        {"query and fragment", "file:/a?b#c", "s(file)p(/a)q(b)f(c)"},
        {"digits, plus, minus and dot in a scheme", "a1+-.:/b", "s(a1+-.)p(/b)"},
        {"a scheme keeps its case", "FiLe:/a", "s(FiLe)p(/a)"},
    });
}

TEST(UriParser, ReadsASchemeThatBeginsWithALetter) {
    for (int unit = 1; unit < 128; ++unit) {
        const char c = static_cast<char>(unit);
        const bool isLetter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        const std::string scheme{c};
        EXPECT_EQ(DescribeParsed(scheme + ":/b") == "s(" + scheme + ")p(/b)", isLetter) << unit;
    }
}

TEST(UriParser, ReadsOpaqueText) {
    ExpectAll({
        {"letters, colon, letters", "mailto:someone", "s(mailto)o(someone)"},
        {"a slash inside", "a:b/c", "s(a)o(b/c)"},
        {"a question mark belongs to it", "a:b?c", "s(a)o(b?c)"},
        {"also in front", "a:?c", "s(a)o(?c)"},
        {"brackets inside", "a:b[c]", "s(a)o(b[c])"},
        {"a colon in front", "a::b", "s(a)o(:b)"},
        {"an at sign in front", "a:@b", "s(a)o(@b)"},
        {"an escape in front", "a:%41", "s(a)o(A)"},
        {"a fragment ends it", "a:b#c", "s(a)o(b)f(c)"},
        {"a drive is a scheme of one letter, and a backslash no character", "c:\\a", "error"},
    });
}

TEST(UriParser, ReadsATextAgainAsARelativeReferenceWhenItsSchemeLeadsNowhere) {
    ExpectAll({
        {"nothing behind the colon", "a:", "p(a:)"},
        {"a fragment behind the colon", "a:#b", "p(a:)f(b)"},
        {"an authority that is none", "a://#b", "p(a://)f(b)"},
        {"what is wrong in both readings", "a:b{", "error"},
        {"a bracket first in opaque text", "a:[b", "error"},
    });
}

TEST(UriParser, ReadsAnAuthority) {
    ExpectAll({
        {"a host", "http://example.org", "s(http)h(example.org)"},
        {"a host and a path", "http://example.org/a/b", "s(http)h(example.org)p(/a/b)"},
        {"a query right behind", "http://h?q", "s(http)h(h)q(q)"},
        {"a port", "http://h:80/", "s(http)h(h):80p(/)"},
        {"a port at the end", "http://h:80", "s(http)h(h):80"},
        {"an empty port", "http://h:/a", "s(http)h(h)p(/a)"},
        {"an empty port at the end", "http://h:", "s(http)h(h)"},
        {"a port of zero", "http://h:0", "s(http)h(h)"},
        {"a port with leading zeros", "http://h:0080", "s(http)h(h):80"},
        {"a port of 2^32 + 5 wraps", "http://h:4294967301", "s(http)h(h):5"},
        {"a user", "http://u@h", "s(http)u(u)h(h)"},
        {"a user with a colon", "http://u:p@h:1", "s(http)u(u:p)h(h):1"},
        {"an empty user", "http://@h", "s(http)u()h(h)"},
        {"an empty host", "file:///a", "s(file)h()p(/a)"},
        {"an empty host at the end", "file://", "s(file)h()"},
        {"an empty host before a port", "//:80", "h():80"},
        {"a dotted address", "//127.0.0.1:8080/a", "h(127.0.0.1):8080p(/a)"},
        {"escapes in user and host", "//%41@%42", "u(A)h(B)"},
        {"a query after the path", "//h/a?b#c", "h(h)p(/a)q(b)f(c)"},
    });
}

TEST(UriParser, KeepsTheBracketsOfAnIpLiteral) {
    ExpectAll({
        {"an address of version 6", "http://[::1]:80/", "s(http)h([::1]):80p(/)"},
        {"without a port", "//[2001:db8::7]", "h([2001:db8::7])"},
        {"a later version", "//[v1.a:b]/", "h([v1.a:b])p(/)"},
        {"behind a user", "//u@[::1]", "u(u)h([::1])"},
        {"not closed", "//[::1", "error"},
        {"something behind the bracket", "//[::1]a", "error"},
        {"a slash inside", "//[a/b]", "error"},
    });
}

TEST(UriParser, ReadsAnAuthorityThatIsNoServerAsARegistryName) {
    ExpectAll({
        {"two colons", "//a:b:c/d", "r(a:b:c)p(/d)"},
        {"letters in the port", "http://h:8x/a", "s(http)r(h:8x)p(/a)"},
        {"two at signs", "//a@b@c", "r(a@b@c)"},
        {"user, host and port are forgotten", "//u@h:80:", "r(u@h:80:)"},
        {"a query behind", "//a:b?q", "r(a:b)q(q)"},
        {"a fragment right behind the authority", "http://h#f", "s(http)r(h)f(f)"},
        {"also behind a user and a port", "//u@h:1#f", "r(u@h:1)f(f)"},
        {"every character of the set", "//aZ09!$&'()*+,-.:;=@_~%41@", "r(aZ09!$&'()*+,-.:;=@_~A@)"},
        {"a character outside the set left over", "//a:b[", "error"},
    });
}

TEST(UriParser, SaysWhenAnAuthorityBeginsWithNoNameAtAll) {
    const ScratchUriComponents uri;
    EXPECT_EQ(ParseUri("//[", *uri), UriStatus::NoRegistryName);
    EXPECT_EQ(ParseUri("//#f", *uri), UriStatus::NoRegistryName);
    EXPECT_EQ(static_cast<int>(UriStatus::NoRegistryName), 5);
    EXPECT_EQ(ParseUri("a[", *uri), UriStatus::Malformed);
}

TEST(UriParser, DecodesEveryComponent) {
    ExpectAll({
        {"of a server", "s://%75@%68/%70?%71#%66", "s(s)u(u)h(h)p(/p)q(q)f(f)"},
        {"opaque text", "s:%6F", "s(s)o(o)"},
        {"a registry name", "//a:%72:", "r(a:r:)"},
    });
}

TEST(UriParser, EndsAComponentAtAnEscapedNul) {
    ExpectAll({{"in two of them", "a%00b?c%00d#e", "p(a)q(c)f(e)"}});
}

TEST(UriParser, KeepsEscapesWhenRaw) {
    ExpectAll(
        {
            {"of a server", "s://%75@%68/%70?%71#%66", "s(s)u(%75)h(%68)p(/%70)q(%71)f(%66)"},
            {"an escaped NUL", "a%00b", "p(a%00b)"},
            {"half an escape is an error all the same", "a%4", "error"},
        },
        kUriRaw);
}

TEST(UriParser, AcceptsUnwiseCharactersWhenRelaxed) {
    ExpectAll(
        {
            {"in a path", "/a[\\]^{|}`", "p(/a[\\]^{|}`)"},
            {"first in a path", "{a}", "p({a})"},
            {"in query and fragment", "a?\\^{|}`#\\^{|}`", "p(a)q(\\^{|}`)f(\\^{|}`)"},
            {"in opaque text", "c:\\a", "s(c)o(\\a)"},
            {"in user and host", "//{u}@{h}", "u({u})h({h})"},
            {"in a registry name", "//a:{b}", "r(a:{b})"},
            {"an IP literal is one still", "//[::1]:80", "h([::1]):80"},
            {"a scheme has none", "{a}:b", "p({a}:b)"},
            {"a space is an error still", "a b", "error"},
            {"half an escape too", "a%4", "error"},
        },
        kUriRelaxed);
}

TEST(UriParser, IsRelaxedAndRawAtOnce) {
    EXPECT_EQ(DescribeParsed("{%41}", kUriRelaxed | kUriRaw), "p({%41})");
}

TEST(UriParser, ForgetsTheTextBeforeAndKeepsItsOptions) {
    const ScratchUriComponents uri(kUriRaw);
    ASSERT_EQ(ParseUri("s://u@h:1/p?q#f", *uri), UriStatus::Parsed);
    ASSERT_EQ(ParseUri("%41", *uri), UriStatus::Parsed);
    EXPECT_EQ(Describe(*uri), "p(%41)");
    EXPECT_EQ(ParseUri(":", *uri), UriStatus::Malformed);
    EXPECT_EQ(Describe(*uri), "");
}

TEST(UriParser, ClearsARecord) {
    const ScratchUriComponents uri;
    ASSERT_EQ(ParseUri("s://u@h:1/p?q#f", *uri), UriStatus::Parsed);
    ClearUriComponents(*uri);
    EXPECT_EQ(Describe(*uri), "");
    EXPECT_EQ(uri->port, 0u);
    EXPECT_EQ(uri->path, nullptr);
}

TEST(UriParser, ReadsALongTextInEveryForm) {
    const std::string letters(1000000, 'a');
    EXPECT_EQ(DescribeParsed(letters), "p(" + letters + ")");
    EXPECT_EQ(DescribeParsed(letters + ":"), "p(" + letters + ":)");
    EXPECT_EQ(DescribeParsed("//" + letters + ":x"), "r(" + letters + ":x)");
    EXPECT_EQ(DescribeParsed("//" + letters + "["), "error");
    EXPECT_EQ(DescribeParsed("//[" + letters), "error");
}

}  // namespace

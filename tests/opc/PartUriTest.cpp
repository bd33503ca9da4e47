#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <QTextCodec>
#include <cstddef>
#include <string>
#include <type_traits>

#include "vexpa/opc/PartUri.h"

namespace {

using tarn::opc::PartUri;

// The encoding of the locale, replaced for one test.
class LocalEncoding {
public:
    explicit LocalEncoding(const char* name) {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName(name));
    }
    ~LocalEncoding() { QTextCodec::setCodecForLocale(nullptr); }
    LocalEncoding(const LocalEncoding&) = delete;
    LocalEncoding& operator=(const LocalEncoding&) = delete;
};

bool HasNoComponents(const PartUri& uri) {
    return uri.scheme.empty() && uri.opaque.empty() && uri.registryName.empty() && uri.host.empty() &&
           uri.userInfo.empty() && uri.port == 0 && uri.path.empty() && uri.query.empty() &&
           uri.fragment.empty();
}

TEST(PartUri, IsEmptyWithoutAName) {
    const PartUri uri;
    EXPECT_TRUE(HasNoComponents(uri));
    EXPECT_EQ(uri.name, u"");
}

TEST(PartUri, IsEmptyForANullName) {
    const PartUri uri(static_cast<const unsigned short*>(nullptr));
    EXPECT_TRUE(HasNoComponents(uri));
    EXPECT_EQ(uri.name, u"");
}

TEST(PartUri, IsEmptyForAnEmptyName) {
    const PartUri uri(u"");
    EXPECT_TRUE(HasNoComponents(uri));
    EXPECT_EQ(uri.name, u"");
}

TEST(PartUri, HasThePartNameForItsPath) {
    const PartUri uri(u"/word/document.xml");
    EXPECT_EQ(uri.path, u"/word/document.xml");
    EXPECT_EQ(uri.scheme, u"");
    EXPECT_EQ(uri.name, u"/word/document.xml");
}

TEST(PartUri, ReadsTheUnitsOfABinaryCaller) {
    const unsigned short name[] = {'/', 'a', 0};
    EXPECT_EQ(PartUri(name).path, u"/a");
}

TEST(PartUri, SplitsAUri) {
    const PartUri uri(u"http://user@example.org:8080/a/b?c=d#e");
    EXPECT_EQ(uri.scheme, u"http");
    EXPECT_EQ(uri.userInfo, u"user");
    EXPECT_EQ(uri.host, u"example.org");
    EXPECT_EQ(uri.port, 8080u);
    EXPECT_EQ(uri.path, u"/a/b");
    EXPECT_EQ(uri.query, u"c=d");
    EXPECT_EQ(uri.fragment, u"e");
    EXPECT_EQ(uri.opaque, u"");
    EXPECT_EQ(uri.registryName, u"");
}

TEST(PartUri, HasAnOpaqueTextWhenNoSlashFollowsTheScheme) {
    const PartUri uri(u"mailto:someone");
    EXPECT_EQ(uri.scheme, u"mailto");
    EXPECT_EQ(uri.opaque, u"someone");
    EXPECT_EQ(uri.path, u"");
}

TEST(PartUri, SplitsAReferenceToAHost) {
    const PartUri uri(u"//host/a");
    EXPECT_EQ(uri.host, u"host");
    EXPECT_EQ(uri.path, u"/a");
    EXPECT_TRUE(HasNoComponents(PartUri(u"//")));
}

TEST(PartUri, HasARegistryNameForAnAuthorityThatNamesNoServer) {
    const PartUri uri(u"http://a:b:c/d");
    EXPECT_EQ(uri.registryName, u"a:b:c");
    EXPECT_EQ(uri.host, u"");
    EXPECT_EQ(uri.path, u"/d");
}

TEST(PartUri, DecodesEscapesInThePathAndKeepsThemInTheName) {
    const PartUri uri(u"media/image%201.png");
    EXPECT_EQ(uri.path, u"media/image 1.png");
    EXPECT_EQ(uri.name, u"media/image%201.png");
}

TEST(PartUri, KeepsANameThatDoesNotParse) {
    const PartUri uri(u":a/b.xml");
    EXPECT_TRUE(HasNoComponents(uri));
    EXPECT_EQ(uri.name, u":a/b.xml");
}

// The conversion takes it for a mark of the byte order, which leaves nothing to split.
TEST(PartUri, HasNoComponentsForAByteOrderMarkAlone) {
    const PartUri uri(u"\uFEFF");
    EXPECT_EQ(uri.name, u"\uFEFF");
    EXPECT_TRUE(HasNoComponents(uri));
}

TEST(PartUri, LosesAByteOrderMarkInItsComponentsOnly) {
    const PartUri uri(u"\uFEFFword/a.xml");
    EXPECT_EQ(uri.name, u"\uFEFFword/a.xml");
    EXPECT_EQ(uri.path, u"word/a.xml");
}

TEST(PartUri, HasNoComponentsWhenOnlyTheEndOfTheNameDoesNotParse) {
    const PartUri uri(u"http://example.org:1/a?b#c d");
    EXPECT_TRUE(HasNoComponents(uri));
    EXPECT_EQ(uri.name, u"http://example.org:1/a?b#c d");
}

TEST(PartUri, PortWrapsIn32Bits) {
    EXPECT_EQ(PartUri(u"//h:4294967295/").port, 4294967295u);
    EXPECT_EQ(PartUri(u"//h:4294967296/").port, 0u);
    EXPECT_EQ(PartUri(u"//h:4294967297/").port, 1u);
    EXPECT_EQ(PartUri(u"//h:99999999999999999999/").port, 1661992959u);  // 10^20 - 1 modulo 2^32
}

TEST(PartUri, ComponentEndsAtAnEscapedNul) {
    const PartUri uri(u"a%00b?c%00d");
    EXPECT_EQ(uri.path, u"a");
    EXPECT_EQ(uri.query, u"c");
    EXPECT_EQ(uri.name, u"a%00b?c%00d");
}

TEST(PartUri, IsComparedByItsNameAlone) {
    PartUri one(u"a%20b");
    PartUri other(u"a%20b");
    other.path = u"something else";
    EXPECT_TRUE(one == other);
    EXPECT_FALSE(one != other);
    EXPECT_FALSE(one < other || other < one);
}

TEST(PartUri, IsAnotherForANameThatDecodesToTheSame) {
    EXPECT_FALSE(PartUri(u"a b") == PartUri(u"a%20b"));
    EXPECT_FALSE(PartUri(u"/a") == PartUri(u"a"));
}

TEST(PartUri, IsAnotherInAnotherCase) {
    EXPECT_TRUE(PartUri(u"A") != PartUri(u"a"));
}

TEST(PartUri, IsOrderedByCodeUnits) {
    EXPECT_TRUE(PartUri(u"Z") < PartUri(u"a"));
    EXPECT_TRUE(PartUri(u"a") < PartUri(u"ab"));
    // By character U+1F600 comes after U+FF5E; by code unit, D83D comes first.
    EXPECT_TRUE(PartUri(u"\U0001F600") < PartUri(u"\uFF5E"));
}

TEST(PartUri, IsCopiedWithAllItsFields) {
    const PartUri uri(u"s://u@h:1/p?q#f");
    const PartUri copy = uri;
    EXPECT_EQ(copy.scheme, u"s");
    EXPECT_EQ(copy.userInfo, u"u");
    EXPECT_EQ(copy.host, u"h");
    EXPECT_EQ(copy.port, 1u);
    EXPECT_EQ(copy.path, u"/p");
    EXPECT_EQ(copy.query, u"q");
    EXPECT_EQ(copy.fragment, u"f");
    EXPECT_EQ(copy.name, u"s://u@h:1/p?q#f");
    EXPECT_EQ(PartUri(PartUri(u"s:o")).opaque, u"o");
    EXPECT_EQ(PartUri(PartUri(u"//r:g:n")).registryName, u"r:g:n");
}

TEST(PartUri, HasItsFieldsWhereCompiledCallersFindThem) {
    static_assert(std::is_standard_layout_v<PartUri>);
    constexpr std::size_t kText = sizeof(std::u16string);
    EXPECT_EQ(offsetof(PartUri, scheme), 0 * kText);
    EXPECT_EQ(offsetof(PartUri, opaque), 1 * kText);
    EXPECT_EQ(offsetof(PartUri, registryName), 2 * kText);
    EXPECT_EQ(offsetof(PartUri, host), 3 * kText);
    EXPECT_EQ(offsetof(PartUri, userInfo), 4 * kText);
    EXPECT_EQ(offsetof(PartUri, port), 5 * kText);
    EXPECT_EQ(offsetof(PartUri, path), 5 * kText + 8);
    EXPECT_EQ(offsetof(PartUri, query), 6 * kText + 8);
    EXPECT_EQ(offsetof(PartUri, fragment), 7 * kText + 8);
    EXPECT_EQ(offsetof(PartUri, name), 8 * kText + 8);
    EXPECT_EQ(sizeof(PartUri), 9 * kText + 8);
}

TEST(PartUri, ReadsEscapedBytesInTheEncodingOfTheLocale) {
    {
        const LocalEncoding utf8("UTF-8");
        EXPECT_EQ(PartUri(u"%C3%A9.xml").path, u"\u00E9.xml");
    }
    const LocalEncoding latin1("ISO-8859-1");
    EXPECT_EQ(PartUri(u"%E9.xml").path, u"\u00E9.xml");
}

TEST(PartUri, ReadsAnEscapedBackslashAndTilde) {
    const LocalEncoding utf8("UTF-8");
    EXPECT_EQ(PartUri(u"a%5Cb%7Ec~d").path, u"a\\b~c~d");
}

TEST(PartUri, DoesNotParseANameOutsideAscii) {
    const LocalEncoding utf8("UTF-8");
    const PartUri uri(u"/word/\u00E9.xml");
    EXPECT_TRUE(HasNoComponents(uri));
    EXPECT_EQ(uri.name, u"/word/\u00E9.xml");
}

TEST(PartUri, LosesWhatTheLocaleCannotSayInItsComponentsOnly) {
    const LocalEncoding latin1("ISO-8859-1");
    const PartUri uri(u"/a\u4E2Db");  // the substitute is a question mark, which begins a query
    EXPECT_EQ(uri.path, u"/a");
    EXPECT_EQ(uri.query, u"b");
    EXPECT_EQ(uri.name, u"/a\u4E2Db");
}

TEST(PartUri, SplitsANameOfAMillionUnits) {
    std::u16string name;
    for (int i = 0; i < 250000; ++i) name += u"/a%20";
    const PartUri uri(name.c_str());
    EXPECT_EQ(uri.name, name);
    EXPECT_EQ(uri.path.size(), 750000u);
}

// A text of nothing but 'a' that takes address space but little memory: one piece, again and again.
class EndlessText {
public:
    explicit EndlessText(std::size_t length) : bytes_((length + 1) * sizeof(char16_t) + kPiece) {
        memory_ = mmap(nullptr, bytes_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        const int file = memfd_create("text", 0);
        const std::u16string piece(kPiece / sizeof(char16_t), u'a');
        EXPECT_EQ(write(file, piece.data(), kPiece), kPiece);
        for (std::size_t at = 0; at < length * sizeof(char16_t); at += kPiece) {
            EXPECT_NE(mmap(static_cast<char*>(memory_) + at, kPiece, PROT_READ, MAP_SHARED | MAP_FIXED,
                           file, 0),
                      MAP_FAILED);
        }
        close(file);
    }
    ~EndlessText() { munmap(memory_, bytes_); }
    EndlessText(const EndlessText&) = delete;
    EndlessText& operator=(const EndlessText&) = delete;

    const char16_t* text() const { return static_cast<const char16_t*>(memory_); }

private:
    static constexpr std::size_t kPiece = 1 << 20;

    std::size_t bytes_;
    void* memory_;
};

// Its encoding might take more bytes than an int counts.
TEST(PartUri, KeepsANameThatIsTooLongToSplit) {
    constexpr std::size_t kLength = std::size_t{1} << 28;  // whole pieces
    const EndlessText name(kLength);
    const PartUri uri(name.text());
    EXPECT_EQ(uri.name.size(), kLength);
    EXPECT_TRUE(HasNoComponents(uri));
}

TEST(PartUri, KeepsUnpairedSurrogatesInItsName) {
    const std::u16string name =
        u"/a\xD800"
        u"b";
    EXPECT_EQ(PartUri(name.c_str()).name, name);
}

}  // namespace

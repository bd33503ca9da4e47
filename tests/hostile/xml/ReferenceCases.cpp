// Everything in XML that can name another file or a server: none is ever asked.

#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/SmallPackage.h"
#include "tests/hostile/xml/CraftedXml.h"
#include "tests/hostile/xml/Outside.h"
#include "tests/opc/PackageFile.h"

namespace {

using namespace vexpa_test;
using enum XmlOutcome;

// As CraftedXml, with a change that is told what to name.
struct Reference {
    std::string name;
    std::string purpose;
    XmlOutcome outcome;
    std::function<XmlChange(const std::string& where)> change;
};

void PrintTo(const Reference& reference, std::ostream* out) {
    *out << reference.purpose;
}

std::string NameOfReference(const testing::TestParamInfo<Reference>& info) {
    return info.param.name;
}

// What each would bring if it were read: a root, an entity, elements.
constexpr const char* kContent = "<!ENTITY inside 'text'><Relationship Id='x'/>";

class HostileReference : public testing::TestWithParam<Reference> {};

TEST_P(HostileReference, ReachesNothing) {
    Outside outside(kContent);
    const std::string file = outside.Path();
    for (const std::string& where :
         {"file://" + file, file, std::string("outside.xml"), outside.Url()}) {
        SCOPED_TRACE(where);
        for (const XmlPlace& place : XmlPlaces()) {
            ExpectOutcome(place, GetParam().change(where), GetParam().outcome);
        }
    }
    EXPECT_FALSE(outside.WasReached());
}

TEST(Outside, NoticesWhoReadsItsFile) {
    Outside outside(kContent);
    EXPECT_FALSE(outside.WasReached());
    EXPECT_EQ(ReadFile(outside.Path()), kContent);
    EXPECT_TRUE(outside.WasReached());
    EXPECT_FALSE(outside.WasReached());
}

TEST(Outside, NoticesWhoConnects) {
    Outside outside(kContent);
    const std::string url = outside.Url();
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(std::atoi(&url[url.rfind(':') + 1])));
    const int caller = socket(AF_INET, SOCK_STREAM, 0);
    ASSERT_EQ(connect(caller, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_TRUE(outside.WasReached());
    close(caller);
}

std::string System(const std::string& where) {
    return "SYSTEM \"" + where + "\"";
}

std::vector<Reference> EntityCases() {
    return {
        {"General", "an entity in text is passed over", kRead,
         [](const std::string& where) {
             return WithSubset("<!ENTITY e " + System(where) + ">", "&e;");
         }},
        {"GeneralPublic", "by a public name as well", kRead,
         [](const std::string& where) {
             return WithSubset("<!ENTITY e PUBLIC 'p' \"" + where + "\">", "&e;");
         }},
        {"GeneralInAnother", "by way of an entity of the document", kRead,
         [](const std::string& where) {
             return WithSubset("<!ENTITY e " + System(where) + "><!ENTITY f '&e;'>", "&f;");
         }},
        {"GeneralManyTimes", "a thousand requests to a server", kRead,
         [](const std::string& where) {
             return WithSubset("<!ENTITY e " + System(where) + ">", Repeat("&e;", 1'000));
         }},
        {"GeneralInAValue", "values name no external entity", kRefused,
         [](const std::string& where) {
             return WithSubsetInTag("<!ENTITY e " + System(where) + ">", " x='&e;'");
         }},
        {"GeneralInADefault", "nor do declared values", kRefused,
         [](const std::string& where) {
             return WithSubset("<!ENTITY e " + System(where) + "><!ATTLIST a x CDATA '&e;'>");
         }},
        {"GeneralUnused", "a declaration is not a use", kRead,
         [](const std::string& where) { return WithSubset("<!ENTITY e " + System(where) + ">"); }},
        {"Parameter", "what it would declare is not declared", kRead,
         [](const std::string& where) {
             return WithSubset("<!ENTITY % p " + System(where) + ">%p;", "&inside;");
         }},
        {"ParameterPublic", "by a public name as well", kRead,
         [](const std::string& where) {
             return WithSubset("<!ENTITY % p PUBLIC 'p' \"" + where + "\">%p;");
         }},
        {"ParameterThatSends", "one file's content in another's address", kRead,
         [](const std::string& where) {
             return WithSubset("<!ENTITY % f " + System(where) + "><!ENTITY % d \"<!ENTITY &#37; s " +
                               "SYSTEM '" + where + "?&#37;f;'>\">%d;%s;");
         }},
        {"Unparsed", "a picture that a notation belongs to", kRead,
         [](const std::string& where) {
             return WithSubset("<!NOTATION n " + System(where) + "><!ENTITY e " + System(where) +
                               " NDATA n><!ATTLIST a x ENTITY 'e'>");
         }},
        {"UnparsedInText", "it cannot be used there", kRefused,
         [](const std::string& where) {
             return WithSubset("<!ENTITY e " + System(where) + " NDATA n>", "&e;");
         }},
        {"Subset", "a document type from outside", kRead,
         [](const std::string& where) { return Before("<!DOCTYPE r " + System(where) + ">"); }},
        {"SubsetPublic", "by a public name as well", kRead,
         [](const std::string& where) {
             return Before("<!DOCTYPE r PUBLIC '-//W3C//DTD XHTML 1.0 Strict//EN' \"" + where + "\">");
         }},
        {"SubsetWithMore", "and one inside", kRead,
         [](const std::string& where) {
             return Before("<!DOCTYPE r " + System(where) + " [<!ENTITY e 'text'>]>");
         }},
        {"SubsetForAnEntity", "an entity that only it could declare", kRead,
         [](const std::string& where) {
             return [where](const std::string& xml) {
                 return "<!DOCTYPE r " + System(where) + ">" + RootWith("&inside;")(xml);
             };
         }},
    };
}

std::vector<Reference> HintCases() {
    return {
        {"XInclude", "an inclusion is an element like any", kRead,
         [](const std::string& where) {
             return RootWith("<xi:include xmlns:xi='http://www.w3.org/2001/XInclude' href='" + where +
                             "' parse='text'><xi:fallback/></xi:include>");
         }},
        {"Schema", "nobody checks against it", kRead,
         [](const std::string& where) {
             return RootTagWith(
                 " xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
                 "xsi:schemaLocation='urn:u " +
                 where + "' xsi:noNamespaceSchemaLocation='" + where + "'");
         }},
        {"Namespace", "an address that is a name", kRead,
         [](const std::string& where) { return RootTagWith(" xmlns:u='" + where + "'"); }},
        {"Base", "nothing is relative to it", kRead,
         [](const std::string& where) { return RootTagWith(" xml:base='" + where + "'"); }},
        {"Stylesheet", "nobody shows it", kRead,
         [](const std::string& where) {
             return Before("<?xml-stylesheet type='text/xsl' href='" + where + "'?>");
         }},
        {"Model", "nor validates it", kRead,
         [](const std::string& where) { return Before("<?xml-model href='" + where + "'?>"); }},
        {"Link", "a link is followed by who reads it", kRead,
         [](const std::string& where) {
             return RootTagWith(
                 " xmlns:l='http://www.w3.org/1999/xlink' l:type='simple' "
                 "l:show='embed' l:actuate='onLoad' l:href='" +
                 where + "'");
         }},
    };
}

TEST(HostileRelationship, ToTheOutsideIsToldAndNotFollowed) {
    Outside outside(kContent);
    for (const std::string& target : {"file://" + outside.Path(), outside.Path(), outside.Url()}) {
        for (const char* mode : {"External", "Internal"}) {
            SCOPED_TRACE(target);
            const std::string xml = RelationshipsXml(RelationshipXml("rId1", kImage, target, mode));
            const std::string text =
                ReadPackage(SmallPackageWith(kDocumentRelationshipsEntry, xml).Bytes());
            EXPECT_THAT(text,
                        testing::HasSubstr(std::string(mode) == "External" ? " => " : ", no part"));
        }
    }
    EXPECT_FALSE(outside.WasReached());
}

INSTANTIATE_TEST_SUITE_P(XmlEntities, HostileReference, testing::ValuesIn(EntityCases()),
                         NameOfReference);
INSTANTIATE_TEST_SUITE_P(XmlHints, HostileReference, testing::ValuesIn(HintCases()), NameOfReference);

}  // namespace

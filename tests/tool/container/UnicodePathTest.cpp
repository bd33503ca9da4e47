#include <gtest/gtest.h>
#include <libdeflate.h>

#include "tests/tool/container/Archive.h"
#include "tool/container/UnicodePath.h"

namespace {

using namespace vexpa_test;
using namespace vexpa_tool;

std::string Field(const std::string& standsFor, const std::string& name, char version = 1) {
    const std::uint32_t crc = libdeflate_crc32(0, standsFor.data(), standsFor.size());
    std::string field("\x75\x70", 2);
    field.push_back(static_cast<char>(name.size() + 5));
    field.push_back('\0');
    field.push_back(version);
    for (unsigned shift = 0; shift < 32; shift += 8) field.push_back(static_cast<char>(crc >> shift));
    return field + name;
}

std::optional<std::string> PathOf(const std::string& extra) {
    ZipFile zip = Letters();
    zip.entries[0].extra = extra;
    const Archive archive(zip);
    return UnicodePath(archive.container, archive.container.Entries()[0]);
}

TEST(UnicodePath, IsTheNameInTheField) {
    EXPECT_EQ(PathOf(Field("a", "\u00fc.xml")), "\u00fc.xml");
}

TEST(UnicodePath, StandsBehindOtherFields) {
    EXPECT_EQ(PathOf(std::string("\x0A\x00\x01\x00x", 5) + Field("a", "b")), "b");
}

TEST(UnicodePath, OfAnotherNameDoesNotCount) {
    EXPECT_EQ(PathOf(Field("renamed since", "b")), std::nullopt);
}

TEST(UnicodePath, CountsOnlyWhenItIsWhole) {
    EXPECT_EQ(PathOf(""), std::nullopt);
    EXPECT_EQ(PathOf(Field("a", "b").substr(0, 8)), std::nullopt);
    EXPECT_EQ(PathOf(Field("a", "b", 2)), std::nullopt);
    EXPECT_EQ(PathOf(Field("a", "\xFF")), std::nullopt);
}

}  // namespace

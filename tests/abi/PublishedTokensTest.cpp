#include <gtest/gtest.h>

#include <fstream>
#include <ios>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/xmlfx/RegistryFixture.h"

namespace {

using tarn::xmlfx::NameInfo;
using tarn::xmlfx::XmlMapper;
using vexpa_test::NameOf;
using vexpa_test::RegistryFixture;
using vexpa_test::TokenOf;

struct PublishedName {
    std::u16string uri;
    std::u16string name;
    std::uint32_t token = 0;
};

// All of it is ASCII.
std::u16string Utf16(const std::string& text) {
    return {text.begin(), text.end()};
}

// The rows of the list: namespace, name, token.
std::vector<PublishedName> ReadPublishedNames() {
    std::vector<PublishedName> names;
    std::ifstream file(VEXPA_SOURCE_DIR "/abi/tokens-1.0.tsv");
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.front() == '#') continue;
        std::istringstream row(line);
        std::string uri, name, token;
        std::getline(row, uri, '\t');
        std::getline(row, name, '\t');
        std::getline(row, token);
        names.push_back(
            {Utf16(uri), Utf16(name), static_cast<std::uint32_t>(std::stoul(token, nullptr, 16))});
    }
    return names;
}

std::string RowOf(const PublishedName& row) {
    return "{" + std::string(row.uri.begin(), row.uri.end()) + "}" +
           std::string(row.name.begin(), row.name.end());
}

// Callers have the numbers compiled in.
class PublishedTokens : public RegistryFixture {
protected:
    const std::vector<PublishedName> published_ = ReadPublishedNames();
};

TEST_F(PublishedTokens, StayThoseOfTheirNames) {
    ASSERT_GE(published_.size(), 2614U);
    for (const PublishedName& row : published_) {
        EXPECT_EQ(TokenOf(row.uri, row.name), row.token) << RowOf(row);
    }
}

TEST_F(PublishedTokens, StillLeadToTheFirstOfTheirNames) {
    std::set<std::uint32_t> seen;
    for (const PublishedName& row : published_) {
        if (!seen.insert(row.token).second) continue;
        const NameInfo* info = NameOf(row.token);
        ASSERT_NE(info, nullptr) << RowOf(row);
        EXPECT_EQ(info->uri, row.uri) << RowOf(row);
        EXPECT_EQ(info->name, row.name) << RowOf(row);
    }
}

// A new name is published with a row at the end of the list.
TEST_F(PublishedTokens, AreAllThatTheLibraryHas) {
    std::set<std::pair<std::u16string, std::u16string>> listed;
    for (const PublishedName& row : published_) listed.emplace(row.uri, row.name);
    for (const auto& [uri, names] : XmlMapper::GetNSMap()) {
        for (const auto& [name, token] : names) {
            const PublishedName row = {std::u16string(uri), std::u16string(name), token};
            EXPECT_EQ(listed.count({row.uri, row.name}), 1U) << RowOf(row);
        }
    }
}

}  // namespace

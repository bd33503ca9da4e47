#include <gtest/gtest.h>

#include <set>
#include <string>

#include "runtime/zip/NameHash.h"

namespace {

using namespace vexpa_runtime::zip;
using vexpa_runtime::RandomKey;

// The key of the reference vectors: the bytes 0 to 15.
constexpr RandomKey kKey{0x0706050403020100, 0x0f0e0d0c0b0a0908};

TEST(NameHash, IsSipHash13) {
    EXPECT_EQ(HashName("", kKey), 0xabac0158050fc4dc);
}

TEST(NameHash, TellsTextsApartByEveryByteAndByLength) {
    std::set<std::uint64_t> seen;
    for (std::size_t length = 0; length <= 20; ++length) {
        const std::string zeros(length, '\0');
        EXPECT_TRUE(seen.insert(HashName(zeros, kKey)).second) << length;
        for (std::size_t at = 0; at < length; ++at) {
            std::string other = zeros;
            other[at] = '\1';
            EXPECT_TRUE(seen.insert(HashName(other, kKey)).second) << length << ' ' << at;
        }
    }
}

TEST(NameHash, DependsOnTheKey) {
    EXPECT_NE(HashName("name", kKey), HashName("name", {kKey.k0 + 1, kKey.k1}));
    EXPECT_NE(HashName("name", kKey), HashName("name", {kKey.k0, kKey.k1 + 1}));
}

}  // namespace

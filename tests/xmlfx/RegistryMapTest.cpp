#include <gtest/gtest.h>

#include <map>
#include <memory_resource>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "vexpa/xmlfx/RegistryMap.h"
#include "vexpa/xmlfx/SampledStringHash.h"
#include "vexpa/xmlfx/XmlMapper.h"

namespace {

using tarn::xmlfx::NSMap;
using tarn::xmlfx::NSMapInverse;
using tarn::xmlfx::SampledStringHash;

using Names = NSMap::mapped_type;
using Tokens = NSMapInverse::mapped_type;

// Texts of one hash: they differ in the last units only, which the hash passes over.
std::u16string Colliding(unsigned number) {
    std::u16string text = u"http://collisions.example/namespace/of/a/hostile/document/";
    text.append(12, u'0');
    const std::size_t length = text.size();
    for (std::size_t i = 1; number != 0; ++i, number /= 10) {
        text[length - i] = static_cast<char16_t>(u'0' + number % 10);
    }
    return text;
}

TEST(RegistryMap, FindsWhatWasAddedAndNothingElse) {
    Names names;
    names[u"one"] = 1;
    names[u"two"] = 2;
    EXPECT_EQ(names.find(u"one")->second, 1U);
    EXPECT_EQ(names.find(u"two")->second, 2U);
    EXPECT_EQ(names.find(u"three"), names.end());
    EXPECT_EQ(names.count(u"one"), 1U);
    EXPECT_FALSE(names.contains(u"on"));
    EXPECT_EQ(names.size(), 2U);
}

TEST(RegistryMap, LooksUpAnyKindOfText) {
    Names names;
    names[std::u16string(u"one")] = 1;
    const std::u16string inside = u"[one]";
    EXPECT_EQ(names.find(std::u16string_view(inside).substr(1, 3))->second, 1U);
    EXPECT_EQ(names.find(u"one")->second, 1U);
}

TEST(RegistryMap, AnEmptyMapHasNothingToFindAndNoBuckets) {
    const Names names;
    EXPECT_TRUE(names.empty());
    EXPECT_EQ(names.find(u""), names.end());
    EXPECT_EQ(names.begin(), names.end());
    EXPECT_EQ(names.bucket_count(), 0U);
}

TEST(RegistryMap, TheEmptyTextIsAKey) {
    Names names;
    names[u""] = 7;
    EXPECT_EQ(names.find(std::u16string_view())->second, 7U);
}

TEST(RegistryMap, ATextMayHoldANul) {
    Names names;
    const std::u16string_view text(u"a\0b", 3);
    names[text] = 7;
    EXPECT_EQ(names.find(text)->second, 7U);
    EXPECT_FALSE(names.contains(u"a"));
}

TEST(RegistryMap, AnAddedValueIsEmpty) {
    Names names;
    EXPECT_EQ(names[u"one"], 0U);
    Tokens tokens;
    EXPECT_EQ(tokens[1].name, nullptr);
}

TEST(RegistryMap, AnswersForTheKeyOfBeforeAndForAnother) {
    Names names;
    const std::u16string_view keys[] = {u"", u"a", u"b", u"ab", u"a"};
    for (std::uint32_t i = 0; i < 4; ++i) names[keys[i]] = i;
    for (std::uint32_t i = 0; i < 4; ++i) {
        EXPECT_EQ(names[keys[i]], i);
        EXPECT_EQ(names[keys[i]], i);
        EXPECT_EQ(names[keys[3 - i]], 3 - i);
    }
    Tokens tokens;
    tokens[1].name = u"one";
    EXPECT_EQ(tokens[2].name, nullptr);
    EXPECT_EQ(tokens[1].name, std::u16string_view(u"one"));
}

TEST(RegistryMap, ForgetsTheKeyOfBeforeWhenItIsCleared) {
    Names names;
    for (std::uint32_t round = 0; round < 3; ++round) {
        EXPECT_EQ(names[u"one"], 0U);
        names[u"one"] = 1;
        names.clear();
        EXPECT_FALSE(names.contains(u"one"));
    }
    EXPECT_EQ(names[u"one"], 0U);
    EXPECT_EQ(names.size(), 1U);
}

TEST(RegistryMap, TryEmplaceTellsWhetherItAdded) {
    Names names;
    const auto [first, added] = names.try_emplace(u"one");
    EXPECT_TRUE(added);
    first->second = 1;
    const auto [again, addedAgain] = names.try_emplace(u"one");
    EXPECT_FALSE(addedAgain);
    EXPECT_EQ(again->second, 1U);
}

TEST(RegistryMap, IteratesInTheOrderOfAddition) {
    Names names;
    std::vector<std::u16string> expected;
    for (unsigned i = 100; i > 0; --i) {
        expected.push_back(Colliding(i * 7919 % 1000));
        names[expected.back()] = i;
    }
    std::vector<std::u16string> seen;
    for (const auto& [text, value] : names) seen.emplace_back(text);
    EXPECT_EQ(seen, expected);
}

TEST(RegistryMap, AnIteratorBecomesAConstantOne) {
    static_assert(std::is_convertible_v<Names::iterator, Names::const_iterator>);
    static_assert(!std::is_convertible_v<Names::const_iterator, Names::iterator>);
    Names names;
    names[u"one"] = 1;
    Names::const_iterator one = names.find(u"one");
    EXPECT_EQ(one++->second, 1U);
    EXPECT_EQ(one, names.end());
}

TEST(RegistryMap, KeepsItsLoadAtOneOrBelow) {
    Names names;
    for (unsigned i = 0; i < 1000; ++i) {
        names[Colliding(i)] = i;
        ASSERT_LE(names.size(), names.bucket_count());
    }
    EXPECT_EQ(names.bucket_count(), 1024U);
}

TEST(RegistryMap, ReservedRoomIsNotGrownAgain) {
    Names names;
    names.reserve(1000);
    const std::size_t buckets = names.bucket_count();
    for (unsigned i = 0; i < 1000; ++i) names[Colliding(i)] = i;
    EXPECT_EQ(names.bucket_count(), buckets);
}

TEST(RegistryMap, RefusesRoomForMoreThanThereCanBe) {
    Names names;
    names[u"one"] = 1;
    EXPECT_THROW(names.reserve(static_cast<std::size_t>(-1)), std::length_error);
    EXPECT_EQ(names.find(u"one")->second, 1U);
}

TEST(RegistryMap, TakesNothingFromTheDefaultResource) {
    std::pmr::memory_resource* before =
        std::pmr::set_default_resource(std::pmr::null_memory_resource());
    Names names;
    EXPECT_NO_THROW(names[u"one"] = 1);
    EXPECT_NO_THROW(names.reserve(1000));
    std::pmr::set_default_resource(before);
    EXPECT_EQ(names.find(u"one")->second, 1U);
}

TEST(RegistryMap, ReferencesOutliveAdditions) {
    Names names;
    std::uint32_t& first = names[u"first"];
    const std::u16string_view key = names.find(u"first")->first;
    first = 42;
    for (unsigned i = 0; i < 10000; ++i) names[Colliding(i)] = i;
    EXPECT_EQ(&names[u"first"], &first);
    EXPECT_EQ(&names.find(u"first")->second, &first);
    EXPECT_EQ(names[u"first"], 42U);
    EXPECT_EQ(key, u"first");
}

TEST(RegistryMap, ClearKeepsTheBuckets) {
    Names names;
    for (unsigned i = 0; i < 100; ++i) names[Colliding(i)] = i;
    const std::size_t buckets = names.bucket_count();
    names.clear();
    EXPECT_TRUE(names.empty());
    EXPECT_EQ(names.begin(), names.end());
    EXPECT_EQ(names.find(Colliding(5)), names.end());
    EXPECT_EQ(names.bucket_count(), buckets);
    names[u"again"] = 1;
    EXPECT_EQ(names.size(), 1U);
}

TEST(RegistryMap, ClearEndsTheInnerMaps) {
    NSMap namespaces;
    for (unsigned i = 0; i < 100; ++i) namespaces[Colliding(i)][u"name"] = i;
    namespaces.clear();  // the leak checker has the rest
    EXPECT_TRUE(namespaces[Colliding(5)].empty());
}

TEST(RegistryMap, AllNamespacesOfTheInverseMapMayShareABucket) {
    NSMapInverse namespaces;
    for (std::uint32_t id = 0; id < 1000; ++id) namespaces[id << 16][id << 16 | 1] = {u"", u"name"};
    for (std::uint32_t id = 0; id < 1000; ++id) {
        ASSERT_EQ(namespaces.find(id << 16)->second.count(id << 16 | 1), 1U);
    }
    EXPECT_EQ(namespaces.find(1), namespaces.end());
}

// In chains, these would take some ten thousand million comparisons of 70 units each.
TEST(RegistryMap, TwoHundredThousandCollidingTextsAreNoBurden) {
    constexpr unsigned kTexts = 200'000;
    ASSERT_EQ(SampledStringHash()(Colliding(0)), SampledStringHash()(Colliding(kTexts)));
    NSMap namespaces;
    for (unsigned i = 0; i < kTexts; ++i) namespaces[Colliding(i * 7919U % kTexts)];
    EXPECT_EQ(namespaces.size(), kTexts);
    for (unsigned i = 0; i < kTexts; ++i) ASSERT_TRUE(namespaces.contains(Colliding(i)));
    EXPECT_FALSE(namespaces.contains(Colliding(kTexts)));
}

// Ascending keys are what an unbalanced tree fears most.
TEST(RegistryMap, AscendingCollidingTextsAreNoBurdenEither) {
    constexpr unsigned kTexts = 200'000;
    Names names;
    for (unsigned i = 0; i < kTexts; ++i) names[Colliding(i)] = i;
    for (unsigned i = 0; i < kTexts; ++i) ASSERT_EQ(names.find(Colliding(i))->second, i);
}

TEST(RegistryMap, AgreesWithAnOrderedMapOnMixedTexts) {
    Names names;
    std::map<std::u16string, std::uint32_t> expected;
    std::uint32_t state = 1;
    for (unsigned i = 0; i < 20000; ++i) {
        state = state * 1664525 + 1013904223;
        std::u16string text((state >> 16) % 25, u'x');
        for (std::size_t n = 0; n < text.size(); n += 3)
            text[n] = static_cast<char16_t>(state >> n % 17 & 7);
        names.try_emplace(text).first->second += i;
        expected[text] += i;
    }
    ASSERT_EQ(names.size(), expected.size());
    for (const auto& [text, value] : expected) ASSERT_EQ(names.find(text)->second, value);
}

}  // namespace

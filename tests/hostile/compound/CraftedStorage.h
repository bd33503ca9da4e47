// tests/hostile/compound/CraftedStorage.h - a compound file made to mislead, as a part of a package.
#ifndef VEXPA_TESTS_HOSTILE_COMPOUND_CRAFTEDSTORAGE_H_
#define VEXPA_TESTS_HOSTILE_COMPOUND_CRAFTEDSTORAGE_H_

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/hostile/compound/CompoundImage.h"

namespace vexpa_test {

struct CraftedStorage {
    std::string name;     // of the test: letters and digits, reads as a phrase
    std::string purpose;  // what would go wrong, in a line
    std::string storage;  // what the part's storage holds, as StorageText tells it; kNoStorage
    std::function<std::string()> bytes;
};
using CraftedStorages = std::vector<CraftedStorage>;

inline constexpr const char* kNoStorage = "";

// What reading a package gives whose picture has these bytes: "no stream" or the bytes, then its
// storage.
std::string ReadAsPicture(const std::string& bytes);
// What it should be.
std::string PictureText(const std::string& bytes, const std::string& storage);

// The part's bytes are the file's whatever they are; its storage is what the case says.
//
//     INSTANTIATE_TEST_SUITE_P(CompoundFat, HostileStorage, testing::ValuesIn(Cases()), NameOfStorage);
class HostileStorage : public testing::TestWithParam<CraftedStorage> {};

std::string NameOfStorage(const testing::TestParamInfo<CraftedStorage>& info);
void PrintTo(const CraftedStorage& crafted, std::ostream* out);  // its purpose

// The sound file that most are made from: a storage D with a stream Inner, a small stream and a
// large one.
CompoundImage SmallCompound(const CompoundLayout& layout = {});
inline constexpr const char* kInnerText = "inside";
inline constexpr const char* kSmallText = "small content";
std::string LargeContent();  // of ten sectors

// What it holds, or what is left when something does not read.
inline constexpr const char* kUnreadable = "unreadable";
std::string SmallCompoundText();
std::string SmallCompoundText(const std::string& inner, const std::string& small,
                              const std::string& large);

// For a case: the bytes of the sound file after a change.
std::function<std::string()> CompoundWith(std::function<void(CompoundImage&)> change);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_HOSTILE_COMPOUND_CRAFTEDSTORAGE_H_

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include "vexpa/base/Lifecycle.h"
#include "vexpa/xmlfx/XmlMapper.h"

// The linker sends the library's calls of the platform here (--wrap).
namespace {
std::vector<std::string> calls;
}
extern "C" {
int __wrap__XMLInitialize(std::uint32_t reserved) {
    calls.push_back("_XMLInitialize(" + std::to_string(reserved) + ")");
    return -1;  // ignored
}
int __wrap__XMLTerminate() {
    const bool empty =
        tarn::xmlfx::XmlMapper::GetNSMap().empty() && tarn::xmlfx::XmlMapper::GetNSMapInverse().empty();
    calls.push_back(empty ? "_XMLTerminate()" : "_XMLTerminate() before the maps were empty");
    return -1;
}
}

namespace {

using tarn::xmlfx::XmlMapper;
using Calls = std::vector<std::string>;

class Lifecycle : public ::testing::Test {
protected:
    Lifecycle() { calls.clear(); }
};

std::map<std::u16string, std::map<std::u16string, std::uint32_t>> Contents() {
    std::map<std::u16string, std::map<std::u16string, std::uint32_t>> contents;
    for (const auto& [uri, names] : XmlMapper::GetNSMap()) {
        for (const auto& [name, token] : names) contents[std::u16string(uri)].emplace(name, token);
    }
    return contents;
}

TEST_F(Lifecycle, InitializeStartsTheServiceAndFillsTheMaps) {
    EXPECT_EQ(_vexpa_Initialize(), 0);
    EXPECT_EQ(calls, Calls{"_XMLInitialize(0)"});
    EXPECT_EQ(XmlMapper::GetNSMap().size(), 41U);
    EXPECT_EQ(XmlMapper::GetNSMapInverse().size(), 43U);
    _vexpa_Terminate();
}

TEST_F(Lifecycle, ASecondInitializeOnlyCounts) {
    _vexpa_Initialize();
    XmlMapper::GetNSMap()[u"urn:test"];
    EXPECT_EQ(_vexpa_Initialize(), 0);
    EXPECT_EQ(calls, Calls{"_XMLInitialize(0)"});
    EXPECT_EQ(XmlMapper::GetNSMap().size(), 42U);
    _vexpa_Terminate();
    _vexpa_Terminate();
}

TEST_F(Lifecycle, OnlyTheLastTerminateEndsTheLibrary) {
    _vexpa_Initialize();
    _vexpa_Initialize();
    EXPECT_EQ(_vexpa_Terminate(), 0);
    EXPECT_EQ(calls, Calls{"_XMLInitialize(0)"});
    EXPECT_EQ(XmlMapper::GetNSMap().size(), 41U);
    EXPECT_EQ(_vexpa_Terminate(), 0);
    EXPECT_EQ(calls, (Calls{"_XMLInitialize(0)", "_XMLTerminate()"}));
    EXPECT_TRUE(XmlMapper::GetNSMap().empty());
    EXPECT_TRUE(XmlMapper::GetNSMapInverse().empty());
}

TEST_F(Lifecycle, TheLibraryStartsAgainWithTheSameNames) {
    _vexpa_Initialize();
    const auto first = Contents();
    _vexpa_Terminate();
    _vexpa_Initialize();
    EXPECT_EQ(Contents(), first);
    EXPECT_EQ(calls, (Calls{"_XMLInitialize(0)", "_XMLTerminate()", "_XMLInitialize(0)"}));
    _vexpa_Terminate();
}

TEST_F(Lifecycle, TheLastTerminateKeepsTheBuckets) {
    _vexpa_Initialize();
    const std::size_t forward = XmlMapper::GetNSMap().bucket_count();
    const std::size_t inverse = XmlMapper::GetNSMapInverse().bucket_count();
    _vexpa_Terminate();
    EXPECT_EQ(XmlMapper::GetNSMap().bucket_count(), forward);
    EXPECT_EQ(XmlMapper::GetNSMapInverse().bucket_count(), inverse);
}

TEST_F(Lifecycle, TerminateWithoutInitializeWrapsTheCount) {
    EXPECT_EQ(_vexpa_Terminate(), 0);
    EXPECT_EQ(calls, Calls{});
    EXPECT_EQ(_vexpa_Initialize(), 0);  // brings the count back to zero, no more
    EXPECT_EQ(calls, Calls{});
    EXPECT_TRUE(XmlMapper::GetNSMap().empty());

    _vexpa_Initialize();
    EXPECT_EQ(calls, Calls{"_XMLInitialize(0)"});
    _vexpa_Terminate();
    EXPECT_EQ(calls, (Calls{"_XMLInitialize(0)", "_XMLTerminate()"}));
}

TEST_F(Lifecycle, AWrappedCountLeavesTheMapsAlone) {
    XmlMapper::GetNSMap()[u"urn:test"];
    _vexpa_Terminate();
    EXPECT_EQ(XmlMapper::GetNSMap().size(), 1U);
    _vexpa_Initialize();
    EXPECT_EQ(XmlMapper::GetNSMap().size(), 1U);
    XmlMapper::GetNSMap().clear();
}

TEST_F(Lifecycle, MapsThatHoldSomethingAlreadyAreNotFilled) {
    XmlMapper::GetNSMap()[u"urn:test"];
    _vexpa_Initialize();
    EXPECT_EQ(XmlMapper::GetNSMap().size(), 1U);
    EXPECT_TRUE(XmlMapper::GetNSMapInverse().empty());
    _vexpa_Terminate();
    EXPECT_TRUE(XmlMapper::GetNSMap().empty());
}

TEST_F(Lifecycle, ALibraryObjectKeepsTheLibraryInUse) {
    {
        const tarn::Library library;
        EXPECT_EQ(calls, Calls{"_XMLInitialize(0)"});
    }
    EXPECT_EQ(calls, (Calls{"_XMLInitialize(0)", "_XMLTerminate()"}));
}

TEST_F(Lifecycle, OnlyTheLastLibraryObjectEndsTheLibrary) {
    {
        const tarn::Library library;
        { const tarn::Library again; }
        EXPECT_EQ(calls, Calls{"_XMLInitialize(0)"});
    }
    EXPECT_EQ(calls, (Calls{"_XMLInitialize(0)", "_XMLTerminate()"}));
}

TEST(Library, IsNotCopied) {
    EXPECT_FALSE(std::is_copy_constructible_v<tarn::Library>);
    EXPECT_FALSE(std::is_copy_assignable_v<tarn::Library>);
}

TEST_F(Lifecycle, AProcessMayEndWithoutTerminate) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto fillAndExit = [] {
        _vexpa_Initialize();
        std::exit(0);  // the maps end themselves; the leak checker would change the code
    };
    EXPECT_EXIT(fillAndExit(), ::testing::ExitedWithCode(0), "");
}

}  // namespace

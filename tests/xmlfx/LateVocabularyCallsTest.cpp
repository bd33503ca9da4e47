// The vocabulary in the hands of a static object that was there before it, and so ends after it.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>

#include "tests/support/Late.h"
#include "tests/xmlfx/RegistryFixture.h"

namespace {

using namespace vexpa_test;

constexpr const char16_t* kUri = u"http://schemas.openxmlformats.org/wordprocessingml/2006/main";
constexpr const char16_t* kName = u"p";

void Say(bool isTrue, const char* what) {
    std::fputs(isTrue ? what : "wrong ", stderr);
}

// Ends a process in which `late` runs after the maps were made and filled.
[[noreturn]] void ExitBefore(const std::function<void()>& late) {
    static const Late last{late};
    _vexpa_Initialize();
    Say(TokenOf(kUri, kName).has_value(), "begins, ");
    std::exit(0);  // NOLINT(concurrency-mt-unsafe): there is one thread
}

class LateVocabularyCalls : public ::testing::Test {
protected:
    LateVocabularyCalls() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(LateVocabularyCalls, MayTerminate) {
    const auto terminate = [] { Say(_vexpa_Terminate() == 0, "ends"); };
    EXPECT_EXIT(ExitBefore(terminate), ::testing::ExitedWithCode(0), "begins, ends");
}

TEST_F(LateVocabularyCalls, FindTheMapsEmpty) {
    const auto look = [] {
        using tarn::xmlfx::XmlMapper;
        Say(XmlMapper::GetNSMap().empty() && XmlMapper::GetNSMapInverse().empty(), "empty, ");
        Say(!TokenOf(kUri, kName) && NameOf(1) == nullptr, "nothing");
    };
    EXPECT_EXIT(ExitBefore(look), ::testing::ExitedWithCode(0), "begins, empty, nothing");
}

TEST_F(LateVocabularyCalls, MayBeginAnew) {
    const auto begin = [] {
        _vexpa_Terminate();
        _vexpa_Initialize();
        Say(TokenOf(kUri, kName).has_value(), "begins again, ");
        Say(_vexpa_Terminate() == 0, "ends");
    };
    EXPECT_EXIT(ExitBefore(begin), ::testing::ExitedWithCode(0), "begins, begins again, ends");
}

}  // namespace

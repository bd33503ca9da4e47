#include <glib.h>
#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "runtime/com/GsfSilence.h"

namespace vexpa_test {
namespace {

void Note(const gchar*, GLogLevelFlags, const gchar* message, gpointer heard) {
    static_cast<std::string*>(heard)->append(message);
}

// GLib numbers handlers outside its lock, so two threads may be given one number.
TEST(GsfSilence, OfSeveralThreadsAtOnceLeavesNoHandlersBehind) {
    constexpr int kTimes = 100'000;
    std::string heard;
    g_log_set_default_handler(Note, &heard);
    const auto silenceOften = [] {
        for (int i = 0; i < kTimes; ++i) const vexpa_runtime::GsfSilence silence;
    };
    std::thread other(silenceOften);
    silenceOften();
    other.join();
    g_log("libgsf", G_LOG_LEVEL_MESSAGE, "the host's own");
    g_log_set_default_handler(g_log_default_handler, nullptr);
    EXPECT_EQ(heard, "the host's own");
}

}  // namespace
}  // namespace vexpa_test

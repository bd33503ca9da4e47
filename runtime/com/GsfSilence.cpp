#include "runtime/com/GsfSilence.h"

#include <glib.h>

namespace vexpa_runtime {

namespace {

constexpr const char* kDomains[] = {"libgsf", "libgsf:msole"};

// G_LOG_LEVEL_MASK has bits that no level has, so this is put together from the levels.
constexpr auto kEveryLevel = static_cast<GLogLevelFlags>(
    G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING | G_LOG_LEVEL_MESSAGE |
    G_LOG_LEVEL_INFO | G_LOG_LEVEL_DEBUG | G_LOG_FLAG_FATAL | G_LOG_FLAG_RECURSION);

thread_local int silences = 0;

// The host may be using libgsf on another thread meanwhile.
void DropOurs(const gchar* domain, GLogLevelFlags level, const gchar* message, gpointer) {
    if (silences == 0) g_log_default_handler(domain, level, message, nullptr);
}

}  // namespace

GsfSilence::GsfSilence() noexcept {
    ++silences;
    for (int i = 0; i < 2; ++i) {
        handlers_[i] = g_log_set_handler(kDomains[i], kEveryLevel, DropOurs, nullptr);
    }
}

GsfSilence::~GsfSilence() {
    for (int i = 0; i < 2; ++i) g_log_remove_handler(kDomains[i], handlers_[i]);
    --silences;
}

}  // namespace vexpa_runtime

#include "runtime/com/GsfSilence.h"

#include <glib.h>

#include <cstddef>
#include <iterator>
#include <mutex>

namespace vexpa_runtime {

namespace {

constexpr const char* kDomains[] = {"libgsf", "libgsf:msole"};

// G_LOG_LEVEL_MASK has bits that no level has, so this is put together from the levels.
constexpr auto kEveryLevel = static_cast<GLogLevelFlags>(
    G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING | G_LOG_LEVEL_MESSAGE |
    G_LOG_LEVEL_INFO | G_LOG_LEVEL_DEBUG | G_LOG_FLAG_FATAL | G_LOG_FLAG_RECURSION);

thread_local int silences = 0;

// The handlers of all threads that are silent now. One of each domain for all: GLib may give two
// threads that set handlers at once the same number for them.
std::mutex mutex;
int silencesOfAll = 0;
guint handlers[std::size(kDomains)];

// The host may be using libgsf on another thread meanwhile.
void DropOurs(const gchar* domain, GLogLevelFlags level, const gchar* message, gpointer) {
    if (silences == 0) g_log_default_handler(domain, level, message, nullptr);
}

}  // namespace

GsfSilence::GsfSilence() noexcept {
    ++silences;
    const std::lock_guard lock(mutex);
    if (silencesOfAll++ > 0) return;
    for (std::size_t i = 0; i < std::size(kDomains); ++i) {
        handlers[i] = g_log_set_handler(kDomains[i], kEveryLevel, DropOurs, nullptr);
    }
}

GsfSilence::~GsfSilence() {
    --silences;
    const std::lock_guard lock(mutex);
    if (--silencesOfAll > 0) return;
    for (std::size_t i = 0; i < std::size(kDomains); ++i)
        g_log_remove_handler(kDomains[i], handlers[i]);
}

}  // namespace vexpa_runtime

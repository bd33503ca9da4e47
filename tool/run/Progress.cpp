#include "tool/run/Progress.h"

#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "tool/text/Local.h"
#include "tool/text/Size.h"
#include "tool/text/Table.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

constexpr double kQuietSeconds = 0.5;
constexpr double kTerminalPause = 0.1;
constexpr double kLogPause = 5;

std::string Rounded(double number) {
    return GroupedDigits(static_cast<std::uint64_t>(std::llround(number)));
}

std::string RateText(const ProgressState& state) {
    const double rate = static_cast<double>(state.done) / state.seconds;
    if (rate >= 1) return Rounded(rate) + " files/s";
    return Rounded(rate * 60) + " files/min";
}

std::string LeftText(const ProgressState& state) {
    const double each = state.seconds / static_cast<double>(state.done);
    const double left = each * static_cast<double>(state.total - state.done);
    if (left < 100) return Rounded(std::ceil(left)) + " s left";
    return Rounded(std::ceil(left / 60)) + " min left";
}

std::string CutTo(std::size_t width, const std::string& line) {
    std::string cut;
    std::size_t columns = 0;
    for (std::string_view rest = line; !rest.empty();) {
        const std::string_view before = rest;
        TakeUtf8(rest);
        const std::string_view character = before.substr(0, before.size() - rest.size());
        columns += DisplayWidth(character);
        if (columns > width) break;
        cut += character;
    }
    return cut;
}

void WriteError(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stderr);
}

}  // namespace

std::string ProgressText(const ProgressState& state, std::size_t width) {
    const std::size_t total = state.total == 0 ? 1 : state.total;
    std::string line = GroupedDigits(state.done) + "/" + GroupedDigits(state.total) + "  " +
                       std::to_string(state.done * 100 / total) + " %";
    if (state.done > 0 && state.seconds > 0) line += "  " + RateText(state);
    if (state.done > 0 && state.done < state.total) line += "  " + LeftText(state);
    if (!state.file.empty()) line += "  " + state.file;
    return CutTo(width, line);
}

ProgressPace::ProgressPace(bool isTerminal, bool isEager)
    : pause_(isTerminal ? kTerminalPause : kLogPause),
      next_(!isTerminal ? kLogPause
            : isEager   ? 0
                        : kQuietSeconds) {}

bool ProgressPace::IsDue(double seconds) {
    if (seconds < next_) return false;
    next_ = seconds + pause_;
    return true;
}

Progress::Progress(When when, std::size_t total)
    : isTerminal_(TakesControls(STDERR_FILENO)),
      isShown_(when == When::Always || (when == When::Auto && isTerminal_ && total > 1)),
      isEager_(when == When::Always),
      pace_(isTerminal_, isEager_) {
    state_.total = total;
}

Progress::~Progress() {
    if (!isShown_) return;
    if (isTerminal_) {
        Erase();
    } else {
        WriteError(ProgressText(state_, kWidestColumn) + "\n");
    }
}

void Progress::Done(const std::string& file) {
    ++state_.done;
    if (!isShown_) return;
    const double seconds = std::chrono::duration<double>(Clock::now() - start_).count();
    state_.seconds = seconds;
    state_.file = PrintableLocal(file);
    const bool isEnd = isTerminal_ && isEager_ && state_.done == state_.total;
    if (pace_.IsDue(seconds) || isEnd) Show();
}

void Progress::Show() {
    if (!isTerminal_) return WriteError(ProgressText(state_, kWidestColumn) + "\n");
    Erase();
    // A line as wide as the terminal would leave the cursor in the next.
    WriteError(ProgressText(state_, TerminalWidth(STDERR_FILENO) - 1));
    isOnScreen_ = true;
}

void Progress::Erase() {
    if (isOnScreen_) WriteError("\r\x1b[K");
    isOnScreen_ = false;
}

}  // namespace vexpa_tool

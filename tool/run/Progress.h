// tool/run/Progress.h - one line on standard error that tells how far long work is.
#ifndef VEXPA_TOOL_RUN_PROGRESS_H_
#define VEXPA_TOOL_RUN_PROGRESS_H_

#include <chrono>
#include <cstddef>
#include <string>

#include "tool/text/Appearance.h"

namespace vexpa_tool {

struct ProgressState {
    std::size_t done = 0;
    std::size_t total = 0;
    double seconds = 0;
    std::string file;  // the last one done, Printable
};

// "1,204/2,719  44 %  812 files/s  2 s left  report.docx", cut to `width` columns.
std::string ProgressText(const ProgressState& state, std::size_t width);

// When the line is written.
class ProgressPace {
public:
    // In a log every five seconds; on a terminal, where a line replaces the last, far more often,
    // but from half a second on only, unless it is eager: much is over before anybody looks.
    ProgressPace(bool isTerminal, bool isEager);

    // Whether the line is due so many seconds after the start; then it was written.
    bool IsDue(double seconds);

private:
    double pause_;
    double next_;
};

// On a terminal the line is written over and over, from half a second on, and goes when
// results come; `Always` writes it from the start, and to what is no terminal a line every
// five seconds and one at the end.
//
// Threads  One at a time: results that go to the same terminal have to wait as well.
class Progress {
public:
    Progress(When when, std::size_t total);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Done(const std::string& file);
    // Before anything else is written to the terminal.
    void Erase();

private:
    using Clock = std::chrono::steady_clock;

    void Show();

    const bool isTerminal_;
    const bool isShown_;
    const bool isEager_;  // shows also what is over at once
    const Clock::time_point start_ = Clock::now();
    ProgressState state_;
    ProgressPace pace_;
    bool isOnScreen_ = false;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_RUN_PROGRESS_H_

// tool/run/ResultOrder.h - what is said of several files, in the order of the files.
#ifndef VEXPA_TOOL_RUN_RESULTORDER_H_
#define VEXPA_TOOL_RUN_RESULTORDER_H_

#include <condition_variable>
#include <cstddef>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>

#include "tool/run/Progress.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

struct FileResult {
    std::string text;   // what has not been printed yet
    std::string error;  // for standard error; empty when there was none
};

// Threads that work on files number them. One file at a time has the turn: it prints at
// once. The others keep what they have, and finish without waiting.
class ResultOrder {
public:
    // With blank lines, one stands between the results of two files.
    ResultOrder(Progress& progress, bool hasBlankLines)
        : progress_(progress), hasBlankLines_(hasBlankLines) {}

    // Before a file is begun: so many may be finished and kept, no more. False after Stop.
    bool WaitUntilNear(std::size_t index);

    bool IsTurn(std::size_t index);
    // Throws a FatalError when the turn will not come any more.
    void WaitForTurn(std::size_t index);
    // Only for the file that has the turn.
    void Print(std::string_view text);

    void Finish(std::size_t index, const std::string& file, FileResult result);

    // No further file gets the turn.
    void Stop();

private:
    void PrintFinished();
    void PrintText(std::string_view text);

    Progress& progress_;
    const bool hasBlankLines_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::size_t turn_ = 0;
    std::map<std::size_t, FileResult> finished_;
    bool isStopped_ = false;
    bool isFirstText_ = true;  // of the file that has the turn
    bool hasPrinted_ = false;  // for any file before
};

// Where a file's results go: printed once the file has the turn, kept until then, as long as
// they are not too much to keep.
class OrderedOutput final : public Output {
public:
    // The heading stands before the first result, so that a file without any has none.
    OrderedOutput(ResultOrder& order, std::size_t index, std::string heading)
        : order_(order), index_(index), heading_(std::move(heading)) {}

    using Output::Write;
    void Write(const char* bytes, std::size_t size) override;

    std::string TakeKept() { return std::move(kept_); }

private:
    ResultOrder& order_;
    std::size_t index_;
    std::string heading_;
    bool hasTurn_ = false;
    std::string kept_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_RUN_RESULTORDER_H_

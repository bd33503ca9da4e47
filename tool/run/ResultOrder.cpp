#include "tool/run/ResultOrder.h"

#include <utility>

#include "tool/ExitStatus.h"

namespace vexpa_tool {

namespace {

constexpr std::size_t kMostKept = 1 << 20;  // bytes for each file
constexpr std::size_t kFarthest = 64;       // files beyond the one that has the turn

}  // namespace

bool ResultOrder::WaitUntilNear(std::size_t index) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return isStopped_ || index <= turn_ + kFarthest; });
    return !isStopped_;
}

bool ResultOrder::IsTurn(std::size_t index) {
    const std::lock_guard lock(mutex_);
    return index == turn_;
}

void ResultOrder::WaitForTurn(std::size_t index) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return isStopped_ || index == turn_; });
    if (index != turn_) throw FatalError(kInterrupted, "given up");
}

void ResultOrder::Print(std::string_view text) {
    const std::lock_guard lock(mutex_);
    PrintText(text);
}

void ResultOrder::Finish(std::size_t index, const std::string& file, FileResult result) {
    const std::lock_guard lock(mutex_);
    finished_.emplace(index, std::move(result));
    PrintFinished();
    progress_.Done(file);
    changed_.notify_all();
}

void ResultOrder::PrintFinished() {
    while (!finished_.empty() && finished_.begin()->first == turn_ && !isStopped_) {
        const FileResult result = std::move(finished_.begin()->second);
        finished_.erase(finished_.begin());
        PrintText(result.text);
        FlushOutput();
        if (!result.error.empty()) {
            progress_.Erase();
            Complain(result.error);
        }
        isFirstText_ = true;
        ++turn_;
    }
}

void ResultOrder::PrintText(std::string_view text) {
    if (text.empty()) return;
    progress_.Erase();
    if (hasBlankLines_ && isFirstText_ && hasPrinted_) StandardOutput().WriteLine({});
    isFirstText_ = false;
    hasPrinted_ = true;
    StandardOutput().Write(text);
}

void ResultOrder::Stop() {
    const std::lock_guard lock(mutex_);
    isStopped_ = true;
    changed_.notify_all();
}

void OrderedOutput::Write(const char* bytes, std::size_t size) {
    kept_ += std::exchange(heading_, {});
    if (!hasTurn_) hasTurn_ = order_.IsTurn(index_);
    if (!hasTurn_ && kept_.size() + size > kMostKept) {
        order_.WaitForTurn(index_);
        hasTurn_ = true;
    }
    if (!hasTurn_) {
        kept_.append(bytes, size);
        return;
    }
    order_.Print(kept_);
    kept_.clear();
    order_.Print({bytes, size});
}

}  // namespace vexpa_tool

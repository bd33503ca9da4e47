#include "tool/run/FileRun.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <latch>
#include <mutex>
#include <new>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tool/run/Interrupt.h"
#include "tool/run/Progress.h"
#include "tool/run/ResultOrder.h"
#include "tool/text/Local.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

constexpr unsigned kMostJobs = 256;

// What became of a file.
struct Outcome {
    ExitStatus status = kDone;
    std::string error;  // empty when there was none
    bool isOpened = true;
};

// An error of one file must not cost the others.
template <class Action>
Outcome Attempt(const InputFile& file, const Action& action) {
    try {
        return {action(), {}};
    } catch (const FatalError&) {
        throw;
    } catch (const NotOpenedError& error) {
        return {error.Status(), error.what(), false};
    } catch (const ToolError& error) {
        return {error.Status(), error.what()};
    } catch (const std::bad_alloc&) {
        return {kReadOrWriteError, PrintableLocal(file.name) + ": out of memory"};
    }
}

class FileRun {
public:
    FileRun(const FileOptions& options, const FileCommand& command, FileList list)
        : options_(options),
          command_(command),
          list_(std::move(list)),
          progress_(options.progress, list_.files.size()),
          order_(progress_, !options.json && list_.isSeveral && command.heading != Heading::None),
          worst_(list_.status) {}

    ExitStatus Run() {
        std::vector<std::thread> threads;
        StartOthers(threads);
        Work();
        for (std::thread& thread : threads) thread.join();
        if (failure_) std::rethrow_exception(failure_);
        if (list_.isSeveral && !options_.json && command_.showSummary) Summarize();
        return worst_;
    }

private:
    static unsigned Processors() { return std::max(1U, std::thread::hardware_concurrency()); }

    std::size_t CountJobs() const {
        const unsigned wanted = options_.jobs == 0 ? Processors() : std::min(options_.jobs, kMostJobs);
        return std::min<std::size_t>(wanted, list_.files.size());
    }

    // The first of the workers is the thread that calls this. When one cannot be had, for want of
    // memory or by a limit, those that are there have taken all: then those go that do no good.
    void StartOthers(std::vector<std::thread>& threads) {
        const std::size_t jobs = CountJobs();
        threads.reserve(jobs);
        try {
            while (threads.size() + 1 < jobs) {
                threads.emplace_back([this, number = threads.size()] {
                    start_.wait();
                    if (number < others_) Work();
                });
            }
            others_ = threads.size();
        } catch (const std::exception&) {
            others_ = std::min<std::size_t>(threads.size() / 2, Processors() - 1);
        }
        start_.count_down();
        for (; threads.size() > others_; threads.pop_back()) threads.back().join();
    }

    void Work() noexcept {
        try {
            for (std::size_t index = next_++; index < list_.files.size(); index = next_++) {
                if (!order_.WaitUntilNear(index)) return;
                StopIfInterrupted();
                Do(index);
            }
        } catch (...) {
            const std::lock_guard lock(mutex_);
            if (!failure_) failure_ = std::current_exception();
            order_.Stop();
        }
    }

    void Do(std::size_t index) {
        const InputFile& file = list_.files[index];
        OrderedOutput out(order_, index, HeadingOf(file));
        const Outcome outcome = options_.json ? DoJson(file, out) : DoText(file, out);
        order_.Finish(index, file.name, {out.TakeKept(), outcome.error});
        const std::lock_guard lock(mutex_);
        worst_ = Worse(worst_, outcome.status);
    }

    std::string HeadingOf(const InputFile& file) const {
        if (options_.json || !list_.isSeveral || command_.heading != Heading::Name) return {};
        return Inked(Ink::Strong, PrintableLocal(file.name) + ":") + "\n";
    }

    Outcome DoText(const InputFile& file, Output& out) const {
        const bool isBrief = list_.isSeveral && command_.showBriefly;
        const auto& show = isBrief ? command_.showBriefly : command_.showText;
        return Attempt(file, [&] { return show(file, out); });
    }

    void Summarize() {
        progress_.Erase();
        command_.showSummary(StandardOutput());
    }

    Outcome DoJson(const InputFile& file, Output& out) const {
        Json json = {{"package", ToUtf8(FromLocal(file.name))},
                     {"opened", nullptr},
                     {"status", 0},
                     {"error", nullptr}};
        json.update(command_.members);
        Outcome outcome = Attempt(file, [&] { return command_.fillJson(file, json); });
        if (json["opened"].is_null()) json["opened"] = outcome.isOpened;
        json["status"] = static_cast<int>(outcome.status);
        if (!outcome.error.empty()) json["error"] = outcome.error;
        out.WriteLine(list_.isSeveral ? JsonLine(json) : JsonText(json));
        return outcome;
    }

    const FileOptions& options_;
    const FileCommand& command_;
    const FileList list_;
    Progress progress_;
    ResultOrder order_;
    std::latch start_{1};
    std::size_t others_ = 0;  // known from the start on
    std::atomic<std::size_t> next_ = 0;
    std::mutex mutex_;
    ExitStatus worst_;
    std::exception_ptr failure_;
};

}  // namespace

ExitStatus RunFiles(const FileOptions& options, const FileCommand& command) {
    FileList list = ListFiles(options.files);
    return FileRun(options, command, std::move(list)).Run();
}

ExitStatus RunFile(const std::string& argument, bool json, const FileCommand& command) {
    FileList list;
    list.files.push_back(TheFile(argument));
    FileOptions options;
    options.json = json;
    return FileRun(options, command, std::move(list)).Run();
}

}  // namespace vexpa_tool

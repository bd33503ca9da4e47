// vexpa check FILE...: does it open, why not, and what will hurt an importer.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tool/check/CheckSummary.h"
#include "tool/check/FindingHelp.h"
#include "tool/check/ReportJson.h"
#include "tool/check/ReportText.h"
#include "tool/check/Selection.h"
#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/model/Vocabulary.h"

namespace vexpa_tool {

namespace {

// Of a finding, where all are to be told: a hostile archive may have a million.
constexpr std::size_t kMostItems = 10'000;

struct Arguments {
    FileOptions files;
    CheckOptions check;
    Selection selection;
    Severity failOn = Severity::Error;
    bool isAll = false;
    bool isQuiet = false;
};

class CheckRun {
public:
    explicit CheckRun(Arguments arguments) : arguments_(std::move(arguments)) {
        if (arguments_.isAll || arguments_.files.json) arguments_.check.mostItems = kMostItems;
        if (!arguments_.check.isDeep) return;
        vocabulary_.emplace();
        arguments_.check.vocabulary = &*vocabulary_;
    }

    ExitStatus Run() { return RunFiles(arguments_.files, arguments_.isQuiet ? Quiet() : Telling()); }

private:
    FileCommand Quiet() {
        FileCommand command;
        command.heading = Heading::None;
        command.showText = [this](const InputFile& file, Output&) { return StatusOf(Check(file)); };
        return command;
    }

    FileCommand Telling() {
        FileCommand command;
        command.heading = Heading::None;
        command.showText = [this](const InputFile& file, Output& out) {
            const CheckReport report = Check(file);
            WriteReport(file.name, report, arguments_.isAll, out);
            return StatusOf(report);
        };
        command.showBriefly = [this](const InputFile& file, Output& out) {
            const CheckReport report = Check(file);
            WriteBriefReport(file.name, report, arguments_.isAll, out);
            return StatusOf(report);
        };
        command.showSummary = [this](Output& out) { summary_.Write(arguments_.isAll, out); };
        command.members = EmptyReportJson();
        command.fillJson = [this](const InputFile& file, Json& json) {
            const CheckReport report = Check(file);
            FillReportJson(report, json);
            return StatusOf(report);
        };
        return command;
    }

    CheckReport Check(const InputFile& file) {
        CheckReport report = CheckPackage(file, arguments_.check);
        arguments_.selection.Narrow(report);
        summary_.Add(report);
        return report;
    }

    ExitStatus StatusOf(const CheckReport& report) const {
        if (!report.opens) return kFindings;
        for (const auto& [kind, count] : report.counts) {
            if (kind.second <= arguments_.failOn) return kFindings;
        }
        return kDone;
    }

    Arguments arguments_;
    std::optional<Vocabulary> vocabulary_;
    CheckSummary summary_;
};

void AddPatterns(const CommandLine& line, const std::string& name,
                 std::vector<FindingPattern>& patterns, const std::string& use) {
    const auto take = [name, &patterns](const std::string& text) {
        const FindingPattern pattern(text);
        if (!pattern.IsKnown()) throw WrongUsage(name + ": no such finding: " + text);
        patterns.push_back(pattern);
    };
    line.List(name, take, use).Called("VX...");
}

void AddFailOn(const CommandLine& line, Severity& failOn) {
    line.Choice<Severity>("--fail-on", failOn,
                          {{"error", Severity::Error}, {"warning", Severity::Warning}},
                          "Exit with 1 on errors (default), or also on warnings")
        .Called("error|warning");
}

CommandRun Declare(const CommandLine& line) {
    const auto arguments = std::make_shared<Arguments>();
    AddFiles(line, arguments->files);
    line.Flag("--deep", arguments->check.isDeep,
              "Read every part, parse the XML, open the compound files");
    AddFailOn(line, arguments->failOn);
    AddPatterns(line, "--only", arguments->selection.only,
                "Tell of these findings only: VX305, or VX3");
    AddPatterns(line, "--ignore", arguments->selection.ignored, "Leave these findings out");
    line.Flag("-a,--all", arguments->isAll,
              "Show all findings of one kind and all that a finding sums up; of several files the "
              "information, too");
    line.Size("--max-part-size", arguments->check.largestPart, "Do not read larger parts (512M)");
    line.Option("--max-entries", arguments->check.mostEntries,
                "Look at no more than N entries (1048576)");
    AddQuiet(line, arguments->isQuiet);
    return [arguments] { return CheckRun(*arguments).Run(); };
}

std::string Help(const std::string& word, bool asJson) {
    return asJson ? FindingHelpJson(word) : FindingHelp(word);
}

const HelpRegistration helpRegistration(Help);

const CommandRegistration registration({"check", "Tell why a package does not open, and what is wrong",
                                        Declare});

}  // namespace

}  // namespace vexpa_tool

// vexpa, the inspector of packages: reads the command line and runs one command.

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <csignal>
#include <cstdio>
#include <exception>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "tool/ExitStatus.h"
#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/commands/HelpFormatter.h"
#include "tool/commands/UsageError.h"
#include "tool/run/Interrupt.h"
#include "tool/run/StandardDescriptors.h"
#include "tool/text/Appearance.h"
#include "tool/text/JsonText.h"
#include "tool/text/Local.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

namespace {

ExitStatus ComplainAndEnd(ExitStatus status, const std::string& what) {
    Complain(what);
    return status;
}

using Runs = std::vector<std::pair<const CLI::App*, CommandRun>>;

struct CommonOptions {
    AppearanceOptions appearance;
    bool versionAsJson = false;
};

Runs DeclareCommandLine(CLI::App& app, CommonOptions& options) {
    app.name("vexpa");
    FormatHelp(app);
    // Scripts append to options that they were given: the last one counts. Left to itself, the parser
    // takes --deep=3 for three times the flag, and --deep=no for none.
    app.option_defaults()->take_last()->disable_flag_override();
    app.set_help_flag("-h,--help", "Print this help and exit");
    // Before the version, which is printed as soon as it is met.
    app.add_flag("--json", options.versionAsJson, "With --version: print it as JSON");
    app.set_version_flag("--version", VEXPA_VERSION, "Print the version and exit");
    // Exactly one, which also leaves later words free to be a file called like a command.
    app.require_subcommand(1);
    app.footer(
        "Exit status: 0 done, 1 findings or differences, 2 wrong usage, 3 the package\n"
        "does not open, 4 no such part or name, 5 read or write error, 130 interrupted.");
    Runs runs;
    for (const Command& command : AllCommands()) {
        CLI::App* arguments = app.add_subcommand(command.name, command.summary);
        arguments->group("Commands");
        const CommandLine line(*arguments);
        runs.emplace_back(arguments, command.declare(line));
        AddAppearance(line, options.appearance);
    }
    return runs;
}

ExitStatus RunCommandLine(int argc, char** argv) {
    CLI::App app("Show what is in an Office Open XML package.");
    CommonOptions options;
    const Runs runs = DeclareCommandLine(app, options);
    ExitStatus status = kDone;
    if (argc <= 1) {
        std::fputs(app.help().c_str(), stderr);
        return kWrongUsage;
    }
    try {
        app.parse(argc, argv);
        if (options.versionAsJson) throw CLI::ExtrasError({"--json"});  // it was meant for the command
        DecideAppearance(options.appearance);
        for (const auto& [arguments, run] : runs) {
            if (arguments->parsed()) status = run();
        }
    } catch (const CLI::CallForHelp&) {
        StandardOutput().Write(app.help());
    } catch (const CLI::CallForVersion& version) {
        const std::string number = version.what();
        StandardOutput().WriteLine(options.versionAsJson ? JsonText({{"vexpa", number}})
                                                         : "vexpa " + number);
    } catch (const CLI::ParseError& error) {
        return ComplainAndEnd(kWrongUsage, UsageError(app, error));
    } catch (const WrongUsage& error) {
        return ComplainAndEnd(kWrongUsage, UsageError(app, error));
    }
    FlushOutput();
    return status;
}

}  // namespace

}  // namespace vexpa_tool

int main(int argc, char** argv) {
    using namespace vexpa_tool;
    OccupyClosedDescriptors();
    UseEnvironmentLocale();
    // A closed pipe ends the tool without a word, also where whoever started it ignores that.
    std::signal(SIGPIPE, SIG_DFL);
    NoteInterrupts();
    try {
        return RunCommandLine(argc, argv);
    } catch (const ToolError& error) {
        // Who interrupted it knows.
        if (error.Status() == kInterrupted) return kInterrupted;
        return ComplainAndEnd(error.Status(), error.what());
    } catch (const std::bad_alloc&) {
        std::fputs("vexpa: out of memory\n", stderr);  // to say so may take none
        return kReadOrWriteError;
    } catch (const std::exception& error) {
        return ComplainAndEnd(kReadOrWriteError, error.what());
    }
}

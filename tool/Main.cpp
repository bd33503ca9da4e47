// vexpa, the inspector of packages: reads the command line and runs one command.

#include <csignal>
#include <cstdio>
#include <exception>
#include <functional>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "tool/ExitStatus.h"
#include "tool/commands/Command.h"
#include "tool/text/Local.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

namespace {

int Complain(ExitStatus status, const std::string& what) {
    std::fprintf(stderr, "vexpa: %s\n", what.c_str());
    return status;
}

using Runs = std::vector<std::pair<const CLI::App*, std::function<void()>>>;

Runs DeclareCommandLine(CLI::App& app) {
    app.name("vexpa");
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.get_formatter()->label("TEXT", "");
    app.get_formatter()->label("REQUIRED", "");
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.set_version_flag("--version", "vexpa " VEXPA_VERSION, "Print the version and exit");
    // Exactly one, which also leaves later words free to be a file called like a command.
    app.require_subcommand(1);
    app.footer(
        "Exit status: 0 done, 2 wrong usage, 3 the package does not open,\n"
        "4 no such part or name, 5 read or write error.");
    Runs runs;
    for (const Command& command : AllCommands()) {
        CLI::App* arguments = app.add_subcommand(command.name, command.summary);
        arguments->group("Commands");
        runs.emplace_back(arguments, command.declare(*arguments));
    }
    return runs;
}

// The parser misses a command before it looks at the word that stands in its place.
std::string UsageError(const CLI::App& app, const CLI::ParseError& error) {
    const std::vector<std::string> unknown = app.remaining();
    const bool hasCommand = !app.get_subcommands().empty();
    if (hasCommand || unknown.empty()) return PrintableLocal(error.what());
    return "no such command or option: " + PrintableLocal(unknown.front());
}

int RunCommandLine(int argc, char** argv) {
    CLI::App app("Show what is in an Office Open XML package.");
    const Runs runs = DeclareCommandLine(app);
    if (argc <= 1) {
        std::fputs(app.help().c_str(), stderr);
        return kWrongUsage;
    }
    try {
        app.parse(argc, argv);
        for (const auto& [arguments, run] : runs) {
            if (arguments->parsed()) run();
        }
    } catch (const CLI::CallForHelp&) {
        Write(app.help());
    } catch (const CLI::CallForVersion& version) {
        WriteLine(version.what());
    } catch (const CLI::ParseError& error) {
        return Complain(kWrongUsage, UsageError(app, error) + " (see vexpa --help)");
    }
    FlushOutput();
    return kDone;
}

}  // namespace

}  // namespace vexpa_tool

int main(int argc, char** argv) {
    using namespace vexpa_tool;
    UseEnvironmentLocale();
    // A closed pipe ends the tool without a word, also where whoever started it ignores that.
    std::signal(SIGPIPE, SIG_DFL);
    try {
        return RunCommandLine(argc, argv);
    } catch (const ToolError& error) {
        return Complain(error.Status(), error.what());
    } catch (const std::bad_alloc&) {
        return Complain(kReadOrWriteError, "out of memory");
    } catch (const std::exception& error) {
        return Complain(kReadOrWriteError, error.what());
    }
}

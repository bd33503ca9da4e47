#include "tool/commands/UsageError.h"

#include <unistd.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <vector>

#include "tool/text/Local.h"

namespace vexpa_tool {

namespace {

bool IsOption(const std::string& word) {
    return word.size() > 1 && word.front() == '-' && word != "--";
}

// The first that is not known, or empty.
std::string FirstOption(const std::vector<std::string>& words) {
    const auto found = std::find_if(words.begin(), words.end(), IsOption);
    return found == words.end() ? std::string() : *found;
}

bool Has(const CLI::App& command, const std::string& option) {
    return command.get_option_no_throw(option.substr(0, option.find('='))) != nullptr;
}

std::string NoSuchOption(const std::string& option) {
    const std::string shown = PrintableLocal(option);
    const bool isFile = access(option.c_str(), F_OK) == 0;
    return "no such option: " + shown + (isFile ? "; the file of that name is ./" + shown : "");
}

std::string BeforeTheCommand(const CLI::App& command, const std::string& option) {
    if (!Has(command, option)) return NoSuchOption(option);
    return "options stand behind the command: vexpa " + command.get_name() + " " +
           PrintableLocal(option);
}

// The parser's own words for it: "--depth: 1 required N missing", "deep was given a disallowed...".
std::string OfValue(const std::exception& error) {
    const std::string text = PrintableLocal(error.what());
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) == nullptr) return text;
    const std::size_t colon = text.find(':');
    return colon != std::string::npos ? text.substr(0, colon) + ": needs a value"
                                      : "--" + text.substr(0, text.find(' ')) + ": takes no value";
}

// The parser misses a word before it looks at the one that stands in its place.
std::string WithoutCommand(const CLI::App& program, const std::exception& error) {
    const std::vector<std::string> unknown = program.remaining();
    if (unknown.empty()) {
        const bool isMissed = dynamic_cast<const CLI::RequiredError*>(&error) != nullptr;
        return isMissed ? "a command is required" : OfValue(error);
    }
    return "no such command or option: " + PrintableLocal(unknown.front());
}

std::string OfCommand(const CLI::App& program, const CLI::App& command, const std::exception& error) {
    // The program has this one itself, for its version.
    const bool hasJson = program.count("--json") != 0;
    const std::string before = hasJson ? "--json" : FirstOption(program.remaining());
    if (!before.empty()) return BeforeTheCommand(command, before);
    const std::vector<std::string> unknown = command.remaining();
    const std::string option = FirstOption(unknown);
    if (!option.empty()) return NoSuchOption(option);
    if (!unknown.empty()) return "one word too many: " + PrintableLocal(unknown.front());
    return OfValue(error);
}

}  // namespace

std::string UsageError(const CLI::App& program, const std::exception& error) {
    const std::vector<CLI::App*> commands = program.get_subcommands();
    if (commands.empty()) return WithoutCommand(program, error) + " (see vexpa --help)";
    const CLI::App& command = *commands.front();
    return OfCommand(program, command, error) + " (see vexpa " + command.get_name() + " --help)";
}

}  // namespace vexpa_tool

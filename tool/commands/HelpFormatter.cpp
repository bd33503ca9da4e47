#include "tool/commands/HelpFormatter.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "tool/text/Table.h"

namespace vexpa_tool {

namespace {

constexpr std::size_t kWidth = 80;
constexpr std::size_t kCommandColumn = 12;
constexpr std::size_t kWidestName = 34;

// "-r, --recursive", "    --depth N", "FILE..."
std::string NamesOf(const CLI::Option& option, bool isPositional) {
    if (isPositional) return option.get_name(true, false);
    std::string names = option.get_snames().empty() ? "    " : "-" + option.get_snames().front() + ", ";
    if (!option.get_lnames().empty()) names += "--" + option.get_lnames().front();
    if (option.get_expected_max() == 0) return names;
    // What checks a value adds to its name, after a colon.
    const std::string value = option.get_type_name();
    return names + " " + value.substr(0, value.find(':'));
}

// The name, and beside it the text, wrapped.
std::string Entry(const std::string& name, std::size_t column, std::string_view text) {
    const std::size_t indent = column + 4;
    std::string entry = "  " + (name.size() > column ? name + "\n" + std::string(indent, ' ')
                                                     : Padded(name, column) + "  ");
    const std::size_t room = kWidth - indent;
    while (text.size() > room) {
        const std::size_t blank = text.rfind(' ', room);
        if (blank == std::string_view::npos) break;
        entry += std::string(text.substr(0, blank)) + "\n" + std::string(indent, ' ');
        text.remove_prefix(blank + 1);
    }
    return entry.append(text) + "\n";
}

class HelpFormatter final : public CLI::Formatter {
public:
    HelpFormatter();

    std::string make_group(std::string group, bool isPositional,
                           std::vector<const CLI::Option*> options) const override;
    std::string make_option_usage(const CLI::Option* option) const override;
    std::string make_subcommand(const CLI::App* command) const override;
};

HelpFormatter::HelpFormatter() {
    label("Positionals", "Arguments");
    label("SUBCOMMAND", "COMMAND");
}

std::string HelpFormatter::make_group(std::string group, bool isPositional,
                                      std::vector<const CLI::Option*> options) const {
    std::size_t column = 0;
    for (const CLI::Option* option : options) {
        column = std::max(column, NamesOf(*option, isPositional).size());
    }
    column = std::min(column, kWidestName);
    std::string text = "\n" + std::move(group) + ":\n";
    for (const CLI::Option* option : options) {
        text += Entry(NamesOf(*option, isPositional), column, option->get_description());
    }
    return text;
}

std::string HelpFormatter::make_option_usage(const CLI::Option* option) const {
    const std::string name = option->get_name(true, false);
    // A name that says itself what may be left out.
    if (name.find('[') != std::string::npos) return name;
    const bool isList = option->get_expected_max() >= CLI::detail::expected_max_vector_size;
    const std::string usage = isList ? name + "..." : name;
    return option->get_required() ? usage : "[" + usage + "]";
}

std::string HelpFormatter::make_subcommand(const CLI::App* command) const {
    return Entry(command->get_name(), kCommandColumn, command->get_description());
}

}  // namespace

void FormatHelp(CLI::App& program) {
    program.formatter(std::make_shared<HelpFormatter>());
}

std::string HelpOfProgram(const CLI::App& program) {
    // Asked for its help, the program would give that of the command it runs: vexpa help.
    const auto formatter = program.get_formatter();
    return formatter->make_help(&program, program.get_name(), CLI::AppFormatMode::Normal);
}

std::string HelpOfCommand(const CLI::App& program, const std::string& name) {
    for (const CLI::App* command : program.get_subcommands({})) {
        if (command->get_name() == name) return command->help(program.get_name());
    }
    return {};
}

}  // namespace vexpa_tool

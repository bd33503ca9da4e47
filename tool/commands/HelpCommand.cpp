// vexpa help [WORD]: the help of a command, or what is known about another word.

#include <memory>
#include <string>

#include "tool/commands/Command.h"
#include "tool/text/Local.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

namespace {

struct Arguments {
    std::string word;
    bool json = false;
};

std::string HelpOfProgram(const CLI::App& program) {
    // Asked for its help, the program would give that of the command it runs: this one.
    const auto formatter = program.get_formatter();
    return formatter->make_help(&program, program.get_name(), CLI::AppFormatMode::Normal);
}

// Empty for what is no command.
std::string HelpOfCommand(const CLI::App& program, const std::string& word) {
    for (const CLI::App* command : program.get_subcommands({})) {
        if (command->get_name() == word) return command->help(program.get_name());
    }
    return {};
}

ExitStatus Run(const CLI::App& program, const Arguments& arguments) {
    const std::string& word = arguments.word;
    std::string text = word.empty() ? HelpOfProgram(program) : HelpOfCommand(program, word);
    if (!text.empty() && arguments.json) {
        throw CLI::ValidationError("--json",
                                   "findings are what there is as JSON: vexpa help VX --json");
    }
    if (text.empty()) text = HelpOn(word, arguments.json);
    if (text.empty()) throw ToolError(kNoSuchPart, PrintableLocal(word) + ": no such command or topic");
    StandardOutput().Write(text);
    return kDone;
}

CommandRun Declare(CLI::App& app) {
    const auto arguments = std::make_shared<Arguments>();
    app.add_option("WORD", arguments->word,
                   "a command, a finding (VX305), or the beginning of several (VX3, VX)");
    app.add_flag("--json", arguments->json, "write what is known of findings as JSON");
    return [&app, arguments] { return Run(*app.get_parent(), *arguments); };
}

const CommandRegistration registration({"help", "Explain a command or a finding", Declare});

}  // namespace

}  // namespace vexpa_tool

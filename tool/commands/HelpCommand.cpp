// vexpa help [WORD]: the help of a command, or what is known about another word.

#include <memory>
#include <string>

#include "tool/commands/Command.h"
#include "tool/text/Local.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

namespace {

ExitStatus Run(const CLI::App& program, const std::string& word) {
    if (word.empty()) {
        // Asked for its help, the program would give that of the command it runs: this one.
        const auto formatter = program.get_formatter();
        StandardOutput().Write(
            formatter->make_help(&program, program.get_name(), CLI::AppFormatMode::Normal));
        return kDone;
    }
    for (const CLI::App* command : program.get_subcommands({})) {
        if (command->get_name() != word) continue;
        StandardOutput().Write(command->help(program.get_name()));
        return kDone;
    }
    const std::string text = HelpOn(word);
    if (text.empty()) throw ToolError(kNoSuchPart, PrintableLocal(word) + ": no such command or topic");
    StandardOutput().Write(text);
    return kDone;
}

CommandRun Declare(CLI::App& app) {
    const auto word = std::make_shared<std::string>();
    app.add_option("WORD", *word, "a command, or the id of a finding");
    return [&app, word] { return Run(*app.get_parent(), *word); };
}

const CommandRegistration registration({"help", "Explain a command or a finding", Declare});

}  // namespace

}  // namespace vexpa_tool

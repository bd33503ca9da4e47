// vexpa help [WORD]: the help of a command, or what is known about another word.

#include <memory>
#include <string>

#include "tool/commands/Command.h"
#include "tool/commands/HelpFormatter.h"
#include "tool/text/Local.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

namespace {

struct Arguments {
    std::string word;
    bool json = false;
};

ExitStatus Run(const CLI::App& program, const Arguments& arguments) {
    const std::string& word = arguments.word;
    std::string text = word.empty() ? HelpOfProgram(program) : HelpOfCommand(program, word);
    if (!text.empty() && arguments.json) {
        throw WrongUsage("--json: findings are what there is as JSON: vexpa help VX --json");
    }
    if (text.empty()) text = HelpOn(word, arguments.json);
    if (text.empty()) throw ToolError(kNoSuchPart, PrintableLocal(word) + ": no such command or topic");
    StandardOutput().Write(text);
    return kDone;
}

CommandRun Declare(const CommandLine& line) {
    const auto arguments = std::make_shared<Arguments>();
    line.Option("WORD", arguments->word,
                "A command, a finding (VX305), or the beginning of several (VX3, VX)");
    line.Flag("--json", arguments->json, "Write what is known of findings as JSON");
    return [line, arguments] { return Run(line.Program(), *arguments); };
}

const CommandRegistration registration({"help", "Explain a command or a finding", Declare});

}  // namespace

}  // namespace vexpa_tool

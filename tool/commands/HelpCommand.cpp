// vexpa help [WORD]: the help of a command, or what is known about another word.

#include <memory>
#include <string>

#include "tool/commands/Command.h"
#include "tool/commands/HelpFormatter.h"
#include "tool/text/Local.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

namespace {

ExitStatus Run(const CLI::App& program, const std::string& word) {
    std::string text = word.empty() ? HelpOfProgram(program) : HelpOfCommand(program, word);
    if (text.empty()) text = HelpOn(word);
    if (text.empty()) throw ToolError(kNoSuchPart, PrintableLocal(word) + ": no such command or topic");
    StandardOutput().Write(text);
    return kDone;
}

CommandRun Declare(const CommandLine& line) {
    const auto word = std::make_shared<std::string>();
    line.Option("WORD", *word, "a command, or the id of a finding");
    return [line, word] { return Run(line.Program(), *word); };
}

const CommandRegistration registration({"help", "Explain a command or a finding", Declare});

}  // namespace

}  // namespace vexpa_tool

// vexpa completion bash|zsh|fish: the script that completes this command line in a shell.

#include <memory>
#include <string>

#include "tool/commands/Command.h"
#include "tool/completion/CompletionTable.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

namespace {

ExitStatus Run(const CLI::App& program, const std::string& shell) {
    const std::vector<CompletionCommand> commands = MakeCompletionTable(program);
    const auto make = shell == "bash"  ? BashCompletion
                      : shell == "zsh" ? ZshCompletion
                                       : FishCompletion;
    StandardOutput().Write(make(commands));
    return kDone;
}

CommandRun Declare(const CommandLine& line) {
    const auto shell = std::make_shared<std::string>();
    line.Option("SHELL", *shell, "Its name: bash, zsh or fish")
        .Required()
        .OneOf({"bash", "zsh", "fish"});
    return [line, shell] { return Run(line.Program(), *shell); };
}

const CommandRegistration registration({"completion", "Write the script that completes this in a shell",
                                        Declare});

}  // namespace

}  // namespace vexpa_tool

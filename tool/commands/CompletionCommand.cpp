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

CommandRun Declare(CLI::App& app) {
    const auto shell = std::make_shared<std::string>();
    app.add_option("bash|zsh|fish", *shell, "the shell")
        ->required()
        ->check([](const std::string& word) {
            const bool isKnown = word == "bash" || word == "zsh" || word == "fish";
            return isKnown ? std::string() : "is bash, zsh or fish";
        });
    return [&app, shell] { return Run(*app.get_parent(), *shell); };
}

const CommandRegistration registration({"completion", "Write the script that completes this in a shell",
                                        Declare});

}  // namespace

}  // namespace vexpa_tool

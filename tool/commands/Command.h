// tool/commands/Command.h - what a command is, and the list of all.
#ifndef VEXPA_TOOL_COMMANDS_COMMAND_H_
#define VEXPA_TOOL_COMMANDS_COMMAND_H_

#include <functional>
#include <string>
#include <vector>

#include "tool/ExitStatus.h"
#include "tool/commands/CommandLine.h"

namespace vexpa_tool {

using CommandRun = std::function<ExitStatus()>;

// A command lies whole in a file of its own, which registers it:
//
//     const CommandRegistration registration({"cat", "the bytes of a part", Declare});
struct Command {
    const char* name;
    const char* summary;
    // Declares the command's arguments on its part of the command line, and answers what
    // runs once they are read. It answers how the tool ends, or throws a ToolError.
    CommandRun (*declare)(const CommandLine& line);
};

class CommandRegistration {
public:
    explicit CommandRegistration(const Command& command);
};

// Every command, by name.
std::vector<Command> AllCommands();

// What `vexpa help WORD` prints about a word that is no command, or writes of it as JSON; empty
// for one it does not know. Registered like a command.
using HelpTopic = std::string (*)(const std::string& word, bool asJson);

class HelpRegistration {
public:
    explicit HelpRegistration(HelpTopic topic);
};

// What the registered topics say about the word; empty when none knows it.
std::string HelpOn(const std::string& word, bool asJson);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_COMMANDS_COMMAND_H_

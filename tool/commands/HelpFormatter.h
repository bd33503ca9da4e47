// tool/commands/HelpFormatter.h - how help looks.
#ifndef VEXPA_TOOL_COMMANDS_HELPFORMATTER_H_
#define VEXPA_TOOL_COMMANDS_HELPFORMATTER_H_

#include <string>

namespace CLI {
class App;
}

namespace vexpa_tool {

// From here on the program's help is in 80 columns, with names to the left of what they are for.
void FormatHelp(CLI::App& program);

std::string HelpOfProgram(const CLI::App& program);
// Empty when there is no such command.
std::string HelpOfCommand(const CLI::App& program, const std::string& name);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_COMMANDS_HELPFORMATTER_H_

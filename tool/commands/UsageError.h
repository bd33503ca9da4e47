// tool/commands/UsageError.h - what is wrong with a command line, in a line.
#ifndef VEXPA_TOOL_COMMANDS_USAGEERROR_H_
#define VEXPA_TOOL_COMMANDS_USAGEERROR_H_

#include <exception>
#include <string>

#include "tool/commands/Command.h"

namespace vexpa_tool {

// Of a WrongUsage, or the error that parsing has thrown: "no such option: --bogus (see vexpa check
// --help)".
std::string UsageError(const CLI::App& program, const std::exception& error);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_COMMANDS_USAGEERROR_H_

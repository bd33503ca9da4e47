// tool/commands/CommonArguments.h - the arguments that commands share.
#ifndef VEXPA_TOOL_COMMANDS_COMMONARGUMENTS_H_
#define VEXPA_TOOL_COMMANDS_COMMONARGUMENTS_H_

#include <string>

#include "tool/commands/Command.h"
#include "tool/run/FileRun.h"
#include "tool/text/Appearance.h"

namespace vexpa_tool {

// FILE... and what goes with several: -r, -j, --progress; and --json.
void AddFiles(const CommandLine& line, FileOptions& options);
// The same without FILE..., for a command with positional arguments of its own.
void AddFileOptions(const CommandLine& line, FileOptions& options);

// FILE, the one of a command that takes one.
void AddFile(const CommandLine& line, std::string& file);
// PART
Argument AddPart(const CommandLine& line, std::string& part, const std::string& use);
Argument AddJson(const CommandLine& line, bool& json);
// -q, for a command whose exit status is an answer; after --json, which it excludes.
void AddQuiet(const CommandLine& line, bool& quiet);

// Says in the help what stands in brackets behind a type, for a command that prints a ShortType.
void NoteTypeNumbers(const CommandLine& line);

// --color and --ascii, which every command has.
void AddAppearance(const CommandLine& line, AppearanceOptions& options);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_COMMANDS_COMMONARGUMENTS_H_

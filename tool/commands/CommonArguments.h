// tool/commands/CommonArguments.h - the arguments that commands share.
#ifndef VEXPA_TOOL_COMMANDS_COMMONARGUMENTS_H_
#define VEXPA_TOOL_COMMANDS_COMMONARGUMENTS_H_

#include <string>

#include "tool/commands/Command.h"
#include "tool/run/FileRun.h"
#include "tool/text/Appearance.h"

namespace vexpa_tool {

// FILE... and what goes with several: -r, -j, --progress; and --json.
void AddFiles(CLI::App& app, FileOptions& options);
// The same without FILE..., for a command with positional arguments of its own.
void AddFileOptions(CLI::App& app, FileOptions& options);

// FILE, the one of a command that takes one.
void AddFile(CLI::App& app, std::string& file);
// PART
CLI::Option* AddPart(CLI::App& app, std::string& part, const std::string& use);
// The option's value is a whole number; or a size in bytes, with a unit or without.
CLI::Option* TakesNumber(CLI::Option* option);
CLI::Option* TakesSize(CLI::Option* option);
CLI::Option* AddJson(CLI::App& app, bool& json);
// -q, for a command whose exit status is an answer; after --json, which it excludes.
void AddQuiet(CLI::App& app, bool& quiet);

// --color and --ascii, which every command has.
void AddAppearance(CLI::App& app, AppearanceOptions& options);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_COMMANDS_COMMONARGUMENTS_H_

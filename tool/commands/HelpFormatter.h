// tool/commands/HelpFormatter.h - how help looks.
#ifndef VEXPA_TOOL_COMMANDS_HELPFORMATTER_H_
#define VEXPA_TOOL_COMMANDS_HELPFORMATTER_H_

#include <string>

#include "tool/commands/Command.h"

namespace vexpa_tool {

// In 80 columns, with names to the left of what they are for.
class HelpFormatter final : public CLI::Formatter {
public:
    HelpFormatter();

    std::string make_group(std::string group, bool isPositional,
                           std::vector<const CLI::Option*> options) const override;
    std::string make_option_usage(const CLI::Option* option) const override;
    std::string make_subcommand(const CLI::App* command) const override;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_COMMANDS_HELPFORMATTER_H_

// tool/completion/CompletionTable.h - what can be typed, for the scripts that complete it.
#ifndef VEXPA_TOOL_COMPLETION_COMPLETIONTABLE_H_
#define VEXPA_TOOL_COMPLETION_COMPLETIONTABLE_H_

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace vexpa_tool {

enum class WordKind { Other, File, Part, Choice };

struct CompletionWord {
    WordKind kind = WordKind::Other;
    std::vector<std::string> choices = {};
    bool repeats = false;  // the last one may stand any number of times
};

struct CompletionOption {
    std::vector<std::string> names;  // "-r", "--recursive"
    std::string description;
    bool takesValue = false;
    CompletionWord value;
};

struct CompletionCommand {
    std::string name;
    std::string summary;
    std::vector<CompletionOption> options;
    std::vector<CompletionWord> words;
};

// Taken from the declared command line, so that it is never behind it.
std::vector<CompletionCommand> MakeCompletionTable(const CLI::App& program);

std::string BashCompletion(const std::vector<CompletionCommand>& commands);
std::string ZshCompletion(const std::vector<CompletionCommand>& commands);
std::string FishCompletion(const std::vector<CompletionCommand>& commands);

// "a b c"
std::string Joined(const std::vector<std::string>& words, const std::string& between = " ");

// In single quotes, for any shell.
std::string ShellQuoted(const std::string& text);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_COMPLETION_COMPLETIONTABLE_H_

#include "tool/completion/CompletionTable.h"

namespace vexpa_tool {

namespace {

constexpr const char* kHead = R"sh(# fish completion for vexpa:  vexpa completion fish | source

function __vexpa_parts
    for word in (commandline -opc)[3..-1]
        test -f $word; or continue
        set -l slash (string match -r '^/' -- (commandline -ct))
        test -z "$slash"; and echo main
        vexpa ls -0 -- $word 2>/dev/null | string split0 | string replace -r '^' "$slash"
        return
    end
end

# Whether a file stands before the word that is completed.
function __vexpa_has_file
    for word in (commandline -opc)[3..-1]
        test -f $word; and return 0
    end
    return 1
end

complete -c vexpa -n __fish_use_subcommand -f
complete -c vexpa -n __fish_use_subcommand -l help -d 'Print this help and exit'
complete -c vexpa -n __fish_use_subcommand -l version -d 'Print the version and exit'
)sh";

std::string Value(const CompletionWord& word) {
    switch (word.kind) {
        case WordKind::File:
            return " -r -F";
        case WordKind::Part:
            return " -x -a '(__vexpa_parts)'";
        case WordKind::Choice:
            return " -x -a " + ShellQuoted(Joined(word.choices));
        case WordKind::Other:
            break;
    }
    return " -x";
}

std::string OptionLine(const std::string& lead, const CompletionOption& option) {
    std::string line = lead;
    for (const std::string& name : option.names) {
        line += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    }
    if (option.takesValue) line += Value(option.value);
    return line + " -d " + ShellQuoted(option.description) + "\n";
}

std::string WordLines(const CompletionCommand& command) {
    std::string lines;
    const std::string seen = "__fish_seen_subcommand_from " + command.name;
    for (const CompletionWord& word : command.words) {
        if (word.kind == WordKind::Choice) {
            lines += "complete -c vexpa -n " + ShellQuoted(seen) + " -f -a " +
                     ShellQuoted(Joined(word.choices)) + "\n";
        } else if (word.kind == WordKind::Part) {
            lines += "complete -c vexpa -n " + ShellQuoted(seen + "; and __vexpa_has_file") +
                     " -f -a '(__vexpa_parts)'\n";
        }
    }
    return lines;
}

}  // namespace

std::string FishCompletion(const std::vector<CompletionCommand>& commands) {
    std::string text = kHead;
    for (const CompletionCommand& command : commands) {
        text += "complete -c vexpa -n __fish_use_subcommand -a " + command.name + " -d " +
                ShellQuoted(command.summary) + "\n";
        const std::string lead =
            "complete -c vexpa -n " + ShellQuoted("__fish_seen_subcommand_from " + command.name);
        for (const CompletionOption& option : command.options) text += OptionLine(lead, option);
        text += WordLines(command);
    }
    return text;
}

}  // namespace vexpa_tool

#include "tool/completion/CompletionTable.h"

namespace vexpa_tool {

namespace {

constexpr const char* kHead = R"sh(#compdef vexpa
# zsh completion for vexpa: put it as _vexpa into a folder of $fpath, or
#     source <(vexpa completion zsh)

# The entries of the first word that is a file.
_vexpa_parts() {
    local -a parts
    local word
    for word in ${(Q)words[2,-1]}; do
        [[ -f $word ]] || continue
        parts=(main ${(0)"$($service ls -0 -- $word 2>/dev/null)"})
        [[ $PREFIX == /* ]] && parts=(/${^parts})
        break
    done
    compadd -a parts
}

_vexpa() {
    local state line
    local -a commands
)sh";

// In a description brackets and colons have a meaning.
std::string Described(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == ':' || c == '\\') escaped += '\\';
        escaped += c;
    }
    return escaped;
}

std::string Action(const CompletionWord& word) {
    switch (word.kind) {
        case WordKind::File:
            return "file:_files";
        case WordKind::Part:
            return "part:_vexpa_parts";
        case WordKind::Choice:
            return "word:(" + Joined(word.choices) + ")";
        case WordKind::Other:
            break;
    }
    return "word: ";
}

std::string CommandCase(const CompletionCommand& command) {
    std::string text = "        " + command.name + ")\n            _arguments";
    for (const CompletionOption& option : command.options) {
        for (const std::string& name : option.names) {
            const std::string value = option.takesValue ? ":" + Action(option.value) : "";
            text += " \\\n                " +
                    ShellQuoted(name + "[" + Described(option.description) + "]" + value);
        }
    }
    for (const CompletionWord& word : command.words) {
        text += " \\\n                " + ShellQuoted((word.repeats ? "*:" : ":") + Action(word));
    }
    return text + " ;;\n";
}

}  // namespace

std::string ZshCompletion(const std::vector<CompletionCommand>& commands) {
    std::string list, cases;
    for (const CompletionCommand& command : commands) {
        list += "        " + ShellQuoted(command.name + ":" + Described(command.summary)) + "\n";
        cases += CommandCase(command);
    }
    return std::string(kHead) + "    commands=(\n" + list +
           "    )\n"
           "    _arguments -C '1: :->command' '*:: :->words'\n"
           "    case $state in\n"
           "        command) _describe command commands ;;\n"
           "        words) _vexpa_command ;;\n"
           "    esac\n}\n\n"
           "_vexpa_command() {\n    case $words[1] in\n" +
           cases +
           "    esac\n}\n\n"
           "if [[ $funcstack[1] == _vexpa ]]; then _vexpa \"$@\"; else compdef _vexpa vexpa; fi\n";
}

}  // namespace vexpa_tool

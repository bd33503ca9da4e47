#include "tool/completion/CompletionTable.h"

namespace vexpa_tool {

namespace {

constexpr const char* kHead = R"sh(# bash completion for vexpa:  source <(vexpa completion bash)

_vexpa_choose() {
    local IFS=$' \t\n'
    COMPREPLY=($(compgen -W "$1" -- "$2"))
}

# A word without the quotes it is typed with; nothing in it is carried out.
_vexpa_plain() {
    local word=${1//\\/}
    word=${word#[\"\']}
    printf '%s' "${word%[\"\']}"
}

# The entries of the file $1 that begin with $2, which may have a slash before the name.
_vexpa_parts() {
    local name slash=
    [[ $2 == /* ]] && slash=/
    COMPREPLY=()
    while IFS= read -r -d '' name; do
        [[ $slash$name == "$2"* ]] && COMPREPLY+=("$(printf '%q' "$slash$name")")
    done < <([[ $slash ]] || printf 'main\0'; "${COMP_WORDS[0]}" ls -0 -- "$1" 2>/dev/null)
}

_vexpa_word() {
    case $1 in
        file) compopt -o filenames 2>/dev/null; COMPREPLY=($(compgen -f -- "$3")) ;;
        part) _vexpa_parts "$2" "$(_vexpa_plain "$3")" ;;
        choice:*) _vexpa_choose "${1#choice:}" "$3" ;;
    esac
}

_vexpa() {
    local IFS=$'\n'
    local current=${COMP_WORDS[COMP_CWORD]} options= valued= word= first= i
    local -a words=() kinds=()
    COMPREPLY=()
)sh";

constexpr const char* kTail = R"sh(        *) return ;;
    esac
    # The words so far that are no options, nor values of options.
    for ((i = 2; i < COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        if [[ $valued == *" $word "* ]]; then
            ((++i))
        elif [[ $word != -?* ]]; then
            words+=("$word")
        fi
    done
    first=$(_vexpa_plain "${words[0]}")
    if ((i > COMP_CWORD)); then
        _vexpa_value "${COMP_WORDS[1]} ${COMP_WORDS[COMP_CWORD-1]}" "$first" "$current"
    elif [[ $current == -* ]]; then
        _vexpa_choose "$options" "$current"
    else
        i=${#words[@]}
        ((i >= ${#kinds[@]})) && [[ ${kinds[-1]} == *... ]] && i=$((${#kinds[@]} - 1))
        _vexpa_word "${kinds[i]%...}" "$first" "$current"
    fi
}

complete -F _vexpa vexpa
)sh";

std::string KindText(const CompletionWord& word) {
    const std::string repeats = word.repeats ? "..." : "";
    switch (word.kind) {
        case WordKind::File:
            return "file" + repeats;
        case WordKind::Part:
            return "part" + repeats;
        case WordKind::Choice:
            return "choice:" + Joined(word.choices);
        case WordKind::Other:
            break;
    }
    return "other";
}

std::string CommandCase(const CompletionCommand& command) {
    std::vector<std::string> options, valued, kinds;
    for (const CompletionOption& option : command.options) {
        options.insert(options.end(), option.names.begin(), option.names.end());
        if (option.takesValue) valued.insert(valued.end(), option.names.begin(), option.names.end());
    }
    for (const CompletionWord& word : command.words) kinds.push_back(ShellQuoted(KindText(word)));
    return "        " + command.name + ") options=" + ShellQuoted(Joined(options)) +
           " valued=" + ShellQuoted(" " + Joined(valued) + " ") + " kinds=(" + Joined(kinds) + ") ;;\n";
}

// What can follow the options that take a value.
std::string ValueCases(const CompletionCommand& command) {
    std::string cases;
    for (const CompletionOption& option : command.options) {
        if (!option.takesValue) continue;
        std::vector<std::string> patterns;
        for (const std::string& name : option.names) {
            patterns.push_back(ShellQuoted(command.name + " " + name));
        }
        cases += "        " + Joined(patterns, "|") + ") _vexpa_word " +
                 ShellQuoted(KindText(option.value)) + " \"$2\" \"$3\" ;;\n";
    }
    return cases;
}

}  // namespace

std::string BashCompletion(const std::vector<CompletionCommand>& commands) {
    std::string names, cases, values;
    for (const CompletionCommand& command : commands) {
        names += command.name + " ";
        cases += CommandCase(command);
        values += ValueCases(command);
    }
    return std::string(kHead) + "    if ((COMP_CWORD == 1)); then\n        _vexpa_choose " +
           ShellQuoted(names + "--help --version") +
           " \"$current\"\n        return\n    fi\n    case ${COMP_WORDS[1]} in\n" + cases + kTail +
           "\n_vexpa_value() {\n    case $1 in\n" + values + "    esac\n}\n";
}

}  // namespace vexpa_tool

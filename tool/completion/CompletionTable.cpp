#include "tool/completion/CompletionTable.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <set>
#include <sstream>

#include "tool/check/FindingTable.h"
#include "tool/check/PartNames.h"
#include "tool/model/RelationshipTypeNames.h"
#include "vexpa/base/Utf16.h"

namespace vexpa_tool {

namespace {

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> pieces;
    std::istringstream stream(text);
    for (std::string piece; std::getline(stream, piece, separator);) pieces.push_back(piece);
    return pieces;
}

// "auto|always|never" are words to choose from; FILE|NAME are two kinds of them.
bool IsChoice(const std::string& name) {
    const bool isLower =
        std::none_of(name.begin(), name.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
    return isLower && name.find('|') != std::string::npos;
}

std::vector<std::string> FindingIds() {
    std::vector<std::string> ids;
    for (const FindingKind& kind : kFindingTable) ids.push_back(IdText(kind.id));
    return ids;
}

// The ends of the types in the library's table, each once.
std::vector<std::string> RelationshipTypes() {
    std::set<std::string> ends;
    for (std::size_t i = 0; i < kRelationshipTypeNameCount; ++i) {
        const auto id = static_cast<tarn::opc::RelationshipTypeId>(i);
        ends.insert(TypeTail(tarn::CopyText(tarn::opc::GetRelationshipTypeUri(id))));
    }
    return {ends.begin(), ends.end()};
}

CompletionWord WordOf(const std::string& name) {
    CompletionWord word;
    if (name == "VX...") return {WordKind::Choice, FindingIds()};
    if (name == "TYPE") return {WordKind::Choice, RelationshipTypes()};
    if (name == "SHELL") return {WordKind::Choice, {"bash", "zsh", "fish"}};
    if (IsChoice(name)) {
        word.kind = WordKind::Choice;
        word.choices = Split(name, '|');
    } else if (name.find("PART") != std::string::npos) {
        word.kind = WordKind::Part;
    } else if (name == "A" || name == "B" || name.find("FILE") != std::string::npos) {
        word.kind = WordKind::File;
    }
    return word;
}

void AddWords(const CLI::Option& positional, CompletionCommand& command) {
    const bool isList = positional.get_expected_max() >= CLI::detail::expected_max_vector_size;
    for (const std::string& name : Split(positional.get_name(true, false), ' ')) {
        command.words.push_back(WordOf(name));
    }
    if (isList && command.words.back().kind == WordKind::File) command.words.back().repeats = true;
}

CompletionOption OptionOf(const CLI::Option& option) {
    CompletionOption described;
    for (const std::string& name : option.get_snames()) described.names.push_back("-" + name);
    for (const std::string& name : option.get_lnames()) described.names.push_back("--" + name);
    described.description = option.get_description();
    described.takesValue = option.get_expected_max() != 0;
    if (described.takesValue) described.value = WordOf(option.get_type_name());
    return described;
}

}  // namespace

std::vector<CompletionCommand> MakeCompletionTable(const CLI::App& program) {
    std::vector<CompletionCommand> commands;
    std::vector<std::string> names;
    for (const CLI::App* app : program.get_subcommands({})) {
        CompletionCommand command{app->get_name(), app->get_description(), {}, {}};
        for (const CLI::Option* option : app->get_options()) {
            if (option->get_positional()) {
                AddWords(*option, command);
            } else {
                command.options.push_back(OptionOf(*option));
            }
        }
        names.push_back(command.name);
        commands.push_back(std::move(command));
    }
    for (const std::string& id : FindingIds()) names.push_back(id);
    for (CompletionCommand& command : commands) {
        if (command.name == "help") command.words = {{WordKind::Choice, names, false}};
    }
    return commands;
}

std::string Joined(const std::vector<std::string>& words, const std::string& between) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : between) + word;
    return text;
}

std::string ShellQuoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? "'\\''" : std::string(1, c);
    return quoted + "'";
}

}  // namespace vexpa_tool

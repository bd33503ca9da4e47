// tool/commands/CommandLine.h - how a command declares what can be typed after its name.
#ifndef VEXPA_TOOL_COMMANDS_COMMANDLINE_H_
#define VEXPA_TOOL_COMMANDS_COMMANDLINE_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace vexpa_tool {

// What was typed makes no sense: the tool ends with kWrongUsage and points to its help.
class WrongUsage : public std::runtime_error {
public:
    using runtime_error::runtime_error;
};

// One option, flag or word that was declared; lives as long as the command line.
class Argument {
public:
    explicit Argument(CLI::Option* option) : option_(option) {}

    Argument Required() const;
    // How help calls the value.
    Argument Called(const std::string& name) const;
    Argument OneOf(const std::vector<std::string>& words) const;
    Argument Excludes(const Argument& other) const;
    Argument Needs(const Argument& other) const;

    // Once the command line is read.
    bool IsGiven() const;

private:
    CLI::Option* option_;
};

// The arguments of one command. A name without a dash before it is a word in its place; what is
// typed is stored in the variable, which has to outlive the reading.
//
// Alone in knowing the parser: its headers cost more to compile than any command.
class CommandLine {
public:
    explicit CommandLine(CLI::App& app) : app_(&app) {}

    Argument Flag(const std::string& names, bool& isGiven, const std::string& use) const;
    Argument Option(const std::string& names, std::string& text, const std::string& use) const;
    // A whole number, 0 or more.
    Argument Option(const std::string& names, unsigned& number, const std::string& use) const;
    Argument Option(const std::string& names, std::size_t& number, const std::string& use) const;
    // A number with or without a unit, such as 512M.
    Argument Size(const std::string& names, std::uint64_t& size, const std::string& use) const;
    // One word or more.
    Argument Words(const std::string& name, std::vector<std::string>& words,
                   const std::string& use) const;

    // Hands over each of a list, "a,b"; what is taken ill is thrown as WrongUsage.
    using TakeText = std::function<void(const std::string& text)>;
    Argument List(const std::string& name, const TakeText& take, const std::string& use) const;

    // Each word with what it means.
    template <class Meaning>
    Argument Choice(const std::string& name, Meaning& chosen,
                    const std::vector<std::pair<std::string, Meaning>>& choices,
                    const std::string& use) const {
        std::vector<std::string> words;
        for (const auto& [word, meaning] : choices) words.push_back(word);
        const auto choose = [&chosen, choices](std::size_t i) { chosen = choices[i].second; };
        return ChoiceOf(name, words, choose, use);
    }

    // Stands below the options in the command's help, above what stands there for all commands.
    void Note(const std::string& text) const;

    // One that is declared already.
    Argument Find(const std::string& name) const;

    // The whole program, of which this is one command.
    const CLI::App& Program() const;

private:
    Argument ChoiceOf(const std::string& name, const std::vector<std::string>& words,
                      const std::function<void(std::size_t)>& choose, const std::string& use) const;

    CLI::App* app_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_COMMANDS_COMMANDLINE_H_

#include "tool/commands/CommandLine.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>

namespace vexpa_tool {

namespace {

// "is a, b or c"
std::string IsOneOf(const std::vector<std::string>& words) {
    std::string text = "is " + words.front();
    for (std::size_t i = 1; i < words.size(); ++i) {
        text += (i + 1 == words.size() ? " or " : ", ") + words[i];
    }
    return text;
}

}  // namespace

Argument Argument::Required() const {
    option_->required();
    return *this;
}

Argument Argument::Called(const std::string& name) const {
    option_->type_name(name);
    return *this;
}

Argument Argument::OneOf(const std::vector<std::string>& words) const {
    option_->check([words](const std::string& text) {
        const bool isKnown = std::find(words.begin(), words.end(), text) != words.end();
        return isKnown ? std::string() : IsOneOf(words);
    });
    return *this;
}

Argument Argument::Excludes(const Argument& other) const {
    option_->excludes(other.option_);
    return *this;
}

Argument Argument::Needs(const Argument& other) const {
    option_->needs(other.option_);
    return *this;
}

bool Argument::IsGiven() const {
    return option_->count() != 0;
}

Argument CommandLine::Flag(const std::string& names, bool& isGiven, const std::string& use) const {
    return Argument(app_->add_flag(names, isGiven, use));
}

Argument CommandLine::Option(const std::string& names, std::string& text,
                             const std::string& use) const {
    return Argument(app_->add_option(names, text, use));
}

Argument CommandLine::Option(const std::string& names, unsigned& number, const std::string& use) const {
    return Argument(app_->add_option(names, number, use));
}

Argument CommandLine::Option(const std::string& names, std::size_t& number,
                             const std::string& use) const {
    return Argument(app_->add_option(names, number, use));
}

Argument CommandLine::Size(const std::string& names, std::uint64_t& size,
                           const std::string& use) const {
    return Argument(app_->add_option(names, size, use)->transform(CLI::AsSizeValue(false)));
}

Argument CommandLine::Words(const std::string& name, std::vector<std::string>& words,
                            const std::string& use) const {
    return Argument(app_->add_option(name, words, use)->required()->expected(1, -1));
}

Argument CommandLine::List(const std::string& name, const TakeText& take,
                           const std::string& use) const {
    const auto takeAll = [take](const std::vector<std::string>& texts) {
        for (const std::string& text : texts) take(text);
    };
    return Argument(app_->add_option_function<std::vector<std::string>>(name, takeAll, use)
                        ->delimiter(',')
                        ->allow_extra_args(false));
}

Argument CommandLine::ChoiceOf(const std::string& name, const std::vector<std::string>& words,
                               const std::function<void(std::size_t)>& choose,
                               const std::string& use) const {
    const auto take = [name, words, choose](const std::string& text) {
        const auto found = std::find(words.begin(), words.end(), text);
        if (found == words.end()) throw WrongUsage(name + ": " + IsOneOf(words));
        choose(static_cast<std::size_t>(found - words.begin()));
    };
    return Argument(app_->add_option_function<std::string>(name, take, use));
}

Argument CommandLine::Find(const std::string& name) const {
    return Argument(app_->get_option(name));
}

const CLI::App& CommandLine::Program() const {
    return *app_->get_parent();
}

}  // namespace vexpa_tool

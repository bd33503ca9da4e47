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

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The parser itself takes "" for 0.
Argument Number(CLI::Option* option) {
    option->type_name("N")->check([](const std::string& text) {
        const bool isNumber = !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
        return isNumber ? std::string() : "is a number, 0 or more";
    });
    return Argument(option);
}

// "2K" as "2048". The parser itself takes -1 for the largest size that there is.
bool MakeSize(std::string& text) {
    if (text.empty() || !IsDigit(text.front())) return false;
    try {
        return CLI::AsSizeValue(false)(text).empty();
    } catch (const CLI::ValidationError&) {
        return false;
    }
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
    return Number(app_->add_option(names, number, use));
}

Argument CommandLine::Option(const std::string& names, std::size_t& number,
                             const std::string& use) const {
    return Number(app_->add_option(names, number, use));
}

Argument CommandLine::Size(const std::string& names, std::uint64_t& size,
                           const std::string& use) const {
    const auto take = [](std::string& text) {
        return MakeSize(text) ? std::string() : "is a number of bytes, or of K, M or G: 512M";
    };
    CLI::Option* option = app_->add_option(names, size, use);
    return Argument(option->type_name("SIZE")->transform(CLI::Validator(take, "")));
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

void CommandLine::Note(const std::string& text) const {
    app_->footer(text + "\n" + app_->get_footer());
}

Argument CommandLine::Find(const std::string& name) const {
    return Argument(app_->get_option(name));
}

const CLI::App& CommandLine::Program() const {
    return *app_->get_parent();
}

}  // namespace vexpa_tool

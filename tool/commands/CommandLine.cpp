#include "tool/commands/CommandLine.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace vexpa_tool {

namespace {

// The parser puts the name of the option before it: "--fail-on: must be error or warning, not foo".
std::string MustBe(const std::string& what, const std::string& typed) {
    return "must be " + what + ", not " + (typed.empty() ? "\"\"" : typed);
}

// "a, b or c"
std::string OneOfThese(const std::vector<std::string>& words) {
    std::string text = words.front();
    for (std::size_t i = 1; i < words.size(); ++i) {
        text += (i + 1 == words.size() ? " or " : ", ") + words[i];
    }
    return text;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The parser itself takes "" for 0.
Argument Number(CLI::Option* option, std::uint64_t most) {
    option->type_name("N")->check([most](const std::string& text) {
        std::uint64_t number = 0;
        const char* end = text.data() + text.size();
        const auto [stop, error] = std::from_chars(text.data(), end, number);
        if (error == std::errc::invalid_argument || stop != end) return MustBe("a whole number", text);
        const bool isTooLarge = error != std::errc() || number > most;
        return isTooLarge ? MustBe("at most " + std::to_string(most), text) : std::string();
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
        return isKnown ? std::string() : MustBe(OneOfThese(words), text);
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
    return Number(app_->add_option(names, number, use), std::numeric_limits<unsigned>::max());
}

Argument CommandLine::Option(const std::string& names, std::size_t& number,
                             const std::string& use) const {
    return Number(app_->add_option(names, number, use), std::numeric_limits<std::size_t>::max());
}

Argument CommandLine::Size(const std::string& names, std::uint64_t& size,
                           const std::string& use) const {
    const auto take = [](std::string& text) {
        const std::string typed = text;
        return MakeSize(text) ? std::string()
                              : MustBe("a number, with or without K, M or G (512M)", typed);
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
        if (found == words.end()) throw WrongUsage(name + ": " + MustBe(OneOfThese(words), text));
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

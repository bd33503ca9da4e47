#include "tool/commands/CommonArguments.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "tool/text/Wrap.h"

namespace vexpa_tool {

namespace {

constexpr std::array<std::pair<const char*, When>, 3> kWhens = {
    {{"auto", When::Auto}, {"always", When::Always}, {"never", When::Never}}};

void AddWhen(CLI::App& app, const std::string& name, When& when, const std::string& use) {
    const auto take = [name, &when](const std::string& word) {
        for (const auto& [known, meaning] : kWhens) {
            if (word != known) continue;
            when = meaning;
            return;
        }
        throw CLI::ValidationError(name, "is auto, always or never");
    };
    app.add_option_function<std::string>(name, take, use)->type_name("auto|always|never");
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
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

std::string DocumentsNote() {
    std::string list;
    for (const std::string_view extension : DocumentExtensions()) list.append(extension).append(" ");
    return "Documents, for -r, are the files with one of these extensions:\n" +
           Wrapped(list, "  ", "  ");
}

}  // namespace

void AddFiles(CLI::App& app, FileOptions& options) {
    app.add_option("FILE", options.files.arguments,
                   "packages; - is standard input, @LIST a file with a name on each line")
        ->required()
        ->expected(1, -1);
    AddFileOptions(app, options);
}

void AddFileOptions(CLI::App& app, FileOptions& options) {
    app.add_flag("-r,--recursive", options.files.recursive, "take the documents below a folder");
    app.footer(DocumentsNote() + "\n" + app.get_footer());
    TakesNumber(app.add_option("-j,--jobs", options.jobs,
                               "files to read at the same time; 0 for all processors"));
    AddWhen(app, "--progress", options.progress, "show how far it is");
    AddJson(app, options.json);
}

void AddFile(CLI::App& app, std::string& file) {
    app.add_option("FILE", file, "the package; - is standard input")->required();
}

CLI::Option* AddPart(CLI::App& app, std::string& part, const std::string& use) {
    return app.add_option("PART", part, use + ": a name or its end, main, or ID@PART");
}

// The parser itself takes "" for 0.
CLI::Option* TakesNumber(CLI::Option* option) {
    return option->type_name("N")->check([](const std::string& text) {
        const bool isNumber = !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
        return isNumber ? std::string() : "is a number, 0 or more";
    });
}

CLI::Option* TakesSize(CLI::Option* option) {
    return option->type_name("SIZE")->transform(CLI::Validator(
        [](std::string& text) {
            return MakeSize(text) ? std::string() : "is a number of bytes, or of K, M or G: 512M";
        },
        ""));
}

CLI::Option* AddJson(CLI::App& app, bool& json) {
    return app.add_flag("--json", json, "write JSON");
}

void AddQuiet(CLI::App& app, bool& quiet) {
    app.add_flag("-q,--quiet", quiet, "print no result; the exit status tells")
        ->excludes(app.get_option("--json"));
}

void AddAppearance(CLI::App& app, AppearanceOptions& options) {
    AddWhen(app, "--color", options.colour, "use colours");
    app.add_flag("--ascii", options.asciiOnly, "escape whatever is beyond ASCII");
}

}  // namespace vexpa_tool

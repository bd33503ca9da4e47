#include "tool/commands/CommonArguments.h"

#include <string_view>

#include "tool/text/Wrap.h"

namespace vexpa_tool {

namespace {

void AddWhen(const CommandLine& line, const std::string& name, When& when, const std::string& use) {
    line.Choice<When>(name, when,
                      {{"auto", When::Auto}, {"always", When::Always}, {"never", When::Never}}, use)
        .Called("auto|always|never");
}

std::string DocumentsNote() {
    std::string list;
    for (const std::string_view extension : DocumentExtensions()) list.append(extension).append(" ");
    return "Documents, for -r, are the files with one of these extensions:\n" +
           Wrapped(list, "  ", "  ");
}

}  // namespace

void AddFiles(const CommandLine& line, FileOptions& options) {
    line.Words("FILE", options.files.arguments,
               "packages; - is standard input, @LIST a file with a name on each line");
    AddFileOptions(line, options);
}

void AddFileOptions(const CommandLine& line, FileOptions& options) {
    line.Flag("-r,--recursive", options.files.recursive, "take the documents below a folder");
    line.Note(DocumentsNote());
    line.Option("-j,--jobs", options.jobs, "files to read at the same time; 0 for all processors");
    AddWhen(line, "--progress", options.progress, "show how far it is");
    AddJson(line, options.json);
}

void AddFile(const CommandLine& line, std::string& file) {
    line.Option("FILE", file, "the package; - is standard input").Required();
}

Argument AddPart(const CommandLine& line, std::string& part, const std::string& use) {
    return line.Option("PART", part, use + ": a name or its end, main, or ID@PART");
}

Argument AddJson(const CommandLine& line, bool& json) {
    return line.Flag("--json", json, "write JSON");
}

void AddQuiet(const CommandLine& line, bool& quiet) {
    line.Flag("-q,--quiet", quiet, "print no result; the exit status tells")
        .Excludes(line.Find("--json"));
}

void AddAppearance(const CommandLine& line, AppearanceOptions& options) {
    AddWhen(line, "--color", options.colour, "use colours");
    line.Flag("--ascii", options.asciiOnly, "escape whatever is beyond ASCII");
}

}  // namespace vexpa_tool

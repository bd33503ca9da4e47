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
               "Packages; - is standard input, @LIST a file with a name on each line");
    AddFileOptions(line, options);
}

void AddFileOptions(const CommandLine& line, FileOptions& options) {
    line.Flag("-r,--recursive", options.files.recursive, "Search folders for documents");
    line.Note(DocumentsNote());
    line.Option("-j,--jobs", options.jobs, "Files to read at the same time; 0 for all processors");
    AddWhen(line, "--progress", options.progress, "Show progress");
    AddJson(line, options.json);
}

void AddFile(const CommandLine& line, std::string& file) {
    line.Option("FILE", file, "The package; - is standard input").Required();
}

Argument AddPart(const CommandLine& line, std::string& part, const std::string& use) {
    return line.Option("PART", part, use + ": a name or its last segments, main, ID@PART or TYPE@PART");
}

Argument AddJson(const CommandLine& line, bool& json) {
    return line.Flag("--json", json, "Write JSON");
}

void AddQuiet(const CommandLine& line, bool& quiet) {
    line.Flag("-q,--quiet", quiet, "Print no result; the exit status tells")
        .Excludes(line.Find("--json"));
}

void NoteTypeNumbers(const CommandLine& line) {
    line.Note("In brackets stands the library's number for a type, - for none.\n");
}

void AddAppearance(const CommandLine& line, AppearanceOptions& options) {
    AddWhen(line, "--color", options.colour, "Use colours");
    line.Flag("--ascii", options.asciiOnly, "Escape whatever is beyond ASCII");
}

}  // namespace vexpa_tool

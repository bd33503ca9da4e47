// tool/run/FileRun.h - one command over each of the files that a command line means.
#ifndef VEXPA_TOOL_RUN_FILERUN_H_
#define VEXPA_TOOL_RUN_FILERUN_H_

#include <functional>

#include "tool/ExitStatus.h"
#include "tool/InputFile.h"
#include "tool/run/FileList.h"
#include "tool/text/Appearance.h"
#include "tool/text/JsonText.h"
#include "tool/text/Output.h"

namespace vexpa_tool {

struct FileOptions {
    FileArguments files;
    unsigned jobs = 1;  // 0: as many as there are processors
    When progress = When::Auto;
    bool json = false;
};

// What is printed around the text of each file when there are several.
enum class Heading {
    None,       // the lines of all files are one list
    BlankLine,  // the text names its file
    Name,       // the file's name, and blank lines
};

// What a command does with a file: from several threads at once, so it shares nothing that
// changes. It throws a ToolError to end with another status, and the next file follows.
struct FileCommand {
    Heading heading = Heading::Name;
    std::function<ExitStatus(const InputFile& file, Output& out)> showText;
    // In place of showText when there are several files, and once after them; or none.
    std::function<ExitStatus(const InputFile& file, Output& out)> showBriefly;
    std::function<void(Output& out)> showSummary;

    // With --json the result is one object for each file, on one line if there are several:
    //
    //     {"package": "a.docx", "opened": true, "status": 0, "error": null, ...}
    //
    // and then these members, which hold what a file without anything has. What has to be said
    // of a file is filled in; after a ToolError the members stay as they are. The file has been
    // opened unless there is a NotOpenedError, or what is filled in says otherwise.
    Json members = Json::object();
    std::function<ExitStatus(const InputFile& file, Json& json)> fillJson;
};

ExitStatus RunFiles(const FileOptions& options, const FileCommand& command);

// The same for the one file of a command that takes one.
ExitStatus RunFile(const std::string& argument, bool json, const FileCommand& command);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_RUN_FILERUN_H_

// tool/run/FileList.h - the files that a command line means.
#ifndef VEXPA_TOOL_RUN_FILELIST_H_
#define VEXPA_TOOL_RUN_FILELIST_H_

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tool/ExitStatus.h"
#include "tool/InputFile.h"

namespace vexpa_tool {

// "-" is standard input, "@list" the files that the file `list` names, a line each (or a
// NUL-terminated text each, as `find -print0` writes them), "@-" the same from standard
// input. With `recursive` a folder means the documents below it.
struct FileArguments {
    std::vector<std::string> arguments;
    bool recursive = false;
};

// Whether several files may be meant, however many there are: what decides the form of an
// output must not depend on what is found.
bool MeansSeveralFiles(const FileArguments& arguments);

struct FileList {
    std::vector<InputFile> files;
    bool isSeveral = false;     // MeansSeveralFiles
    ExitStatus status = kDone;  // worse when a folder or a list could not be read
};

// Files below a folder come in the order of their names. What cannot be read is complained
// of, and the rest goes on.
FileList ListFiles(const FileArguments& arguments);

// The one file of a command that takes one, which may be "-".
InputFile TheFile(const std::string& argument);

// The extensions of documents, in lower case and in order: "docx".
std::span<const std::string_view> DocumentExtensions();

// By its extension; the lock file that stands beside a document in use is none.
bool IsDocumentName(const std::string& name);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_RUN_FILELIST_H_

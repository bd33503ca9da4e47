// tool/InputFile.h - a file that a command line names.
#ifndef VEXPA_TOOL_INPUTFILE_H_
#define VEXPA_TOOL_INPUTFILE_H_

#include <string>
#include <utility>

namespace vexpa_tool {

// Both are in the encoding of the locale. They differ for standard input, which is read
// through a file in memory.
struct InputFile {
    // Implicit: nearly always the name is the path.
    InputFile(std::string nameAndPath) : name(std::move(nameAndPath)), path(name) {}
    InputFile(std::string shownName, std::string openedPath)
        : name(std::move(shownName)), path(std::move(openedPath)) {}

    std::string name;  // as it is shown
    std::string path;  // as it is opened
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_INPUTFILE_H_

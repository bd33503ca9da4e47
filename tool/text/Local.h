// tool/text/Local.h - what the command line says, in the encoding of the locale, and UTF-16.
#ifndef VEXPA_TOOL_TEXT_LOCAL_H_
#define VEXPA_TOOL_TEXT_LOCAL_H_

#include <string>

namespace vexpa_tool {

// Makes the locale of the environment the process's.
//
// Containers set no locale, and in plain ASCII every other file and part name would be
// lost; UTF-8 is what their files are named in.
void UseEnvironmentLocale();

// Whether the environment itself says UTF-8, so that a terminal will show it.
bool EnvironmentIsUtf8();

// Bytes outside the encoding become U+FFFD.
std::u16string FromLocal(const std::string& local);

// Whether the text survives the way to UTF-16 and back, as a file name has to.
bool IsLocalText(const std::string& local);

// For messages and headings: an argument as Printable text, two quotes for an empty one. Bytes
// outside the encoding stand as \xff.
std::string PrintableLocal(const std::string& local);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_TEXT_LOCAL_H_

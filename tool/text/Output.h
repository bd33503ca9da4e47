// tool/text/Output.h - where results go; standard output, with every failed write noticed.
#ifndef VEXPA_TOOL_TEXT_OUTPUT_H_
#define VEXPA_TOOL_TEXT_OUTPUT_H_

#include <cstddef>
#include <string_view>

namespace vexpa_tool {

// Takes results. A write throws a FatalError when they can go nowhere any more.
class Output {
public:
    virtual void Write(const char* bytes, std::size_t size) = 0;
    void Write(std::string_view text) { Write(text.data(), text.size()); }
    void WriteLine(std::string_view line);

protected:
    ~Output() = default;
};

// What is written may only fail when it is flushed, so the tool is done when FlushOutput
// returns.
Output& StandardOutput();
void FlushOutput();

// All but results goes to standard error.
void WriteNote(std::string_view line);
// "vexpa: ..."
void Complain(std::string_view what);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_TEXT_OUTPUT_H_

// tool/text/HexDump.h - bytes as lines of hexadecimal numbers.
#ifndef VEXPA_TOOL_TEXT_HEXDUMP_H_
#define VEXPA_TOOL_TEXT_HEXDUMP_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "tool/text/Output.h"

namespace vexpa_tool {

// Takes bytes in pieces of any size and writes lines as `hexdump -C` does:
//
//     00000000  50 4b 03 04 14 00 00 00  08 00 61 62 63 64 65 66  |PK........abcdef|
class HexDump {
public:
    explicit HexDump(Output& out) : out_(out) {}

    void Add(std::string_view bytes);
    // The last line, and one with the number of bytes; nothing when there were none.
    void Finish();

private:
    void WriteRow();

    Output& out_;
    std::string row_;
    std::uint64_t position_ = 0;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_TEXT_HEXDUMP_H_

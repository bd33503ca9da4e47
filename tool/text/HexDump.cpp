#include "tool/text/HexDump.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>

namespace vexpa_tool {

namespace {

constexpr std::size_t kRow = 16;

std::string PositionText(std::uint64_t position) {
    char text[24];
    std::snprintf(text, sizeof text, "%08" PRIx64, position);
    return text;
}

bool IsPlain(char byte) {
    return byte >= 0x20 && byte < 0x7F;
}

}  // namespace

void HexDump::Add(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::string_view piece = bytes.substr(0, kRow - row_.size());
        row_ += piece;
        bytes.remove_prefix(piece.size());
        if (row_.size() == kRow) WriteRow();
    }
}

void HexDump::Finish() {
    if (!row_.empty()) WriteRow();
    if (position_ != 0) out_.WriteLine(PositionText(position_));
}

void HexDump::WriteRow() {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string line = PositionText(position_) + " ";
    for (std::size_t i = 0; i < kRow; ++i) {
        line += i == kRow / 2 ? "  " : " ";
        const auto byte = static_cast<unsigned char>(i < row_.size() ? row_[i] : 0);
        line += i < row_.size() ? std::string{kDigits[byte >> 4], kDigits[byte & 15]} : "  ";
    }
    std::string plain = row_;
    std::replace_if(
        plain.begin(), plain.end(), [](char byte) { return !IsPlain(byte); }, '.');
    out_.WriteLine(line + "  |" + plain + "|");
    position_ += row_.size();
    row_.clear();
}

}  // namespace vexpa_tool

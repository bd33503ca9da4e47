// vexpa/opc/UriEscape.h - percent escapes.
#ifndef VEXPA_OPC_URIESCAPE_H_
#define VEXPA_OPC_URIESCAPE_H_

#include <cstddef>
#include <string_view>

namespace tarn::opc {

inline constexpr std::size_t kUriEscapeSize = 3;

// Whether a '%' with two hexadecimal digits stands at `at`.
bool IsUriEscape(std::string_view text, std::size_t at);

// Stores `text` with every escape turned into the byte it names, and a zero after it: at
// most text.size() + 1 bytes. A '%' that begins no escape stays.
void PercentDecode(std::string_view text, char* out);

}  // namespace tarn::opc

#endif  // VEXPA_OPC_URIESCAPE_H_

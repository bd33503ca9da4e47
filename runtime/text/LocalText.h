// runtime/text/LocalText.h - between UTF-16 and the encoding of the process locale.
#ifndef VEXPA_RUNTIME_TEXT_LOCALTEXT_H_
#define VEXPA_RUNTIME_TEXT_LOCALTEXT_H_

#include <string>
#include <string_view>

namespace vexpa_runtime {

// Characters that the other side does not have come out as a substitute. Both convert as
// the library does, so that a path or a name means the same on either side of a call. Once static
// objects end the locale's encoding is gone, and what is not ASCII comes out empty.
std::string ToLocal(const char16_t* text);
std::u16string FromLocal(std::string_view text);

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_TEXT_LOCALTEXT_H_

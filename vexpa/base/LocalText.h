// vexpa/base/LocalText.h - between UTF-16 and the encoding of the process locale.
#ifndef VEXPA_BASE_LOCALTEXT_H_
#define VEXPA_BASE_LOCALTEXT_H_

#include <QByteArray>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "vexpa/base/Noncopyable.h"

namespace tarn {

// Text in the 8-bit encoding of the process locale, as QString::toLocal8Bit gives it, of at most
// INT_MAX / 8 units. Most texts are short and hold only characters that every encoding has in the same
// place; those do without Qt's codec and the heap, which cost more than what they are converted for.
class LocalText : Noncopyable {
public:
    explicit LocalText(std::u16string_view text);

    // False when the text is not ASCII and the locale's encoding is gone, as it is once static objects
    // end; then there is nothing to view.
    explicit operator bool() const noexcept { return isConverted_; }

    // Ends in a NUL besides. The bytes may be written, as some calls take them so.
    char* Data() noexcept { return isShort_ ? short_.data() : long_.data(); }
    std::string_view View() noexcept { return {Data(), size_}; }

private:
    std::array<char, 256> short_;
    QByteArray long_;
    std::size_t size_;
    bool isShort_ = false;
    bool isConverted_ = true;
};

// The other way, as QString::fromLocal8Bit; empty where LocalText would be false.
std::u16string FromLocalText(std::string_view text);

}  // namespace tarn

#endif  // VEXPA_BASE_LOCALTEXT_H_

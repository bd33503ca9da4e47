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

// The answer of QString::toLocal8Bit for a text of at most INT_MAX / 8 units, for as long as this
// object lives. Qt's codecs, and memory for the answer, cost more than what most texts are converted
// for, so the short ones of characters that all encodings agree on go without either.
class LocalText : Noncopyable {
public:
    explicit LocalText(std::u16string_view text);

    // Ends in a NUL besides. The bytes may be written, as some calls take them so.
    char* Data() noexcept { return isShort_ ? short_.data() : long_.data(); }
    std::string_view View() noexcept { return {Data(), size_}; }

private:
    std::array<char, 256> short_;
    QByteArray long_;
    std::size_t size_;
    bool isShort_ = false;
};

// The answer of QString::fromLocal8Bit, in the same way.
std::u16string FromLocalText(std::string_view text);

}  // namespace tarn

#endif  // VEXPA_BASE_LOCALTEXT_H_

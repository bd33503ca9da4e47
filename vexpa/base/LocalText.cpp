#include "vexpa/base/LocalText.h"

#include <QString>
#include <algorithm>

namespace tarn {

namespace {

// True for the characters that every encoding of a locale has in the same place. The
// backslash and the tilde are others in some.
template <class Unit>
bool IsInvariant(Unit unit) {
    return unit >= 0x20 && unit < 0x7E && unit != '\\';
}

}  // namespace

LocalText::LocalText(std::u16string_view text) : size_(text.size()) {
    const int size = static_cast<int>(text.size());
    if (!std::all_of(text.begin(), text.end(), IsInvariant<char16_t>)) {
        long_ = QString::fromUtf16(text.data(), size).toLocal8Bit();
        size_ = static_cast<std::size_t>(long_.size());
        return;
    }
    isShort_ = size_ < short_.size();
    if (!isShort_) long_ = QByteArray(size, Qt::Uninitialized);
    *std::transform(text.begin(), text.end(), Data(), [](char16_t c) { return char(c); }) = 0;
}

std::u16string FromLocalText(std::string_view text) {
    if (!std::all_of(text.begin(), text.end(), IsInvariant<char>)) {
        return QString::fromLocal8Bit(text.data(), static_cast<int>(text.size())).toStdU16String();
    }
    return {text.begin(), text.end()};
}

}  // namespace tarn

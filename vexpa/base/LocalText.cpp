#include "vexpa/base/LocalText.h"

#include <QString>
#include <QTextCodec>
#include <algorithm>

namespace tarn {

namespace {

// True for the characters that every encoding of a locale has in the same place. The
// backslash and the tilde are others in some.
template <class Unit>
bool IsInvariant(Unit unit) {
    return unit >= 0x20 && unit < 0x7E && unit != '\\';
}

// Whether Qt converts the text, rather than taking Latin-1 for the encoding of the locale, as it
// does when its codec is gone: ASCII is what it was then, and anything else another text.
template <class Text>
bool IsConvertible(Text text) {
    if (QTextCodec::codecForLocale() != nullptr) return true;
    return std::all_of(text.begin(), text.end(), [](auto unit) { return (unit & ~0x7F) == 0; });
}

}  // namespace

LocalText::LocalText(std::u16string_view text) : size_(text.size()) {
    const int size = static_cast<int>(text.size());
    if (!std::all_of(text.begin(), text.end(), IsInvariant<char16_t>)) {
        isConverted_ = IsConvertible(text);
        size_ = 0;
        if (!isConverted_) return;
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
        if (!IsConvertible(text)) return {};
        return QString::fromLocal8Bit(text.data(), static_cast<int>(text.size())).toStdU16String();
    }
    return {text.begin(), text.end()};
}

}  // namespace tarn

#include "runtime/text/LocalText.h"

#include <QByteArray>
#include <QString>
#include <QTextCodec>
#include <algorithm>

namespace vexpa_runtime {

namespace {

// True for the characters that every encoding of a locale has in the same place. Most paths
// consist of nothing else, and Qt's codecs cost more than what a path is converted for.
bool IsInvariant(char16_t unit) {
    return unit >= 0x20 && unit < 0x7E && unit != u'\\';
}

// Whether Qt converts the text, rather than taking Latin-1 for the encoding of the locale, as it
// does when its codec is gone: ASCII is what it was then, and anything else another text.
template <class Text>
bool IsConvertible(Text text) {
    if (QTextCodec::codecForLocale() != nullptr) return true;
    return std::all_of(text.begin(), text.end(), [](auto unit) { return (unit & ~0x7F) == 0; });
}

}  // namespace

std::string ToLocal(const char16_t* text) {
    const std::u16string_view units = text == nullptr ? u"" : text;
    if (!std::all_of(units.begin(), units.end(), IsInvariant)) {
        if (!IsConvertible(units)) return {};
        return QString::fromUtf16(text).toLocal8Bit().toStdString();
    }
    std::string local(units.size(), '\0');
    std::transform(units.begin(), units.end(), local.begin(), [](char16_t c) { return char(c); });
    return local;
}

std::u16string FromLocal(std::string_view text) {
    if (!IsConvertible(text)) return {};
    return QString::fromLocal8Bit(text.data(), static_cast<int>(text.size())).toStdU16String();
}

}  // namespace vexpa_runtime

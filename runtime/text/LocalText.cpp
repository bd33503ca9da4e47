#include "runtime/text/LocalText.h"

#include <QByteArray>
#include <QString>
#include <algorithm>

namespace vexpa_runtime {

namespace {

// True for the characters that every encoding of a locale has in the same place. Most paths
// consist of nothing else, and Qt's codecs cost more than what a path is converted for.
bool IsInvariant(char16_t unit) {
    return unit >= 0x20 && unit < 0x7E && unit != u'\\';
}

}  // namespace

std::string ToLocal(const char16_t* text) {
    const std::u16string_view units = text == nullptr ? u"" : text;
    if (!std::all_of(units.begin(), units.end(), IsInvariant)) {
        return QString::fromUtf16(text).toLocal8Bit().toStdString();
    }
    std::string local(units.size(), '\0');
    std::transform(units.begin(), units.end(), local.begin(), [](char16_t c) { return char(c); });
    return local;
}

std::u16string FromLocal(std::string_view text) {
    return QString::fromLocal8Bit(text.data(), static_cast<int>(text.size())).toStdU16String();
}

}  // namespace vexpa_runtime

#include <QChar>
#include <string>

#include "vexpa/platform/Runtime.h"

namespace {

// Simple folding, a unit at a time: the length of a text never changes, so two texts of
// different lengths are never equal.
int Fold(char16_t unit) {
    if (unit >= u'A' && unit <= u'Z') return unit + (u'a' - u'A');
    if (unit < 0x80) return unit;
    return QChar(unit).toCaseFolded().unicode();
}

}  // namespace

int _Xu2_stricmp(const char16_t* a, const char16_t* b) {
    if (a == nullptr) a = u"";
    if (b == nullptr) b = u"";
    for (;; ++a, ++b) {
        const int difference = *a == *b ? 0 : Fold(*a) - Fold(*b);
        if (difference != 0 || *a == 0) return difference;
    }
}

char16_t* _Xu2_strchr(const char16_t* text, char16_t unit) {
    if (text == nullptr) return nullptr;
    const std::size_t size = std::char_traits<char16_t>::length(text) + 1;
    return const_cast<char16_t*>(std::char_traits<char16_t>::find(text, size, unit));
}

#include "vexpa/opc/NormalizeRelationshipType.h"

#include <algorithm>
#include <cwctype>

namespace tarn::opc {

namespace {

// What nearly all types consist of is the same in every locale, and needs no call. Capital letters
// are not: some languages fold an I to another letter than i.
bool IsSpace(char16_t unit) {
    if (unit > u' ' && unit < 0x7F) return false;
    return std::iswspace(unit) != 0;
}

char16_t Fold(char16_t unit) {
    if ((unit >= u'a' && unit <= u'z') || (unit > u' ' && unit < u'A')) return unit;
    if (unit == u'\\') return u'/';
    if (std::iswlower(unit) != 0) return unit;
    return static_cast<char16_t>(std::towlower(unit));
}

}  // namespace

// Kept: the first white space ends the type, and a backslash is a slash.
// (NormalizeRelationshipType.FoldsATypeForComparison)
std::u16string NormalizeRelationshipType(std::u16string_view type) {
    // Only the blanks of XML are passed over; any other white space in front cuts at once.
    type.remove_prefix(std::min(type.find_first_not_of(u"\t\n\r "), type.size()));

    const auto end = std::find_if(type.begin(), type.end(), IsSpace);
    std::u16string folded(type.begin(), end);
    std::transform(folded.begin(), folded.end(), folded.begin(), Fold);
    return folded;
}

}  // namespace tarn::opc

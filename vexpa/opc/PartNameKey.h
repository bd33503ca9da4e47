// vexpa/opc/PartNameKey.h - the form of a part name that look-ups compare.
#ifndef VEXPA_OPC_PARTNAMEKEY_H_
#define VEXPA_OPC_PARTNAMEKEY_H_

#include <algorithm>
#include <string>
#include <string_view>

namespace tarn::opc {

// The name less one leading '/' or '\', nothing else changed: producers write targets of
// the package with and without the slash and mean the same part.
//
// Kept: case counts, and so does every other separator. a/b and a\b are two parts over one
// entry. (GetPart.ComparesNamesWithCase, GetPart.TakesTwoSpellingsOfANameForTwoParts,
// ContentTypes.ABackslashNameLosesOnlyItsFirstBackslash)
inline std::u16string_view PartNameKey(std::u16string_view name) {
    if (!name.empty() && (name.front() == u'/' || name.front() == u'\\')) name.remove_prefix(1);
    return name;
}

// A key as the archive's entries are spelled, with slashes. A separator that the key begins
// with is the entry's own.
inline std::u16string EntryName(std::u16string_view key) {
    std::u16string entry(key);
    std::replace(entry.begin(), entry.end(), u'\\', u'/');
    return entry;
}

}  // namespace tarn::opc

#endif  // VEXPA_OPC_PARTNAMEKEY_H_

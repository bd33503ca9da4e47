// vexpa/opc/PartNameKey.h - the form of a part name that look-ups compare.
#ifndef VEXPA_OPC_PARTNAMEKEY_H_
#define VEXPA_OPC_PARTNAMEKEY_H_

#include <algorithm>
#include <string>
#include <string_view>

namespace tarn::opc {

// The name less one leading '/' or '\', nothing else changed: producers write targets of
// the package with and without the slash and mean the same part.
inline std::u16string_view PartNameKey(std::u16string_view name) {
    if (!name.empty() && (name.front() == u'/' || name.front() == u'\\')) name.remove_prefix(1);
    return name;
}

// The key as it stands among the loaded parts. Spelled with slashes and with backslashes an entry is
// two parts; but one in seven folders has 128 mixed spellings, and as many parts would each
// extract it and read its relationships. So these are one with the backslashes alone.
inline std::u16string LoadedPartKey(std::u16string_view name) {
    std::u16string key(PartNameKey(name));
    if (key.find(u'\\') != key.npos) std::replace(key.begin(), key.end(), u'/', u'\\');
    return key;
}

// The key as the archive's entries are spelled, with slashes.
inline std::u16string EntryName(std::u16string_view name) {
    std::u16string entry(PartNameKey(name));
    std::replace(entry.begin(), entry.end(), u'\\', u'/');
    return entry;
}

}  // namespace tarn::opc

#endif  // VEXPA_OPC_PARTNAMEKEY_H_

// runtime/com/StorageElements.h - what a storage of a compound file holds.
#ifndef VEXPA_RUNTIME_COM_STORAGEELEMENTS_H_
#define VEXPA_RUNTIME_COM_STORAGEELEMENTS_H_

#include <gsf/gsf-infile.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/com/GsfPtr.h"
#include "vexpa/platform/Runtime.h"

namespace vexpa_runtime {

struct StorageElement {
    std::u16string name;
    STATSTG stat;  // without the name
    int index;     // within its storage, as libgsf counts
};

// Of elements of one name, which the format forbids and nothing could tell apart, libgsf's
// first is the one; the others are not there. Otherwise who lists a storage and opens what
// it lists would meet the first twice, and what is in it, at each level twice as often.
//
// Case is ignored as the format has it: by the simple upper case of each code unit, in no
// language ([MS-CFB] 2.6.4).
class StorageElements {
public:
    explicit StorageElements(GsfInfile* storage);

    const std::vector<StorageElement>& All() const { return elements_; }

    // The element of that name when it is of that type, or null.
    const StorageElement* Find(std::u16string_view name, STGTY type) const;

private:
    std::vector<StorageElement> elements_;
    std::map<std::u16string, std::size_t> byName_;  // upper case
};

// The element at an index, opened; null when it is damaged.
GsfPtr<GsfInput> OpenElement(GsfInfile* storage, int index);

// Type, size, times and class of an opened element, without its name.
STATSTG DescribeElement(GsfInput* element);

// What Stat answers: `stat`, with a copy of the name when flags ask for it.
HRESULT CopyStat(const STATSTG& stat, std::u16string_view name, std::uint32_t flags,
                 STATSTG* out) noexcept;

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_COM_STORAGEELEMENTS_H_

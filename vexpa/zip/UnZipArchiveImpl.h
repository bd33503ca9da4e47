// vexpa/zip/UnZipArchiveImpl.h - what an open archive knows.
#ifndef VEXPA_ZIP_UNZIPARCHIVEIMPL_H_
#define VEXPA_ZIP_UNZIPARCHIVEIMPL_H_

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory_resource>
#include <string>
#include <vector>

#include "vexpa/base/UnitOrder.h"
#include "vexpa/zip/EntryNameSet.h"

namespace lumo::Compression::Zip {

// Kept: every record has it, and nothing here reads it.
// (HasEntry.MakesRecordsWithTheirFixedKind)
constexpr std::uint32_t kEntryKind = 13;

struct EntryRecord {
    std::u16string name;  // as listed
    std::int64_t value = 0;
    std::uint64_t reserved1[3] = {};
    std::uint32_t kind = kEntryKind;
    std::uint64_t reserved2[2] = {};
};

struct UnZipArchiveImpl {
    // Kept: filled like the list, and no look-up asks it. One of the names that differ only in
    // case stands in it. (HasEntry.FindsBothOfTwoNamesThatDifferInCase)
    EntryNameSet entryNameSet;
    std::u16string archivePath;
    std::vector<EntryRecord> entries;  // in directory order; not empty once listed
    std::vector<std::u16string> reservedTexts;
    // Side by side, as a look-up goes from one to the next, and freed at once. Not from the default
    // resource: that is the process's to choose, and may end before the archive does.
    std::pmr::monotonic_buffer_resource indexMemory{std::pmr::new_delete_resource()};
    // The first of equal names.
    std::pmr::map<std::pmr::u16string, std::size_t, tarn::UnitLess> entryIndexByName{&indexMemory};
    std::u16string reservedText;
};

// Whether the platform may read the file now.
bool IsReadable(const UnZipArchiveImpl& archive);

// Fills the list of entries from the platform; a failure leaves it empty.
void ListEntries(UnZipArchiveImpl& archive);

}  // namespace lumo::Compression::Zip

#endif  // VEXPA_ZIP_UNZIPARCHIVEIMPL_H_

// runtime/zip/EndRecord.h - finds the record that says where an archive's directory lies.
#ifndef VEXPA_RUNTIME_ZIP_ENDRECORD_H_
#define VEXPA_RUNTIME_ZIP_ENDRECORD_H_

#include <cstdint>
#include <optional>
#include <string>

#include "runtime/zip/ArchiveFile.h"

namespace vexpa_runtime::zip {

// An end record, its zip64 companion (APPNOTE 4.3.14 to 4.3.16) worked in.
struct EndRecord {
    std::uint64_t position;      // of the record itself, not of its companion
    std::uint64_t directoryEnd;  // where the directory must end at the latest: the record begins
    std::uint64_t count;         // entries, as claimed
    std::uint64_t size;          // bytes of the directory, as claimed
    std::uint64_t offset;        // of the directory from the archive's start, as claimed
    std::uint32_t disk;
    bool countIsWhole;  // false: only its low 16 bits, as writers without zip64 leave it
};

// Goes through the end records of a file, the last one first, each with its zip64 companion and
// then without: what looks like one may be the end of a comment in the directory.
//
// The signature alone proves nothing: it can stand in a comment or in data after the archive.
// So only records are given out behind which the file shows the beginning of a directory; how
// much of a directory that is, reading it tells. Comment lengths are not asked: archives with
// cut comments and with bytes after them are sound but for that.
class EndRecordSearch {
public:
    explicit EndRecordSearch(const ArchiveFile& file);

    // The next record towards the file's start; nothing when there is none.
    std::optional<EndRecord> Next();

private:
    std::optional<EndRecord> RecordAt(std::size_t tailIndex);

    const ArchiveFile& file_;
    std::string tail_;
    std::uint64_t tailPosition_ = 0;
    std::size_t searchEnd_ = 0;                  // in tail_: everything from here on has been looked at
    std::optional<EndRecord> withoutCompanion_;  // the record given out last, when that had one
};

}  // namespace vexpa_runtime::zip

#endif  // VEXPA_RUNTIME_ZIP_ENDRECORD_H_

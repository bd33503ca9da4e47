// vexpa/zip/UnZipArchive.h - the package's view of its zip file.
#ifndef VEXPA_ZIP_UNZIPARCHIVE_H_
#define VEXPA_ZIP_UNZIPARCHIVE_H_

#include <memory>

#include "vexpa/base/Result.h"

namespace lumo::Compression::Zip {

struct UnZipArchiveImpl;

// A zip archive by its path: which entries it has, and the state that extraction needs.
//
// Nothing is open between calls: the platform gets the path each time. The list of entries
// is asked for by the first HasEntry and kept; a listing that fails is not remembered.
//
// Threads  One thread at a time.
class UnZipArchive {
public:
    UnZipArchive() noexcept;
    virtual ~UnZipArchive();
    UnZipArchive(const UnZipArchive&) = delete;
    UnZipArchive& operator=(const UnZipArchive&) = delete;

    //   S_OK            the file is readable; whether it is an archive shows later
    //   E_ACCESSDENIED  another file is open here already and still readable; nothing changes
    //   E_FAIL          the file is not readable
    HRESULT Open(const char16_t* path);
    void Close() noexcept;  // does nothing on a closed archive

    // Whether there is an entry of exactly this name, after '\' is read as '/'.
    // False for every name when the archive is closed, unreadable or damaged.
    bool HasEntry(const char16_t* name);

    UnZipArchiveImpl* GetImpl() const noexcept { return impl_.get(); }  // [borrowed] null when closed

private:
    std::unique_ptr<UnZipArchiveImpl> impl_;
};

}  // namespace lumo::Compression::Zip

#endif  // VEXPA_ZIP_UNZIPARCHIVE_H_

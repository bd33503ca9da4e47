// vexpa/platform/Com.h - what callers get of the platform: result codes, streams, storages, and the
// memory of the names in them.
//
// Apart from the calls of Runtime.h, whose plain names (u_strlen) other libraries have as well: no
// header that callers include declares those.
//
// Lifetime  As COM has it: an interface pointer handed out carries one reference, which
//           the receiver releases. What differs is said at the declaration.
// Errors    No function throws. E_INVALIDARG: a pointer is null that must not be. E_OUTOFMEMORY:
//           any call that needs memory. Other failures stand at the declarations. A call that
//           fails hands out nothing, and leaves null in its out pointer.
// Threads   A stream or storage and all that came from it - clones, elements - is used by one thread
//           at a time, reference counts included; others may be used meanwhile.
#ifndef VEXPA_PLATFORM_COM_H_
#define VEXPA_PLATFORM_COM_H_

#include <cstddef>
#include <cstdint>

#if defined(__GNUC__)
// Marks the calls of the platform.
#define VEXPA_RUNTIME_API __attribute__((visibility("default")))
#else
#define VEXPA_RUNTIME_API
#endif

// ---------------------------------------------------------------------------------------
// Results

// Negative is failure.
using HRESULT = std::int32_t;

// Done.
inline constexpr HRESULT S_OK = 0;
// Done, but not all that was asked for.
inline constexpr HRESULT S_FALSE = 1;
// There is no such operation.
inline constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80000001U);
// Memory is exhausted.
inline constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x80000002U);
// An argument is null that must not be.
inline constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80000003U);
// The object has no interface of that id.
inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80000004U);
// Any other failure.
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80000008U);
// A write to something that is only read.
inline constexpr HRESULT E_ACCESSDENIED = static_cast<HRESULT>(0x80000009U);
// Storage codes, as COM numbers them: a place or an operation that a stream does not have.
inline constexpr HRESULT STG_E_INVALIDFUNCTION = static_cast<HRESULT>(0x80030001U);
// Likewise: there is no element of that name.
inline constexpr HRESULT STG_E_FILENOTFOUND = static_cast<HRESULT>(0x80030002U);

// ---------------------------------------------------------------------------------------
// COM: the interfaces that callers get, in the standard slot order

// Names an interface or a class.
struct GUID {
    // In the order in which a file has them.
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
};

// Whether all fields are equal.
constexpr bool operator==(const GUID& a, const GUID& b) noexcept {
    if (a.Data1 != b.Data1 || a.Data2 != b.Data2 || a.Data3 != b.Data3) return false;
    for (int i = 0; i < 8; ++i) {
        if (a.Data4[i] != b.Data4[i]) return false;
    }
    return true;
}

// The ids of the interfaces below.
inline constexpr GUID IID_IUnknown = {0x00000000, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID IID_IStorage = {0x0000000B, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID IID_IStream = {0x0000000C, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID IID_IEnumSTATSTG = {0x0000000D, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID IID_ISequentialStream = {
    0x0C733A30, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};

// What every interface begins with: one reference count for all faces of an object.
struct IUnknown {
    // [shared] S_OK with one more reference in *out, or E_NOINTERFACE with null; E_INVALIDARG when out
    // is null.
    virtual HRESULT QueryInterface(const GUID& iid, void** out) = 0;
    // Both answer the new count.
    virtual std::uint32_t AddRef() = 0;
    virtual std::uint32_t Release() = 0;

protected:
    ~IUnknown() = default;
};

// 100 ns since 1601-01-01 UTC; 0 when not known.
struct FILETIME {
    // The halves of the number.
    std::uint32_t dwLowDateTime;
    std::uint32_t dwHighDateTime;
};

// What an element of a storage is.
enum STGTY : std::uint32_t {
    STGTY_STORAGE = 1,  // a storage within the storage
    STGTY_STREAM = 2,   // a stream
};

// Whether Stat gives the name.
enum STATFLAG : std::uint32_t {
    STATFLAG_DEFAULT = 0,  // with the name
    STATFLAG_NONAME = 1,   // without it
};

// Where Seek counts from.
enum STREAM_SEEK : std::uint32_t {
    STREAM_SEEK_SET = 0,  // the start
    STREAM_SEEK_CUR = 1,  // the seek position
    STREAM_SEEK_END = 2,  // the end
};

// What Stat and IEnumSTATSTG tell of a stream or storage.
struct STATSTG {
    // [owned] Free it with _XCoTaskMemFree; null for STATFLAG_NONAME or without a name.
    char16_t* pwcsName;
    std::uint32_t type;    // STGTY
    std::uint64_t cbSize;  // bytes; 0 for a storage
    FILETIME mtime;        // last change
    // Of no use to a reader; 0 when not known.
    FILETIME ctime;
    FILETIME atime;
    std::uint32_t grfMode;
    std::uint32_t grfLocksSupported;
    GUID clsid;  // the class of a storage
    // Of no use to a reader.
    std::uint32_t grfStateBits;
    std::uint32_t reserved;
};

// Bytes in a row.
struct ISequentialStream : IUnknown {
    // Up to `size` bytes from the seek position on. S_OK also when fewer were left; *read
    // (may be null) tells how many. `destination` may be null when size is 0.
    //   E_FAIL  the stream of a storage is damaged there; the seek position stays
    virtual HRESULT Read(void* destination, std::uint32_t size, std::uint32_t* read) = 0;
    // `size` bytes at the seek position, all or none; the stream grows for them. *written, their
    // number, may be null.
    //   E_ACCESSDENIED  the stream is one of a storage, or would grow while its block is locked
    virtual HRESULT Write(const void* source, std::uint32_t size, std::uint32_t* written) = 0;

protected:
    ~ISequentialStream() = default;
};

// Bytes with a seek position, which all holders of the stream share.
struct IStream : ISequentialStream {
    // Moves the seek position; past the end is allowed. *position, the new one, may be null.
    //   STG_E_INVALIDFUNCTION  before the start, beyond 2^63 - 1, or `origin` is no STREAM_SEEK
    virtual HRESULT Seek(std::int64_t move, std::uint32_t origin, std::uint64_t* position) = 0;
    // Cuts the stream, or fills it up with zeros.
    //   E_ACCESSDENIED  the stream is one of a storage, or its block is locked and would change
    virtual HRESULT SetSize(std::uint64_t size) = 0;
    // Up to `size` bytes from this seek position to that of `destination`. *read and *written
    // may be null, and count also what a failing call has done.
    //   E_FAIL     `destination` took less than it was given
    //   otherwise  what Read, or the Write of `destination`, failed with
    virtual HRESULT CopyTo(IStream* destination, std::uint64_t size, std::uint64_t* read,
                           std::uint64_t* written) = 0;
    // Nothing is buffered, so both do nothing.
    virtual HRESULT Commit(std::uint32_t flags) = 0;
    virtual HRESULT Revert() = 0;
    // Both are STG_E_INVALIDFUNCTION.
    virtual HRESULT LockRegion(std::uint64_t offset, std::uint64_t size, std::uint32_t type) = 0;
    virtual HRESULT UnlockRegion(std::uint64_t offset, std::uint64_t size, std::uint32_t type) = 0;
    // Size, name and times in *stat; `flags` is a STATFLAG.
    virtual HRESULT Stat(STATSTG* stat, std::uint32_t flags) = 0;
    // [shared] A stream over the same bytes with a seek position of its own, at first the same.
    virtual HRESULT Clone(IStream** out) = 0;

protected:
    ~IStream() = default;
};

// The elements of a storage, one after the other.
struct IEnumSTATSTG : IUnknown {
    // [owned] The next elements; the caller frees their names. S_OK when `count` were stored,
    // S_FALSE when fewer; *fetched tells how many, and must not be null unless count is 1. A call
    // that fails stores none.
    virtual HRESULT Next(std::uint32_t count, STATSTG* elements, std::uint32_t* fetched) = 0;
    // S_OK when `count` elements were passed over, S_FALSE when fewer.
    virtual HRESULT Skip(std::uint32_t count) = 0;
    // Begins again.
    virtual HRESULT Reset() = 0;
    // [shared] Another one, at the same element.
    virtual HRESULT Clone(IEnumSTATSTG** out) = 0;

protected:
    ~IEnumSTATSTG() = default;
};

// A storage of a compound file. What would write is refused with E_ACCESSDENIED. Names are
// matched without regard to case, as the format has it; modes, exclusions and what is reserved
// are for other platforms.
struct IStorage : IUnknown {
    // Refused.
    virtual HRESULT CreateStream(const char16_t* name, std::uint32_t mode, std::uint32_t reserved1,
                                 std::uint32_t reserved2, IStream** out) = 0;
    // [shared] A stream at its start.
    //   STG_E_FILENOTFOUND  there is no stream of that name
    //   E_FAIL              it is damaged
    virtual HRESULT OpenStream(const char16_t* name, void* reserved1, std::uint32_t mode,
                               std::uint32_t reserved2, IStream** out) = 0;
    // Refused.
    virtual HRESULT CreateStorage(const char16_t* name, std::uint32_t mode, std::uint32_t reserved1,
                                  std::uint32_t reserved2, IStorage** out) = 0;
    // [shared] A storage within this one. A damaged element counts as a stream.
    //   STG_E_FILENOTFOUND  there is no storage of that name
    //   E_FAIL              it cannot be opened any more
    virtual HRESULT OpenStorage(const char16_t* name, IStorage* priority, std::uint32_t mode,
                                char16_t** exclude, std::uint32_t reserved, IStorage** out) = 0;
    // Refused.
    virtual HRESULT CopyTo(std::uint32_t excludedCount, const GUID* excluded, char16_t** excludedNames,
                           IStorage* destination) = 0;
    virtual HRESULT MoveElementTo(const char16_t* name, IStorage* destination, const char16_t* newName,
                                  std::uint32_t flags) = 0;
    // Nothing changes, so both do nothing.
    virtual HRESULT Commit(std::uint32_t flags) = 0;
    virtual HRESULT Revert() = 0;
    // [shared] All elements. The arguments before `out` are 0.
    virtual HRESULT EnumElements(std::uint32_t reserved1, void* reserved2, std::uint32_t reserved3,
                                 IEnumSTATSTG** out) = 0;
    // Refused, all of them.
    virtual HRESULT DestroyElement(const char16_t* name) = 0;
    virtual HRESULT RenameElement(const char16_t* oldName, const char16_t* newName) = 0;
    virtual HRESULT SetElementTimes(const char16_t* name, const FILETIME* ctime, const FILETIME* atime,
                                    const FILETIME* mtime) = 0;
    virtual HRESULT SetClass(const GUID& clsid) = 0;
    virtual HRESULT SetStateBits(std::uint32_t bits, std::uint32_t mask) = 0;
    // Name, class and times in *stat; the outermost storage has no name. `flags` is a STATFLAG.
    virtual HRESULT Stat(STATSTG* stat, std::uint32_t flags) = 0;

protected:
    ~IStorage() = default;
};

// ---------------------------------------------------------------------------------------
// Memory that crosses the interfaces

extern "C" {

// [owned] `size` bytes, or null when memory is exhausted.
VEXPA_RUNTIME_API void* _XCoTaskMemAlloc(std::size_t size);
// Frees it; null does nothing.
VEXPA_RUNTIME_API void _XCoTaskMemFree(void* memory);

}  // extern "C"

#endif  // VEXPA_PLATFORM_COM_H_

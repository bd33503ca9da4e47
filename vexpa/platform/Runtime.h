// vexpa/platform/Runtime.h - the platform that the library stands on: memory, streams, storages, DOM,
// zip, strings.
//
// The library reaches the platform through this header alone. `vexpa::runtime` is one
// implementation of it; any shared library that exports these functions with these
// conventions can take its place.
//
// Linkage   C, so that a symbol does not depend on how an implementation spells a type.
// Text      NUL-terminated UTF-16. "Local 8-bit" is the encoding of the process locale.
// Results   HRESULT: negative is failure. The values of the codes are this platform's own.
// Lifetime  As COM has it: an interface pointer handed out carries one reference, which
//           the receiver releases. What differs is said at the declaration.
// Errors    No function throws. A failed allocation is a failed call.
// Threads   Functions may be called from several threads at once, also while a thread or the
//           process ends; one object is used by one thread at a time, reference counts included.
#ifndef VEXPA_PLATFORM_RUNTIME_H_
#define VEXPA_PLATFORM_RUNTIME_H_

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
// An argument is null that may not be.
inline constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80000003U);
// The object has no interface of that id.
inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80000004U);
// Any other failure.
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80000008U);
// What is only read was to be changed.
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
#define VEXPA_COM_IID(first)             \
    GUID {                               \
        first, 0, 0, {                   \
            0xC0, 0, 0, 0, 0, 0, 0, 0x46 \
        }                                \
    }
inline constexpr GUID IID_IUnknown = VEXPA_COM_IID(0x00000000);
inline constexpr GUID IID_IStorage = VEXPA_COM_IID(0x0000000B);
inline constexpr GUID IID_IStream = VEXPA_COM_IID(0x0000000C);
inline constexpr GUID IID_IEnumSTATSTG = VEXPA_COM_IID(0x0000000D);
inline constexpr GUID IID_ISequentialStream =
    GUID{0x0C733A30, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}};
#undef VEXPA_COM_IID

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
    // (may be null) tells how many. E_INVALIDARG when destination is null and size is not 0.
    virtual HRESULT Read(void* destination, std::uint32_t size, std::uint32_t* read) = 0;
    // `size` bytes at the seek position; *written may be null. E_ACCESSDENIED for the stream of
    // a storage.
    virtual HRESULT Write(const void* source, std::uint32_t size, std::uint32_t* written) = 0;

protected:
    ~ISequentialStream() = default;
};

// Bytes with a seek position, which all holders of the stream share.
struct IStream : ISequentialStream {
    // Moves the seek position; past the end is allowed, before the start is STG_E_INVALIDFUNCTION.
    // *position, the new one, may be null.
    virtual HRESULT Seek(std::int64_t move, std::uint32_t origin, std::uint64_t* position) = 0;
    // As with Write, a stream of a storage refuses.
    virtual HRESULT SetSize(std::uint64_t size) = 0;
    // Up to `size` bytes from this seek position to that of `destination`. *read and *written
    // may be null.
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
    // S_FALSE when fewer; *fetched tells how many, and may be null when count is 1.
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

// A storage of a compound file. Everything that would write answers E_ACCESSDENIED. Names are
// matched without regard to case, as the format has it; modes, exclusions and what is reserved
// are for other platforms.
struct IStorage : IUnknown {
    // Refused.
    virtual HRESULT CreateStream(const char16_t* name, std::uint32_t mode, std::uint32_t reserved1,
                                 std::uint32_t reserved2, IStream** out) = 0;
    // [shared] A stream at its start. STG_E_FILENOTFOUND when there is none of that name.
    virtual HRESULT OpenStream(const char16_t* name, void* reserved1, std::uint32_t mode,
                               std::uint32_t reserved2, IStream** out) = 0;
    // Refused.
    virtual HRESULT CreateStorage(const char16_t* name, std::uint32_t mode, std::uint32_t reserved1,
                                  std::uint32_t reserved2, IStorage** out) = 0;
    // [shared] A storage within this one. STG_E_FILENOTFOUND when there is none of that name.
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
// DOM: as much of a document as the package readers ask for
//
// Everything a document hands out belongs to it and ends with it. Matching is exact.

// An attribute of an element.
struct IDomAttribute {
    // [borrowed] Its value; may be null.
    virtual const char16_t* GetValue() = 0;

protected:
    ~IDomAttribute() = default;
};

// The attributes of an element.
struct IDomAttributes {
    // [borrowed] The one of this full name, prefix included, or null.
    virtual IDomAttribute* GetNamedItem(const char16_t* name) = 0;

protected:
    ~IDomAttributes() = default;
};

// An element.
struct IDomNode {
    // [borrowed] Null for an element without attributes.
    virtual IDomAttributes* GetAttributes() = 0;

protected:
    ~IDomNode() = default;
};

// Elements in document order.
struct IDomNodeList {
    // How many there are.
    virtual std::uint32_t GetLength() = 0;
    // [borrowed] The element, null from GetLength() on.
    virtual IDomNode* GetItem(std::uint32_t index) = 0;

protected:
    ~IDomNodeList() = default;
};

// A parsed document.
struct IDomDocument {
    // Ends the document and everything it handed out.
    virtual void Release() = 0;
    // [borrowed] The elements whose local name (after an optional prefix) is `name`, in document order.
    // Never null: a name that no element has gives an empty list.
    virtual IDomNodeList* GetElementsByTagName(const char16_t* name) = 0;

protected:
    ~IDomDocument() = default;
};

// ---------------------------------------------------------------------------------------
// Memory

struct GlobalBlock;
// A movable memory block; its bytes stand still between lock and unlock.
using HGBL = GlobalBlock*;

// A flag of _XGblAlloc, with the value of GMEM_ZEROINIT in the Windows API.
inline constexpr std::uint32_t kGblZeroInit = 0x40;

// Text with its length before it: the 32 bits before the first unit count its bytes.
using BSTR = char16_t*;

extern "C" {

// [owned] A block of `size` bytes, zeroed when flags hold kGblZeroInit; null when memory is exhausted.
// A stream or storage made over the block with "free on release" ends it.
VEXPA_RUNTIME_API HGBL _XGblAlloc(std::uint32_t flags, std::size_t size);
// [borrowed] The block's bytes until _XGblUnlock, or null for a null block. Locks nest.
VEXPA_RUNTIME_API void* _XGblLock(HGBL block);
// 0 when the last lock was given up, 1 when others remain.
VEXPA_RUNTIME_API int _XGblUnlock(HGBL block);

// [owned] Task memory, or null when memory is exhausted.
VEXPA_RUNTIME_API void* _XCoTaskMemAlloc(std::size_t size);
// Ends it; null does nothing.
VEXPA_RUNTIME_API void _XCoTaskMemFree(void* memory);

// ---------------------------------------------------------------------------------------
// Streams and storages

// [shared] A stream over `block`; a null block gives an empty stream over new memory. With
// freeOnRelease the block belongs to this call from its start: it is freed with the last
// reference, and when the call fails.
//   E_INVALIDARG  out is null
//   E_OUTOFMEMORY memory is exhausted; *out is null
VEXPA_RUNTIME_API HRESULT _XCreateStreamOnHGBL(HGBL block, int freeOnRelease, IStream** out);

// [shared] The compound file that `*block` holds, read-only. Ownership of the block as above.
// This call and those of what it gives need a megabyte of stack at most.
//   E_INVALIDARG  block or out is null
//   E_FAIL        *block is null or holds no compound file; *out is null
VEXPA_RUNTIME_API HRESULT _XStgOpenStorageOnHGBL2(HGBL* block, int freeOnRelease, IStorage** out);

// ---------------------------------------------------------------------------------------
// XML

// Brackets the use of the XML service; may be repeated. What they answer is ignored.
VEXPA_RUNTIME_API int _XMLInitialize(std::uint32_t reserved);
VEXPA_RUNTIME_API int _XMLTerminate();

// Parses the rest of `stream` into *out; the options are for other platforms. Nothing
// outside the stream is ever read, and an entity that would grow without bound is refused.
//   S_OK          [owned] *out is the document; end it with Release
//   E_INVALIDARG  out or stream is null
//   E_FAIL        not well-formed, empty, too deep or too large; *out is null
//   E_OUTOFMEMORY memory is exhausted; *out is null
//   otherwise     what the stream's Read failed with; *out is null
VEXPA_RUNTIME_API HRESULT _XDOMParse(IDomDocument** out, IStream* stream, std::uint32_t options,
                                     std::uint32_t reserved1, std::uint32_t reserved2,
                                     std::uint32_t reserved3);

// ---------------------------------------------------------------------------------------
// Zip

// The number of entries in the archive's directory in *count; S_OK, or E_FAIL and 0 when
// the file cannot be read or is no sound zip archive.
VEXPA_RUNTIME_API HRESULT _XGetZipFileCount(const char16_t* path, std::int32_t* count);

// Stores the name of each entry, in directory order, in names[0 .. count). The names are
// [borrowed]: they are the runtime's, and end with the calling thread or its next call of any of
// the three zip functions.
//   E_FAIL        as for the count, or the archive no longer has exactly `count` entries;
//                 names is left as it was
//   E_OUTOFMEMORY memory is exhausted; names is left as it was
VEXPA_RUNTIME_API HRESULT _XGetZipFileList(const char16_t* path, const char16_t** names,
                                           std::int32_t count);

// The records of the in-memory extraction, laid out as Info-ZIP's library has them. The library
// zeroes this one before the call, and a failed call may leave it so.
struct UzpBuffer {
    unsigned long strlength;  // bytes
    char* strptr;             // [owned] free() it, also after a failure, when it is not null
};

// Switches, all of them off.
struct UzpOpts {
    char* exdir;       // null
    char* pwdarg;      // null: no password
    int zipinfo_mode;  // 0
    int flags[61];     // every switch of the largest build of that library; zero is off
};

// What the library below would say or ask at a terminal.
using MsgFn = int(void* globals, unsigned char* text, unsigned long size, int flag);
using InputFn = int(void* globals, unsigned char* text, int* size, int flag);
using PauseFn = void(void* globals, const char* prompt, int flag);
using PasswdFn = int(void* globals, int* retries, char* password, int size, const char* zip,
                     const char* entry);
using StatCBFn = int(void* globals, int event, const char* zip, const char* entry, const void* details);

// The callbacks of an extraction.
struct UzpCB {
    unsigned long structlen;  // the length that the caller states; not to be relied upon
    // Any of them may be null, and none needs to be called.
    MsgFn* msgfn;
    InputFn* inputfn;
    PauseFn* pausefn;
    PasswdFn* passwdfn;
    StatCBFn* statrepfn;
};

// Extracts one entry into memory. `zip` and `entry` are local 8-bit text. An entry whose
// name equals `entry` wins; otherwise `entry` is a pattern in Info-ZIP's manner (case
// counts): * any run, also over '/'; ? one character; [...] a class, with ranges, negated
// by a leading ! or ^; a backslash takes the next character literally. Of several matches
// the first in directory order is taken.
//
// Non-zero is success; an entry of no bytes gives strlength 0. Zero: no such file, archive
// or entry, an encrypted or damaged entry, an unknown method, or no memory. No file stays
// open, and a file changed since the last call is read afresh.
VEXPA_RUNTIME_API int UzpUnzipToMemory(char* zip, char* entry, UzpOpts* options, UzpCB* callbacks,
                                       UzpBuffer* result);

// ---------------------------------------------------------------------------------------
// Strings and files

// [owned] A copy of `text`; null for null, or when memory is exhausted.
VEXPA_RUNTIME_API BSTR _XSysAllocString(const char16_t* text);
// Ends such a copy; null does nothing.
VEXPA_RUNTIME_API void _XSysFreeString(BSTR text);

// Order without regard to the case of letters: negative, 0 or positive.
VEXPA_RUNTIME_API int _Xu2_stricmp(const char16_t* a, const char16_t* b);
// [borrowed] The first `unit` in `text`, or null; the terminating zero counts as a unit of the text.
VEXPA_RUNTIME_API char16_t* _Xu2_strchr(const char16_t* text, char16_t unit);

// access(2) for a path in UTF-16; mode 4 asks for reading. 0 when allowed.
VEXPA_RUNTIME_API int _Xaccess(const char16_t* path, int mode);

// The length in units; 0 for null.
VEXPA_RUNTIME_API std::size_t u_strlen(const char16_t* text);
// The same, but at most `limit`.
VEXPA_RUNTIME_API std::size_t u_strnlen_s(const char16_t* text, std::size_t limit);

// The bounded calls answer 0, or EINVAL or ERANGE. Sizes are in units, for vmemcpy_s in
// bytes; a result that does not fit is never cut: it leaves the destination empty.
VEXPA_RUNTIME_API int u_strcat_s(char16_t* destination, std::size_t size, const char16_t* source);
VEXPA_RUNTIME_API int vmemcpy_s(void* destination, std::size_t size, const void* source,
                                std::size_t count);

// Splits a path: the directory up to and with its last '/' or '\', the file name, and the
// extension from the last '.' of the file name on. A drive letter is ordinary text and
// belongs to the directory. A null buffer with size 0 is a part not asked for; when a part
// does not fit, every buffer is left empty.
VEXPA_RUNTIME_API int u_splitpath_s(const char16_t* path, char16_t* drive, std::size_t driveSize,
                                    char16_t* directory, std::size_t directorySize, char16_t* name,
                                    std::size_t nameSize, char16_t* extension,
                                    std::size_t extensionSize);

}  // extern "C"

#endif  // VEXPA_PLATFORM_RUNTIME_H_

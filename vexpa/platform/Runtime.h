// vexpa/platform/Runtime.h - the platform that the library stands on: memory, streams, storages,
// DOM, zip, strings.
//
// The library reaches the platform through this header alone, with the types of Com.h that its
// callers get to see, too. `vexpa::runtime` is one implementation of it; any shared library that
// exports these functions with these conventions can take its place.
//
// Linkage   C, so that a symbol does not depend on how an implementation spells a type.
// Text      NUL-terminated UTF-16. "Local 8-bit" is the encoding of the process locale; paths pass
//           through it, too. It may be gone when static objects end: then only ASCII is found.
// Results   HRESULT: negative is failure. The values of the codes are this platform's own.
// Lifetime  As COM has it: an interface pointer handed out carries one reference, which
//           the receiver releases. What differs is said at the declaration.
// Errors    No function throws. A failed allocation is a failed call: E_OUTOFMEMORY where the
//           result is a HRESULT.
// Threads   Functions may be called from several threads at once, also while a thread or the
//           process ends; an object and all that came from it is used by one thread at a time,
//           reference counts included.
#ifndef VEXPA_PLATFORM_RUNTIME_H_
#define VEXPA_PLATFORM_RUNTIME_H_

#include <cstddef>
#include <cstdint>

#include "vexpa/platform/Com.h"

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
// A stream or storage made over the block with "free on release" frees it.
VEXPA_RUNTIME_API HGBL _XGblAlloc(std::uint32_t flags, std::size_t size);
// [borrowed] The block's bytes until _XGblUnlock, or null for a null block. Locks nest.
VEXPA_RUNTIME_API void* _XGblLock(HGBL block);
// 0 when the last lock was given up, 1 when others remain.
VEXPA_RUNTIME_API int _XGblUnlock(HGBL block);

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
//   E_OUTOFMEMORY memory is exhausted; *out is null
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

// The number of entries in the archive's directory in *count, which is 0 after a failure.
//   E_INVALIDARG  count is null
//   E_FAIL        path is null, or the file cannot be read or is no sound zip archive
//   E_OUTOFMEMORY memory is exhausted
VEXPA_RUNTIME_API HRESULT _XGetZipFileCount(const char16_t* path, std::int32_t* count);

// Stores the name of each entry, in directory order, in names[0 .. count). The names are
// [borrowed]: they are the runtime's, and end with the calling thread or its next call of any of
// the three zip functions.
// After a failure names is left as it was.
//   E_INVALIDARG  names is null, and count is not 0
//   E_FAIL        as for the count, or the archive no longer has exactly `count` entries
//   E_OUTOFMEMORY memory is exhausted
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

// Extracts one entry into memory. `zip` and `entry` are local 8-bit text. `entry` is a pattern
// in Info-ZIP's manner (case counts): * any run, also over '/'; ? one character; [...] a class,
// with ranges, negated by a leading ! or ^; a backslash takes the next character literally.
// Of several matches the first in directory order is taken; but an entry whose name equals
// `entry` wins, unless every one of *?[]\ in it is escaped: then the name without the escapes
// is meant and no other.
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
// Frees such a copy; null does nothing.
VEXPA_RUNTIME_API void _XSysFreeString(BSTR text);

// Order without regard to the case of letters: negative, 0 or positive.
VEXPA_RUNTIME_API int _Xu2_stricmp(const char16_t* a, const char16_t* b);
// [borrowed] The first `unit` in `text`, or null; the terminating zero counts as a unit of the text.
VEXPA_RUNTIME_API char16_t* _Xu2_strchr(const char16_t* text, char16_t unit);

// access(2) for a path in UTF-16; mode 4 asks for reading. 0 when allowed, else -1 with errno:
// EINVAL for a null path, ENOMEM, or what access() says.
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

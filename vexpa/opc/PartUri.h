// vexpa/opc/PartUri.h - a part name or target as it was given, and the URI components in it.
#ifndef VEXPA_OPC_PARTURI_H_
#define VEXPA_OPC_PARTURI_H_

#include <cstdint>
#include <string>

#include "vexpa/base/Export.h"
#include "vexpa/base/Utf16.h"

namespace tarn::opc {

// `name` alone says which part is meant: it orders and compares, unit by unit. The
// components (RFC 3986) are percent-decoded and pass through the encoding of the process
// locale, so they may lose characters that `name` keeps. What a name lacks is empty.
//
// Lifetime  A record of its own: it holds copies of everything.
// Errors    None but that of the standard library, out of memory. Without memory of the platform for
//           the parse, a name has no components.
// Threads   As any record: read by many, or written by one.
//
// The order of the fields is part of the binary interface.
struct PartUri {
    // The empty name.
    PartUri() = default;

    // Keeps the name and splits it. A name that is no URI reference, or has 2^28 units or
    // more, has no components; a null pointer of either type is the empty name.
    VEXPA_API explicit PartUri(const unsigned short* givenName);
    explicit PartUri(const char16_t* givenName) : PartUri(ToUnits(givenName)) {}

    std::u16string scheme;        // without its colon
    std::u16string opaque;        // after "scheme:" when no '/' follows, up to the fragment
    std::u16string registryName;  // an authority that names no server
    std::u16string host;          // with the brackets of an IP literal
    std::u16string userInfo;      // before the '@' of an authority
    std::uint32_t port = 0;       // modulo 2^32; 0 when absent
    std::u16string path;          // with its leading slash
    std::u16string query;         // without its '?'
    std::u16string fragment;      // without its '#'
    std::u16string name;          // all of it, as it was given
};

// By the names alone.
inline bool operator==(const PartUri& a, const PartUri& b) noexcept {
    return a.name == b.name;
}
// By the names alone.
inline bool operator!=(const PartUri& a, const PartUri& b) noexcept {
    return !(a == b);
}
// By the names alone, in the order of code units.
inline bool operator<(const PartUri& a, const PartUri& b) noexcept {
    return a.name < b.name;
}

}  // namespace tarn::opc

#endif  // VEXPA_OPC_PARTURI_H_

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
// locale, so they may lose characters that `name` keeps.
//
// The order of the fields is part of the binary interface.
struct PartUri {
    PartUri() = default;

    // Keeps the name and splits it. A name that is no URI reference has no components;
    // null is the empty name.
    VEXPA_API explicit PartUri(const unsigned short* givenName);
    explicit PartUri(const char16_t* givenName) : PartUri(ToUnits(givenName)) {}

    std::u16string scheme;
    std::u16string opaque;        // after "scheme:" when no '/' follows, up to the fragment
    std::u16string registryName;  // an authority that names no server
    std::u16string host;          // with the brackets of an IP literal
    std::u16string userInfo;
    std::uint32_t port = 0;  // modulo 2^32; 0 when absent
    std::u16string path;     // with its leading slash
    std::u16string query;
    std::u16string fragment;
    std::u16string name;
};

inline bool operator==(const PartUri& a, const PartUri& b) noexcept {
    return a.name == b.name;
}
inline bool operator!=(const PartUri& a, const PartUri& b) noexcept {
    return !(a == b);
}
inline bool operator<(const PartUri& a, const PartUri& b) noexcept {
    return a.name < b.name;
}

}  // namespace tarn::opc

#endif  // VEXPA_OPC_PARTURI_H_

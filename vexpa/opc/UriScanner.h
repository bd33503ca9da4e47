// vexpa/opc/UriScanner.h - finds the components of a URI reference.
#ifndef VEXPA_OPC_URISCANNER_H_
#define VEXPA_OPC_URISCANNER_H_

#include <cstdint>
#include <string_view>

namespace tarn::opc {

enum class UriStatus {
    Parsed = 0,
    OutOfMemory = 1,
    Malformed = 2,
    NoRegistryName = 5,  // an authority begins with what neither a server nor a registry name may
};

// Where the components lie in the text; one without data is absent.
struct UriSlices {
    std::string_view scheme;
    std::string_view opaque;
    std::string_view registryName;
    std::string_view host;
    std::string_view userInfo;
    std::string_view path;
    std::string_view query;
    std::string_view fragment;
    std::uint32_t port = 0;
};

// Finds the components of `text` and stores nothing else, so that a reading given up for
// another costs no allocation. The slices mean something only when the answer is Parsed.
//
// The grammar is that of RFC 3986, strict about characters unless `relaxed`, with an older
// reading of "scheme:text" as opaque and of an authority that is no server as a registry
// name. Time is linear in the text, the stack constant.
UriStatus ScanUri(std::string_view text, bool relaxed, UriSlices& slices);

}  // namespace tarn::opc

#endif  // VEXPA_OPC_URISCANNER_H_

// vexpa/opc/UriComponents.h - the scratch record that a URI reference is split into.
#ifndef VEXPA_OPC_URICOMPONENTS_H_
#define VEXPA_OPC_URICOMPONENTS_H_

#include <cstdint>

#include "vexpa/base/Noncopyable.h"

namespace tarn::opc {

enum UriOption : std::uint32_t {
    kUriRelaxed = 1,  // components may also hold [ \ ] ^ { | } and the grave accent
    kUriRaw = 2,      // components keep their percent escapes
};

// Local 8-bit text. An absent component is null; the others are task memory.
struct UriComponents {
    char* scheme;
    char* opaque;
    char* registryName;
    char* host;
    char* userInfo;
    char* path;
    char* query;
    char* fragment;
    std::uint32_t port;
    std::uint32_t options;  // UriOption bits
};

// Frees every component and forgets the port; the options stay.
void ClearUriComponents(UriComponents& components);

// A record in task memory for as long as this object lives, with all that hangs on it.
class ScratchUriComponents : Noncopyable {
public:
    explicit ScratchUriComponents(std::uint32_t options = 0);
    ~ScratchUriComponents();

    explicit operator bool() const { return components_ != nullptr; }  // false: out of memory
    UriComponents& operator*() const { return *components_; }
    UriComponents* operator->() const { return components_; }

private:
    UriComponents* components_;
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_URICOMPONENTS_H_

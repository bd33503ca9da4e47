#include "vexpa/opc/UriComponents.h"

#include <initializer_list>
#include <new>

#include "vexpa/platform/Runtime.h"

namespace tarn::opc {

void ClearUriComponents(UriComponents& c) {
    for (char** text : {&c.scheme, &c.opaque, &c.registryName, &c.host, &c.userInfo, &c.path, &c.query,
                        &c.fragment}) {
        _XCoTaskMemFree(*text);
        *text = nullptr;
    }
    c.port = 0;
}

ScratchUriComponents::ScratchUriComponents(std::uint32_t options) : components_(nullptr) {
    void* memory = _XCoTaskMemAlloc(sizeof(UriComponents));
    if (memory == nullptr) return;
    components_ = new (memory) UriComponents{};  // all zero
    components_->options = options;
}

ScratchUriComponents::~ScratchUriComponents() {
    if (components_ == nullptr) return;
    ClearUriComponents(*components_);
    _XCoTaskMemFree(components_);
}

}  // namespace tarn::opc

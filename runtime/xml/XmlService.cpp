#include <memory>

#include "runtime/Guarded.h"
#include "runtime/xml/XmlParser.h"
#include "vexpa/platform/Runtime.h"

// Each parse brings its own parser, so the service has nothing to set up or to take down.
int _XMLInitialize(std::uint32_t) {
    return 0;
}

int _XMLTerminate() {
    return 0;
}

HRESULT _XDOMParse(IDomDocument** out, IStream* stream, std::uint32_t, std::uint32_t, std::uint32_t,
                   std::uint32_t) {
    using namespace vexpa_runtime;
    if (out == nullptr) return E_INVALIDARG;
    *out = nullptr;
    if (stream == nullptr) return E_INVALIDARG;
    return Guarded([&] {
        std::unique_ptr<Document> document;
        const HRESULT parsed = XmlParser().Parse(*stream, &document);
        if (parsed < 0) return parsed;
        *out = document.release();
        return S_OK;
    });
}

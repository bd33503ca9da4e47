#include "vexpa/opc/UriParser.h"

#include "vexpa/opc/UriComponents.h"
#include "vexpa/opc/UriEscape.h"
#include "vexpa/platform/Runtime.h"

namespace tarn::opc {

namespace {

// Copies a component into task memory; an absent one stays null. False: out of memory.
bool StoreComponent(std::string_view text, bool raw, char*& out) {
    if (text.data() == nullptr) return true;
    out = static_cast<char*>(_XCoTaskMemAlloc(text.size() + 1));
    if (out == nullptr) return false;
    if (raw) {
        text.copy(out, text.size());
        out[text.size()] = '\0';
    } else {
        PercentDecode(text, out);
    }
    return true;
}

bool StoreComponents(const UriSlices& slices, UriComponents& out) {
    const bool raw = (out.options & kUriRaw) != 0;
    out.port = slices.port;
    return StoreComponent(slices.scheme, raw, out.scheme) &&
           StoreComponent(slices.opaque, raw, out.opaque) &&
           StoreComponent(slices.registryName, raw, out.registryName) &&
           StoreComponent(slices.host, raw, out.host) &&
           StoreComponent(slices.userInfo, raw, out.userInfo) &&
           StoreComponent(slices.path, raw, out.path) && StoreComponent(slices.query, raw, out.query) &&
           StoreComponent(slices.fragment, raw, out.fragment);
}

}  // namespace

UriStatus ParseUri(std::string_view text, UriComponents& components) {
    ClearUriComponents(components);
    UriSlices slices;
    const UriStatus status = ScanUri(text, (components.options & kUriRelaxed) != 0, slices);
    if (status != UriStatus::Parsed) return status;
    if (StoreComponents(slices, components)) return UriStatus::Parsed;
    ClearUriComponents(components);
    return UriStatus::OutOfMemory;
}

}  // namespace tarn::opc

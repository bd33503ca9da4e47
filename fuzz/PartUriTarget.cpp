// A part name split into its components.
#include "fuzz/FuzzTarget.h"
#include "vexpa/opc/PartUri.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::u16string text = vexpa_fuzz::Units(vexpa_fuzz::Bytes(data, size));
    const tarn::opc::PartUri uri(text.c_str());
    vexpa_fuzz::Require(uri.name == text.c_str(), "the name is kept as it was given");

    const std::size_t components = uri.scheme.size() + uri.opaque.size() + uri.registryName.size() +
                                   uri.host.size() + uri.userInfo.size() + uri.path.size() +
                                   uri.query.size() + uri.fragment.size();
    // A path may gain its leading slash; nothing else is added or occurs twice.
    vexpa_fuzz::Require(components <= uri.name.size() + 1, "the components are parts of the name");
    return 0;
}

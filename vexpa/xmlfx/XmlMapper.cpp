#include "vexpa/xmlfx/XmlMapper.h"

#include "vexpa/xmlfx/RegistryMapImpl.h"

namespace tarn::xmlfx {

template class RegistryMap<std::u16string_view, std::uint32_t>;
template class RegistryMap<std::u16string_view, RegistryMap<std::u16string_view, std::uint32_t>>;
template class RegistryMap<std::uint32_t, NameInfo>;
template class RegistryMap<std::uint32_t, RegistryMap<std::uint32_t, NameInfo>>;

NSMap& XmlMapper::GetNSMap() {
    static NSMap map;
    return map;
}

NSMapInverse& XmlMapper::GetNSMapInverse() {
    static NSMapInverse map;
    return map;
}

}  // namespace tarn::xmlfx

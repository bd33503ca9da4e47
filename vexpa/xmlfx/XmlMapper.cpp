#include "vexpa/xmlfx/XmlMapper.h"

#include <cstddef>
#include <memory>
#include <new>

#include "vexpa/xmlfx/RegistryMapImpl.h"

namespace tarn::xmlfx {

namespace {

// The one map of a kind. When the process ends it gives up all it holds and is an empty map again:
// the static objects of callers end later, and may still look names up or call _vexpa_Terminate.
// (LateVocabularyCalls)
template <class Map>
Map& MapOfTheProcess() {
    struct Ending {
        Map& map;
        ~Ending() {
            std::destroy_at(&map);
            ::new (&map) Map;
        }
    };
    alignas(Map) static std::byte room[sizeof(Map)];
    static Map& map = *::new (room) Map;
    static const Ending ending{map};
    return map;
}

}  // namespace

template class RegistryMap<std::u16string_view, std::uint32_t>;
template class RegistryMap<std::u16string_view, RegistryMap<std::u16string_view, std::uint32_t>>;
template class RegistryMap<std::uint32_t, NameInfo>;
template class RegistryMap<std::uint32_t, RegistryMap<std::uint32_t, NameInfo>>;

NSMap& XmlMapper::GetNSMap() {
    return MapOfTheProcess<NSMap>();
}

NSMapInverse& XmlMapper::GetNSMapInverse() {
    return MapOfTheProcess<NSMapInverse>();
}

}  // namespace tarn::xmlfx

// vexpa/xmlfx/XmlMapper.h - from names to tokens and back.
#ifndef VEXPA_XMLFX_XMLMAPPER_H_
#define VEXPA_XMLFX_XMLMAPPER_H_

#include <cstdint>
#include <string_view>

#include "vexpa/base/Export.h"
#include "vexpa/xmlfx/RegistryMap.h"

namespace tarn::xmlfx {

// What a token stands for. Both texts last as long as the library is loaded.
struct VEXPA_API NameInfo {
    const char16_t* uri;   // [borrowed] of the namespace
    const char16_t* name;  // [borrowed] the local name
};

// Namespace URI -> local name -> token. Matching is exact, case included.
using NSMap = RegistryMap<std::u16string_view, RegistryMap<std::u16string_view, std::uint32_t>>;

// Token without its low 16 bits -> token -> what it stands for.
using NSMapInverse = RegistryMap<std::uint32_t, RegistryMap<std::uint32_t, NameInfo>>;

// A token has the namespace's id in its high and the name's index in its low 16 bits. This
// one is no name, and never that of an element or attribute.
inline constexpr std::uint32_t kNullToken = 0;

// The namespace of a token, and its key in the inverse map.
constexpr std::uint32_t NamespaceOf(std::uint32_t token) noexcept {
    return token & 0xFFFF0000;
}

// The namespace maps of the process.
//
// They begin with the names of ECMA-376 Parts 1 to 4 (WordprocessingML, PresentationML, DrawingML,
// VML and what packages are made of), of Dublin Core and XML Schema instances, of the extensions that
// Microsoft published from 2006 to 2010, and of one vendor's custom data.
//
//     const NSMap& namespaces = XmlMapper::GetNSMap();
//     if (auto names = namespaces.find(uri); names != namespaces.end()) {
//         if (auto name = names->second.find(localName); name != names->second.end()) ...
//
// Lifetime  Filled by the first _vexpa_Initialize, emptied by the last _vexpa_Terminate and once
//           static objects end; as empty maps they are there for as long as anybody can call.
// Errors    A name or token that is not there is not found; adding may run out of memory.
// Threads   Any number may read, by find. Whatever writes is serialised by the callers: the two
//           calls above, Transform, which adds the namespace URIs it does not know, and operator[]
//           of a map, also for a key that is there.
class XmlMapper {
public:
    // From names to tokens.
    VEXPA_API static NSMap& GetNSMap();
    // From tokens to names.
    VEXPA_API static NSMapInverse& GetNSMapInverse();
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_XMLMAPPER_H_

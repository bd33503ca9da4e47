#include "tool/model/Vocabulary.h"

#include <algorithm>

#include "vexpa/base/Lifecycle.h"

namespace vexpa_tool {

using namespace tarn::xmlfx;

Vocabulary::Vocabulary() {
    _vexpa_Initialize();
}

Vocabulary::~Vocabulary() {
    _vexpa_Terminate();
}

std::size_t Vocabulary::CountNames(std::u16string_view uri) const {
    const NSMap& namespaces = XmlMapper::GetNSMap();
    const auto names = namespaces.find(uri);
    // Transform adds the namespaces that it meets and does not know, without names.
    return names == namespaces.end() ? 0 : names->second.size();
}

std::optional<std::uint32_t> Vocabulary::FindToken(std::u16string_view uri,
                                                   std::u16string_view name) const {
    const NSMap& namespaces = XmlMapper::GetNSMap();
    const auto names = namespaces.find(uri);
    if (names == namespaces.end()) return std::nullopt;
    const auto token = names->second.find(name);
    if (token == names->second.end()) return std::nullopt;
    return token->second;
}

std::vector<std::pair<std::u16string_view, std::u16string_view>> Vocabulary::NamesOf(
    std::uint32_t token) const {
    std::vector<std::pair<std::u16string_view, std::u16string_view>> found;
    for (const auto& [uri, names] : XmlMapper::GetNSMap()) {
        for (const auto& [name, one] : names) {
            if (one == token) found.emplace_back(uri, name);
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

const NameInfo* Vocabulary::FindName(std::uint32_t token) const {
    const NSMapInverse& namespaces = XmlMapper::GetNSMapInverse();
    const auto names = namespaces.find(NamespaceOf(token));
    if (names == namespaces.end()) return nullptr;
    const auto name = names->second.find(token);
    return name == names->second.end() ? nullptr : &name->second;
}

}  // namespace vexpa_tool

#include "bench/xmlfx/PlainVersion.h"

#include "vexpa/base/Utf16.h"

namespace vexpa_bench {

using tarn::xmlfx::Attributes;
using tarn::xmlfx::XmlMapper;

std::size_t PlainHash::operator()(const std::u16string& text) const noexcept {
    const std::size_t stride = text.size() / 10 + 1;
    const std::size_t limit = text.size() > stride ? text.size() - stride : text.size();
    std::uint64_t hash = 0x811C9DC5;
    for (std::size_t i = 0; i < limit; i += stride) hash = (hash * 0x01000193) ^ text[i];
    return hash;
}

void PlainRegistry::Fill() {
    for (const auto& [base, names] : XmlMapper::GetNSMapInverse()) {
        for (const auto& [token, info] : names) {
            forward[info.uri].emplace(info.name, token);
            inverse[base].emplace(token, info);
        }
    }
}

void PlainRegistry::Clear() {
    forward.clear();
    inverse.clear();
}

std::unique_ptr<PlainSet> PlainTransform(PlainNSMap& namespaces, const Attributes& attributes,
                                         const char16_t* defaultUri) {
    auto set = std::make_unique<PlainSet>();
    for (unsigned i = 0; i < attributes.getLength(); ++i) {
        const unsigned short* uri = attributes.getURI(i);
        if (uri == nullptr || *uri == 0) uri = tarn::ToUnits(defaultUri);
        const PlainNames& names = namespaces[tarn::FromUnits(uri)];
        const auto found = names.find(tarn::FromUnits(attributes.getLocalName(i)));
        if (found == names.end() || found->second == 0) continue;
        auto leaf = std::make_unique<PlainLeaf>(tarn::FromUnits(attributes.getValue(i)));
        set->byToken.emplace(found->second, leaf.get());
        set->attributes.emplace_back(found->second, std::move(leaf));
    }
    return set;
}

}  // namespace vexpa_bench

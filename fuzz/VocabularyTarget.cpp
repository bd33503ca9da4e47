// Names to tokens and back. An input is a namespace URI, a line, and a name.
#include <cstring>
#include <optional>

#include "fuzz/FuzzTarget.h"
#include "vexpa/xmlfx/XmlMapper.h"

namespace {

using namespace tarn::xmlfx;
using vexpa_fuzz::Require;

const NameInfo* FindInfo(std::uint32_t token) {
    const NSMapInverse& namespaces = XmlMapper::GetNSMapInverse();
    const auto names = namespaces.find(NamespaceOf(token));
    if (names == namespaces.end()) return nullptr;
    const auto name = names->second.find(token);
    return name == names->second.end() ? nullptr : &name->second;
}

std::optional<std::uint32_t> FindToken(std::u16string_view uri, std::u16string_view name) {
    const NSMap& namespaces = XmlMapper::GetNSMap();
    const auto names = namespaces.find(uri);
    if (names == namespaces.end()) return std::nullopt;
    const auto token = names->second.find(name);
    if (token == names->second.end()) return std::nullopt;
    return token->second;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vexpa_fuzz::Lines lines(vexpa_fuzz::Bytes(data, size));
    const std::u16string uri = vexpa_fuzz::Units(lines.Next());
    const std::u16string name = vexpa_fuzz::Units(lines.Rest());

    if (const std::optional<std::uint32_t> token = FindToken(uri, name)) {
        const NameInfo* info = FindInfo(*token);
        // Two namespaces may share a token, which then is the name of only one of them.
        Require(info != nullptr && (info->name == name || info->uri != uri),
                "a token leads back to its name");
    }
    std::uint32_t number = 0;
    std::memcpy(&number, data, size < sizeof number ? size : sizeof number);
    if (const NameInfo* info = FindInfo(number)) {
        Require(FindToken(info->uri, info->name).has_value(), "a name of the inverse map is known");
    }
    return 0;
}

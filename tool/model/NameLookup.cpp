#include "tool/model/NameLookup.h"

#include <cstdio>
#include <set>

#include "tool/model/NamespacePrefixes.h"

namespace vexpa_tool {

namespace {

using Names = std::vector<VocabularyName>;

constexpr std::size_t kTokenDigits = 8;

int HexDigit(char16_t unit) {
    if (unit >= u'0' && unit <= u'9') return unit - u'0';
    if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
    if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
    return -1;
}

void AddName(const Vocabulary& vocabulary, std::u16string_view uri, std::u16string_view name,
             Names& names) {
    if (const auto token = vocabulary.FindToken(uri, name)) names.push_back({*token, uri, name});
}

Names LookUpToken(const Vocabulary& vocabulary, std::u16string_view text) {
    std::uint32_t token = 0;
    for (const char16_t unit : text.substr(2))
        token = token * 16 + static_cast<std::uint32_t>(HexDigit(unit));
    const tarn::xmlfx::NameInfo* name = vocabulary.FindName(token);
    if (name == nullptr) return {};
    Names names = {{token, name->uri, name->name}};
    for (const auto& [uri, other] : vocabulary.NamesOf(token)) {
        if (uri != name->uri || other != name->name) names.push_back({token, uri, other});
    }
    return names;
}

Names LookUpEverywhere(const Vocabulary& vocabulary, std::u16string_view name) {
    Names names;
    std::set<std::u16string_view> seen;
    for (const NamespacePrefix& row : kNamespacePrefixes) {
        if (seen.insert(row.uri).second) AddName(vocabulary, row.uri, name, names);
    }
    return names;
}

}  // namespace

bool LooksLikeToken(std::u16string_view text) {
    return text.starts_with(u"0x") || text.starts_with(u"0X");
}

bool IsToken(std::u16string_view text) {
    if (!LooksLikeToken(text) || text.size() == 2 || text.size() > 2 + kTokenDigits) return false;
    for (const char16_t unit : text.substr(2)) {
        if (HexDigit(unit) < 0) return false;
    }
    return true;
}

Names LookUp(const Vocabulary& vocabulary, std::u16string_view name) {
    if (IsToken(name)) return LookUpToken(vocabulary, name);

    Names names;
    const std::size_t brace = name.rfind(u'}');
    if (name.starts_with(u'{') && brace != std::u16string_view::npos) {
        AddName(vocabulary, name.substr(1, brace - 1), name.substr(brace + 1), names);
        return names;
    }
    const std::size_t colon = name.find(u':');
    if (colon == std::u16string_view::npos) return LookUpEverywhere(vocabulary, name);
    const NamespacePrefix* prefix = FindPrefix(name.substr(0, colon));
    if (prefix != nullptr) AddName(vocabulary, prefix->uri, name.substr(colon + 1), names);
    return names;
}

std::u16string QualifiedName(const VocabularyName& name) {
    const std::u16string_view prefix = PrefixOf(name.uri, name.token);
    std::u16string text;
    if (prefix.empty()) {
        text.append(u"{").append(name.uri).append(u"}");
    } else {
        text.append(prefix).append(u":");
    }
    return text.append(name.name);
}

std::string TokenText(std::uint32_t token) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08X", token);
    return text;
}

}  // namespace vexpa_tool

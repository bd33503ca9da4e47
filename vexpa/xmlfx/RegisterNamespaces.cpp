#include "vexpa/xmlfx/RegisterNamespaces.h"

#include <span>

#include "vexpa/xmlfx/XmlMapper.h"

namespace tarn::xmlfx {

namespace {

// Set while filling, and still set when filling was cut short.
constinit bool unfinished = false;

// Whether the map, which holds something, holds what a filling cut short left there: nothing
// may be left, or it may be gone since. A map keeps the order in which it was filled.
bool HoldsUnfinished(const NSMap& map) {
    return unfinished && map.begin()->first == kNamespaceRegistrations[0].uri;
}

void AddTokens(const char16_t* uri, std::span<const NameEntry> entries) {
    auto& tokens = XmlMapper::GetNSMap()[uri];
    tokens.reserve(tokens.size() + entries.size());
    for (const NameEntry& entry : entries) {
        const auto [place, added] = tokens.try_emplace(entry.name);
        if (added) place->second = entry.token;
    }
}

// Kept: the namespace is that of the list's first token, whatever the URI. The chart list
// has one of SpreadsheetML drawing, where its token means "txBox".
// (Registry.ChartSharesATokenWithTxBox)
void AddNames(const char16_t* uri, std::span<const NameEntry> entries) {
    if (entries.empty()) return;
    auto& names = XmlMapper::GetNSMapInverse()[NamespaceOf(entries.front().token)];
    names.reserve(names.size() + entries.size());
    for (const NameEntry& entry : entries) {
        const auto [place, added] = names.try_emplace(entry.token);
        if (added) place->second = NameInfo{uri, entry.name};
    }
}

}  // namespace

void RegisterNamespace(const char16_t* uri, const NameEntry* names, unsigned count) {
    const std::span entries(names, count);
    AddTokens(uri, entries);
    AddNames(uri, entries);
}

// Kept: one namespace in the map, be it one that Transform added before the library was
// started, and nothing is registered. (RegistryBeforeInitialize.AMapThatHoldsSomethingIsNotFilled)
void RegisterNamespaces() {
    const NSMap& map = XmlMapper::GetNSMap();
    if (!map.empty() && !HoldsUnfinished(map)) return;
    unfinished = true;
    for (const NamespaceRegistration& list : kNamespaceRegistrations) {
        RegisterNamespace(list.uri, list.names, list.nameCount);
    }
    unfinished = false;
}

}  // namespace tarn::xmlfx

#include "runtime/zip/EntrySearch.h"

#include <string>

#include "runtime/text/LocalText.h"
#include "runtime/text/Utf8.h"
#include "runtime/zip/NamePattern.h"

namespace vexpa_runtime::zip {

namespace {

const Entry* FindUtf8(const Directory& directory, std::string_view request, std::size_t& tried) {
    if (!NamePattern::HasSpecialCharacters(request)) return directory.Find(request);
    if (const auto name = NamePattern::EscapedName(request)) return directory.Find(*name);
    if (const Entry* entry = directory.Find(request)) return entry;
    if (const auto name = NamePattern::OnlyName(request)) return directory.Find(*name);
    return directory.Patterns().FindFirst(directory, NamePattern(request), request, tried);
}

}  // namespace

const Entry* FindEntry(const Directory& directory, std::string_view request, std::size_t* namesTried) {
    std::size_t ignored = 0;
    std::size_t& tried = namesTried == nullptr ? ignored : *namesTried;
    tried = 0;
    // Every locale's encoding has ASCII in it, and nearly every request is ASCII.
    if (IsAscii(request)) return FindUtf8(directory, request, tried);
    const std::u16string text = FromLocal(request);
    return text.empty() ? nullptr : FindUtf8(directory, Utf8FromUtf16(text), tried);
}

}  // namespace vexpa_runtime::zip

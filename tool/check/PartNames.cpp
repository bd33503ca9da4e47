#include "tool/check/PartNames.h"

#include <algorithm>

#include "tool/check/NameIndex.h"
#include "tool/check/Shown.h"
#include "tool/text/Unicode.h"
#include "vexpa/base/Utf16.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

constexpr std::string_view kFolder = "_rels/";
constexpr std::string_view kExtension = ".rels";

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

}  // namespace

std::string EntryNameOf(std::string_view partName) {
    if (partName.starts_with('/') || partName.starts_with('\\')) partName.remove_prefix(1);
    std::string entry(partName);
    std::replace(entry.begin(), entry.end(), '\\', '/');
    return entry;
}

std::string EntryNameOf(const opc::PartUri& part) {
    return EntryNameOf(ToUtf8(part.name));
}

std::string RelationshipsEntryOf(std::string_view entry) {
    const std::size_t file = entry.rfind('/') + 1;  // npos + 1 is 0
    return std::string(entry.substr(0, file))
        .append(kFolder)
        .append(entry.substr(file))
        .append(kExtension);
}

std::optional<std::string> SourceOf(std::string_view relationshipsEntry) {
    const std::string folded = FoldedCase(relationshipsEntry);
    const std::size_t file = folded.rfind('/') + 1;
    if (folded.size() != relationshipsEntry.size() || file < kFolder.size()) return std::nullopt;
    const std::size_t folder = file - kFolder.size();
    if (!folded.ends_with(kExtension) || folded.compare(folder, kFolder.size(), kFolder) != 0 ||
        (folder != 0 && folded[folder - 1] != '/')) {
        return std::nullopt;
    }
    std::string source(relationshipsEntry.substr(0, folder));
    source += relationshipsEntry.substr(file);
    source.resize(source.size() - kExtension.size());
    return source;
}

std::string TypeTail(std::u16string_view type) {
    return Shown(type.substr(type.find_last_of(u"/\\") + 1));  // npos + 1 is 0
}

std::string TypeTail(const opc::Relationship& relationship) {
    return TypeTail(tarn::CopyText(relationship.GetType()));
}

std::string WithoutEscapes(std::string_view name) {
    std::string plain;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const bool isEscape = name[i] == '%' && name.size() - i > 2 && HexDigit(name[i + 1]) >= 0 &&
                              HexDigit(name[i + 2]) >= 0;
        if (isEscape) {
            plain += static_cast<char>(HexDigit(name[i + 1]) * 16 + HexDigit(name[i + 2]));
            i += 2;
        } else {
            plain += name[i];
        }
    }
    return plain;
}

bool ResemblesContentTypes(std::string_view entry) {
    std::string folded = FoldedCase(WithoutEscapes(entry));
    std::replace(folded.begin(), folded.end(), '\\', '/');
    return folded == "[content_types].xml" || folded.ends_with("/[content_types].xml") ||
           folded == "content_types.xml";
}

}  // namespace vexpa_tool

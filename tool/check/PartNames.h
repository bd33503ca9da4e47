// tool/check/PartNames.h - between the names of parts and those of entries.
#ifndef VEXPA_TOOL_CHECK_PARTNAMES_H_
#define VEXPA_TOOL_CHECK_PARTNAMES_H_

#include <optional>
#include <string>
#include <string_view>

#include "vexpa/opc/PartUri.h"
#include "vexpa/opc/Relationship.h"

namespace vexpa_tool {

// The entry that the library looks for: less one leading slash, backslashes as slashes. UTF-8.
std::string EntryNameOf(std::string_view partName);
std::string EntryNameOf(const tarn::opc::PartUri& part);

// "word/_rels/document.xml.rels" for the entry word/document.xml, and back; nothing for an
// entry whose name is not of this form, in any letter case.
std::string RelationshipsEntryOf(std::string_view entry);
std::optional<std::string> SourceOf(std::string_view relationshipsEntry);

// "thumbnail": the end of a relationship's type, Shown.
std::string TypeTail(const tarn::opc::Relationship& relationship);
std::string TypeTail(std::u16string_view type);

// Percent escapes decoded. The bytes may be no UTF-8 any more.
std::string WithoutEscapes(std::string_view name);

// Whether the name may have been meant as [Content_Types].xml.
bool ResemblesContentTypes(std::string_view entry);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_PARTNAMES_H_

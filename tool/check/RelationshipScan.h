// tool/check/RelationshipScan.h - a relationship stream in document order.
#ifndef VEXPA_TOOL_CHECK_RELATIONSHIPSCAN_H_
#define VEXPA_TOOL_CHECK_RELATIONSHIPSCAN_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tool/check/XmlScan.h"

namespace vexpa_tool {

// An element as the library takes it; an absent attribute is nothing. UTF-8.
struct ScannedRelationship {
    std::optional<std::string> id;
    std::optional<std::string> type;
    std::optional<std::string> target;
    std::optional<std::string> targetMode;
    XmlPlace place;
};

// What opening the package does not tell: the order of the elements, those that were dropped, and
// where the document breaks off.
struct RelationshipScan {
    std::vector<ScannedRelationship> relationships;  // up to the fault
    std::optional<XmlFault> fault;
    bool hasDocumentType = false;
    std::string root;           // its local name
    std::string rootNamespace;  // as declared on it
};

RelationshipScan ScanRelationships(std::string_view document);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_RELATIONSHIPSCAN_H_

// tool/check/ContentTypeScan.h - the rules of [Content_Types].xml in document order.
#ifndef VEXPA_TOOL_CHECK_CONTENTTYPESCAN_H_
#define VEXPA_TOOL_CHECK_CONTENTTYPESCAN_H_

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tool/check/XmlScan.h"

namespace vexpa_tool {

// An Override or Default element; an absent attribute is nothing. UTF-8.
struct ScannedTypeRule {
    bool isOverride;
    std::optional<std::string> key;  // PartName or Extension
    std::optional<std::string> contentType;
    XmlPlace place;

    bool IsWhole() const { return key && contentType; }
};

struct ContentTypeScan {
    std::vector<ScannedTypeRule> rules;  // up to the fault
    std::optional<XmlFault> fault;
    bool hasDocumentType = false;
    std::string root;           // its local name
    std::string rootNamespace;  // as declared on it
};

ContentTypeScan ScanContentTypes(std::string_view document);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_CONTENTTYPESCAN_H_

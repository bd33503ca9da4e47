#include "tool/check/RelationshipUses.h"

#include "tool/check/EntryFaults.h"
#include "tool/check/Shown.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

constexpr std::size_t kMostIds = 50'000;  // kept at a time

// All attributes of these namespaces hold Ids (ECMA-376 Part 1, shared relationship reference).
constexpr std::string_view kNamespaces[] = {
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships",
    "http://purl.oclc.org/ooxml/officeDocument/relationships",
};

bool HoldsId(std::string_view attribute) {
    const std::size_t end = attribute.find(XmlScan::kNamespaceEnd);
    const std::string_view uri = attribute.substr(0, end);
    return end != attribute.npos && (uri == kNamespaces[0] || uri == kNamespaces[1]);
}

}  // namespace

void RelationshipUses::Look(const XmlStartTag& tag, Findings& findings) {
    for (const char* const* at = tag.attributes; *at != nullptr; at += 2) {
        // An empty Id refers to nothing, on purpose.
        if (HoldsId(*at) && at[1][0] != '\0') LookUp(tag, at[1], findings);
    }
}

void RelationshipUses::LookUp(const XmlStartTag& tag, const std::string& id, Findings& findings) {
    if (seen_.size() == kMostIds) seen_.clear();
    if (!seen_.insert(id).second) return;
    if (part_.GetRelationshipById(FromUtf8(id).c_str()) != nullptr) return;
    findings.Add(FindingId::UnknownId, [&](Finding& finding) {
        Locate(entry_, tag.Place(), finding);
        finding.relationship = id;
        finding.cause = "refers to the relationship " + Shown(id) + ", which the part does not have";
    });
}

}  // namespace vexpa_tool

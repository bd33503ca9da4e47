// tool/check/RelationshipUses.h - the Ids by which a part's XML refers to its relationships.
#ifndef VEXPA_TOOL_CHECK_RELATIONSHIPUSES_H_
#define VEXPA_TOOL_CHECK_RELATIONSHIPUSES_H_

#include <set>
#include <string>
#include <string_view>

#include "tool/check/Findings.h"
#include "tool/check/XmlScan.h"
#include "vexpa/opc/Part.h"

namespace vexpa_tool {

class RelationshipUses {
public:
    RelationshipUses(tarn::opc::Part& part, std::string entry)
        : part_(part), entry_(std::move(entry)) {}

    // VX411, as a rule once for each Id that the part has no relationship for. Names resolved.
    void Look(const XmlStartTag& tag, Findings& findings);

private:
    void LookUp(const XmlStartTag& tag, const std::string& id, Findings& findings);

    tarn::opc::Part& part_;
    std::string entry_;
    std::set<std::string> seen_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_RELATIONSHIPUSES_H_

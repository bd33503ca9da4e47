#include "tool/model/MainPart.h"

#include "tool/model/RelationshipQuery.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

opc::Relationship* MainRelationship(opc::Package& package) {
    if (opc::Relationship* main = package.GetRelationshipByType(opc::RelTypeOfficeDocument))
        return main;
    for (const char16_t* type : {u"officeDocument", u"document", u"fixedrepresentation", u"3dmodel"}) {
        const RelationshipQuery query{type};
        for (const auto& [id, relationship] : package.GetRelationships()) {
            if (query.Matches(*relationship)) return relationship;
        }
    }
    return nullptr;
}

}  // namespace vexpa_tool

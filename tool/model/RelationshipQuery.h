// tool/model/RelationshipQuery.h - which relationships are asked for, and which is first of its type.
#ifndef VEXPA_TOOL_MODEL_RELATIONSHIPQUERY_H_
#define VEXPA_TOOL_MODEL_RELATIONSHIPQUERY_H_

#include <string>
#include <vector>

#include "vexpa/opc/Package.h"

namespace vexpa_tool {

// The package, or a part, with its relationships.
struct RelationshipSource {
    tarn::opc::Package* package;
    tarn::opc::Part* part;  // null for the package itself

    const tarn::opc::RelationshipMap& Relationships() const;

    // [borrowed] What the library answers to the search for a type; null for none.
    tarn::opc::Relationship* FirstOfType(tarn::opc::RelationshipTypeId type) const;
    // Whether this one, of this source, is what the search for its type answers.
    bool IsFirst(const tarn::opc::Relationship& relationship) const;
};

// The package, then every part that it reaches.
std::vector<RelationshipSource> AllSources(tarn::opc::Package& package);

// The id to search a relationship with: a thumbnail has one that no relationship answers.
tarn::opc::RelationshipTypeId SearchTypeId(const tarn::opc::Relationship& relationship);

struct RelationshipQuery {
    // Empty for any; else the end of the type ("header"), its URI, the library's number for it
    // ("8") or the enumerator ("RelTypeHeader"). Case does not matter.
    std::u16string type;
    bool externalOnly = false;

    bool Matches(const tarn::opc::Relationship& relationship) const;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_RELATIONSHIPQUERY_H_

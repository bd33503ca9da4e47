#include "tool/model/StrictTypes.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "vexpa/base/Utf16.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

// ECMA-376 Part 1 and Part 4: the same ends behind another beginning.
constexpr std::u16string_view kStrict = u"http://purl.oclc.org/ooxml/";
constexpr std::u16string_view kStrictRelationships =
    u"http://purl.oclc.org/ooxml/officedocument/relationships/";
constexpr std::u16string_view kTransitionalRelationships =
    u"http://schemas.openxmlformats.org/officedocument/2006/relationships/";

char16_t Lower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
}

std::u16string LowerType(const opc::Relationship& relationship) {
    std::u16string type = tarn::CopyText(relationship.GetType());
    std::transform(type.begin(), type.end(), type.begin(), Lower);
    return type;
}

}  // namespace

bool IsStrictType(const opc::Relationship& relationship) {
    return LowerType(relationship).starts_with(kStrict);
}

opc::RelationshipTypeId MeantType(const opc::Relationship& relationship) {
    const opc::RelationshipTypeId id = relationship.GetTypeId();
    if (id != opc::RelTypeUnknown) return id;
    std::u16string type = LowerType(relationship);
    if (!type.starts_with(kStrictRelationships)) return id;
    type.replace(0, kStrictRelationships.size(), kTransitionalRelationships);
    return opc::GetRelationshipTypeId(type.c_str());
}

}  // namespace vexpa_tool

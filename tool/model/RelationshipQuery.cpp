#include "tool/model/RelationshipQuery.h"

#include <algorithm>
#include <string_view>

#include "tool/model/PartWalk.h"
#include "tool/model/RelationshipTypeNames.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

char16_t Lower(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
}

bool IsSame(std::u16string_view a, std::u16string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return Lower(x) == Lower(y); });
}

std::u16string_view TailOf(std::u16string_view type) {
    const std::size_t slash = type.find_last_of(u"/\\");
    return slash == std::u16string_view::npos ? type : type.substr(slash + 1);
}

bool IsOfType(const opc::Relationship& relationship, std::u16string_view asked) {
    const std::u16string type = tarn::CopyText(relationship.GetType());
    if (IsSame(type, asked) || IsSame(TailOf(type), asked)) return true;
    const opc::RelationshipTypeId id = SearchTypeId(relationship);
    if (id == opc::RelTypeUnknown) return false;
    return IsSame(FromUtf8(std::to_string(id)), asked) ||
           IsSame(FromUtf8(RelationshipTypeName(id)), asked);
}

}  // namespace

const opc::RelationshipMap& RelationshipSource::Relationships() const {
    return part == nullptr ? package->GetRelationships() : part->GetRelationships();
}

opc::Relationship* RelationshipSource::FirstOfType(opc::RelationshipTypeId type) const {
    if (type == opc::RelTypeUnknown) return nullptr;
    return part == nullptr ? package->GetRelationshipByType(type) : part->GetRelationshipByType(type);
}

bool RelationshipSource::IsFirst(const opc::Relationship& relationship) const {
    return FirstOfType(SearchTypeId(relationship)) == &relationship;
}

std::vector<RelationshipSource> AllSources(opc::Package& package) {
    std::vector<RelationshipSource> sources = {{&package, nullptr}};
    for (opc::Part* part : ReachedParts(package)) sources.push_back({&package, part});
    return sources;
}

opc::RelationshipTypeId SearchTypeId(const opc::Relationship& relationship) {
    const opc::RelationshipTypeId id = relationship.GetTypeId();
    const std::u16string type = tarn::CopyText(relationship.GetType());
    const bool isThumbnail = id == opc::RelTypeCustomProperties && IsSame(TailOf(type), u"thumbnail");
    return isThumbnail ? opc::RelTypeThumbnail : id;
}

bool RelationshipQuery::Matches(const opc::Relationship& relationship) const {
    if (externalOnly && relationship.GetTargetMode() != opc::TargetModeExternal) return false;
    return type.empty() || IsOfType(relationship, type);
}

}  // namespace vexpa_tool

#include "tool/model/PackageJson.h"

#include <cstdint>
#include <optional>
#include <utility>

#include "tool/model/PartReader.h"
#include "tool/model/PartWalk.h"
#include "tool/model/RelationshipTypeNames.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

std::string Text(const unsigned short* text) {
    return ToUtf8(tarn::CopyText(text));
}

Json PartJson(opc::Package& package, PartReader& reader, opc::Part& part) {
    const std::optional<PartDigest> digest = reader.Digest(part);
    Json json;
    json["name"] = ToUtf8(part.GetName().name);
    json["content_type"] = Text(part.GetContentType());
    json["size"] = digest ? Json(digest->size) : Json();
    json["sha256"] = digest ? Json(digest->sha256) : Json();
    json["relationships"] = RelationshipsJson(package, part.GetRelationships());
    return json;
}

}  // namespace

Json RelationshipJson(opc::Package& package, const opc::Relationship& relationship) {
    const opc::RelationshipTypeId typeId = relationship.GetTypeId();
    const bool isExternal = relationship.GetTargetMode() == opc::TargetModeExternal;
    opc::Part* part = TargetPart(package, relationship);
    Json json;
    json["id"] = Text(relationship.GetId());
    json["type"] = Text(relationship.GetType());
    json["type_id"] = static_cast<std::int32_t>(typeId);  // an unknown type is -1
    json["type_name"] = RelationshipTypeName(typeId);
    json["target_mode"] = isExternal ? "external" : "internal";
    json["source"] = ToUtf8(relationship.GetSource().name);
    json["target"] = ToUtf8(relationship.GetTarget().name);
    json["resolved_target"] = ToUtf8(relationship.GetResolvedTarget().name);
    json["part"] = part == nullptr ? Json() : Json(ToUtf8(part->GetName().name));
    return json;
}

Json RelationshipsJson(opc::Package& package, const opc::RelationshipMap& relationships) {
    Json list = Json::array();
    for (const auto& [id, relationship] : relationships) {
        list.push_back(RelationshipJson(package, *relationship));
    }
    return list;
}

void FillPackageJson(opc::Package& package, const InputFile& file, Json& json) {
    json["relationships"] = RelationshipsJson(package, package.GetRelationships());
    PartReader reader(file);
    for (opc::Part* part : ReachedParts(package)) {
        json["parts"].push_back(PartJson(package, reader, *part));
    }
}

}  // namespace vexpa_tool

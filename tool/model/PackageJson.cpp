#include "tool/model/PackageJson.h"

#include <cstdint>
#include <cstdio>
#include <optional>
#include <string_view>
#include <utility>

#include "tool/model/PartReader.h"
#include "tool/model/PartWalk.h"
#include "tool/model/RelationshipTypeNames.h"
#include "tool/text/Local.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

std::string Text(const unsigned short* text) {
    return ToUtf8(tarn::CopyText(text));
}

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

void AppendEscaped(char32_t character, std::string& json) {
    std::u16string units(1, static_cast<char16_t>(character));
    if (character > 0xFFFF) {
        units = {static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)),
                 static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF))};
    }
    for (const char16_t unit : units) {
        char text[8];
        std::snprintf(text, sizeof text, "\\u%04x", static_cast<unsigned>(unit));
        json += text;
    }
}

}  // namespace

Json PackageJson(opc::Package& package, const std::string& file) {
    Json json;
    json["package"] = ToUtf8(FromLocal(file));
    json["opened"] = true;
    json["relationships"] = RelationshipsJson(package, package.GetRelationships());
    Json parts = Json::array();
    PartReader reader(file);
    for (opc::Part* part : ReachedParts(package)) parts.push_back(PartJson(package, reader, *part));
    json["parts"] = std::move(parts);
    return json;
}

Json RefusedPackageJson(const std::string& file) {
    Json json;
    json["package"] = ToUtf8(FromLocal(file));
    json["opened"] = false;
    return json;
}

std::string JsonText(const Json& json) {
    const std::string plain = json.dump(2);
    std::string safe;
    safe.reserve(plain.size());
    for (std::string_view rest = plain; !rest.empty();) {
        const std::string_view before = rest;
        const char32_t character = TakeUtf8(rest);
        // A line feed stands between the members, never inside a text.
        if (character != U'\n' && IsUnsafeToPrint(character)) {
            AppendEscaped(character, safe);
        } else {
            safe += before.substr(0, before.size() - rest.size());
        }
    }
    return safe;
}

}  // namespace vexpa_tool

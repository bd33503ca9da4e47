// tool/model/PackageJson.h - a package, its relationships and its parts as JSON.
#ifndef VEXPA_TOOL_MODEL_PACKAGEJSON_H_
#define VEXPA_TOOL_MODEL_PACKAGEJSON_H_

#include "tool/InputFile.h"
#include "tool/text/JsonText.h"
#include "vexpa/opc/Package.h"

namespace vexpa_tool {

// Fills in the members "relationships" and "parts", which are empty arrays.
void FillPackageJson(tarn::opc::Package& package, const InputFile& file, Json& json);

Json RelationshipJson(tarn::opc::Package& package, const tarn::opc::Relationship& relationship);
Json RelationshipsJson(tarn::opc::Package& package, const tarn::opc::RelationshipMap& relationships);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_PACKAGEJSON_H_

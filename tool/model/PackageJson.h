// tool/model/PackageJson.h - a package, its relationships and its parts as JSON.
#ifndef VEXPA_TOOL_MODEL_PACKAGEJSON_H_
#define VEXPA_TOOL_MODEL_PACKAGEJSON_H_

#include <string>

#include "tool/text/JsonText.h"
#include "vexpa/opc/Package.h"

namespace vexpa_tool {

Json PackageJson(tarn::opc::Package& package, const std::string& file);

// What is said of a file that does not open.
Json RefusedPackageJson(const std::string& file);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_PACKAGEJSON_H_

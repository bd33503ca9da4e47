// tool/model/PackageJson.h - a package, its relationships and its parts as JSON.
#ifndef VEXPA_TOOL_MODEL_PACKAGEJSON_H_
#define VEXPA_TOOL_MODEL_PACKAGEJSON_H_

#include <nlohmann/json.hpp>
#include <string>

#include "vexpa/opc/Package.h"

namespace vexpa_tool {

// The keys stand in a fixed order, so that two dumps can be compared line by line.
using Json = nlohmann::ordered_json;

Json PackageJson(tarn::opc::Package& package, const std::string& file);

// What is said of a file that does not open.
Json RefusedPackageJson(const std::string& file);

// The document as text that a terminal may get: what is unsafe to print is escaped, which
// means the same to every reader of JSON.
std::string JsonText(const Json& json);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_PACKAGEJSON_H_

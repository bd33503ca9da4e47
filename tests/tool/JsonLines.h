// tests/tool/JsonLines.h - what the tool writes when each line is a JSON value.
#ifndef VEXPA_TESTS_TOOL_JSONLINES_H_
#define VEXPA_TESTS_TOOL_JSONLINES_H_

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/tool/RunTool.h"

namespace vexpa_test {

inline std::vector<nlohmann::json> JsonLines(const std::string& text) {
    std::vector<nlohmann::json> values;
    for (const std::string& line : Lines(text)) values.push_back(nlohmann::json::parse(line));
    return values;
}

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_TOOL_JSONLINES_H_

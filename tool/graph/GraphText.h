// tool/graph/GraphText.h - a graph in the languages that draw it.
#ifndef VEXPA_TOOL_GRAPH_GRAPHTEXT_H_
#define VEXPA_TOOL_GRAPH_GRAPHTEXT_H_

#include <string>

#include "tool/graph/PackageGraph.h"

namespace vexpa_tool {

// For Graphviz.
std::string DotText(const PackageGraph& graph, const InputFile& file);

// For Mermaid, which the pages of code hosts draw.
std::string MermaidText(const PackageGraph& graph, const InputFile& file);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_GRAPH_GRAPHTEXT_H_

// tool/graph/Graphviz.h - pictures by Graphviz.
#ifndef VEXPA_TOOL_GRAPH_GRAPHVIZ_H_
#define VEXPA_TOOL_GRAPH_GRAPHVIZ_H_

#include <string>

namespace vexpa_tool {

// The graph that `dot` describes, as an SVG document. Throws a ToolError when Graphviz is not
// installed or fails.
//
// The library is loaded here: it and what it needs would slow the start of every command.
std::string DrawSvg(const std::string& dot);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_GRAPH_GRAPHVIZ_H_

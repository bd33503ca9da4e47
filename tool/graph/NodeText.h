// tool/graph/NodeText.h - what a picture says in a node.
#ifndef VEXPA_TOOL_GRAPH_NODETEXT_H_
#define VEXPA_TOOL_GRAPH_NODETEXT_H_

#include <string>
#include <vector>

#include "tool/graph/PackageGraph.h"

namespace vexpa_tool {

// Printable and of bounded length.
struct NodeText {
    std::string title;                 // "document.xml", "12 hyperlinks"
    std::vector<std::string> details;  // "word/, 4.1 KiB"; the first of a group's names
    std::string tooltip;               // the whole name
};

NodeText TextOf(const GraphNode& node, const InputFile& file);

// "image": a type of GraphEdge, cut to a line
std::string TypeText(const std::string& type);
// "image x5", "slideLayout"
std::string EdgeText(const GraphEdge& edge);
// "rId1, rId2"
std::string IdsText(const GraphEdge& edge);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_GRAPH_NODETEXT_H_

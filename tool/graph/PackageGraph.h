// tool/graph/PackageGraph.h - the relationships of a package as nodes and edges.
#ifndef VEXPA_TOOL_GRAPH_PACKAGEGRAPH_H_
#define VEXPA_TOOL_GRAPH_PACKAGEGRAPH_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tool/InputFile.h"
#include "vexpa/opc/Package.h"

namespace vexpa_tool {

enum class NodeKind {
    Package,
    Main,  // the part of the first officeDocument relationship
    Part,
    Media,     // images, sound and video
    Embedded,  // what comes from elsewhere or runs: OLE objects, packages, controls, macros
    Missing,   // internal target without a part
    External,
};

// All text is as it stands in the package: not yet fit for a terminal or a picture.
struct GraphNode {
    NodeKind kind;
    std::vector<std::u16string> names;  // parts or targets: several for a group
    std::optional<std::uint64_t> size;  // of its parts; empty when one cannot be read
    std::u16string contentType;         // of its parts
    std::string type = {};              // the end of the type of its first relationship, Printable
    bool isHyperlink = false;           // external, all of them
};

struct GraphEdge {
    std::size_t from;  // indexes of nodes
    std::size_t to;
    std::string type;  // the end of it, Printable
    std::vector<std::u16string> ids;
    bool isMutual = false;  // there is as much in the other direction, too
};

struct PackageGraph {
    std::vector<GraphNode> nodes;  // the first is where the graph starts
    std::vector<GraphEdge> edges;
};

struct GraphLimits {
    tarn::opc::Part* from = nullptr;  // null for the package
    std::size_t depth = SIZE_MAX;     // relationships away from there
};

PackageGraph MakeGraph(tarn::opc::Package& package, const InputFile& file, const GraphLimits& limits);

// The same with less to look at. Nodes that are alike and equally related become one: hyperlinks
// and media from two on, other parts from five on. Edges to and fro become one.
PackageGraph Folded(const PackageGraph& graph);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_GRAPH_PACKAGEGRAPH_H_

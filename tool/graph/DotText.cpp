#include <cstddef>
#include <vector>

#include "tool/graph/GraphText.h"
#include "tool/graph/NodeText.h"
#include "tool/text/Local.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

// In a quoted string of DOT a backslash begins an escape, and an ampersand an entity.
std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c == '&' ? "&amp;" : std::string(1, c);
    }
    return quoted + "\"";
}

std::string HtmlEscaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

std::string Small(const std::string& text) {
    return "<font point-size=\"9\">" + HtmlEscaped(text) + "</font>";
}

// For each node the type that all relationships to it have; empty where they have several. It
// stands in the node: beside the many edges of a large part it is hard to tell whose a label is.
std::vector<std::string> TypesInNodes(const PackageGraph& graph) {
    std::vector<std::string> types(graph.nodes.size());
    std::vector<bool> isMixed(graph.nodes.size());
    for (const GraphEdge& edge : graph.edges) {
        std::string& type = types[edge.to];
        if (type.empty()) type = edge.type;
        if (type != edge.type) isMixed[edge.to] = true;
    }
    for (std::size_t i = 0; i < types.size(); ++i) {
        if (isMixed[i]) types[i].clear();
    }
    return types;
}

// The title of a group has it already.
std::string TypeBesideTitle(const GraphNode& node, const std::string& type) {
    const bool isNamedByType = node.names.size() > 1 && node.kind != NodeKind::Media;
    return type.empty() || isNamedByType ? "" : "&#160;&#160;" + Small(TypeText(type));
}

// The title, and the details small below it. Lines begin at the left: how long they will be is
// not known where fonts differ.
std::string Label(const NodeText& text, const std::string& besideTitle) {
    constexpr const char* kLineEnd = "<br align=\"left\"/>";
    std::string label = "<<b>" + HtmlEscaped(text.title) + "</b>" + besideTitle + kLineEnd;
    for (const std::string& detail : text.details) label += Small(detail) + kLineEnd;
    return label + ">";
}

const char* StyleOf(const GraphNode& node) {
    switch (node.kind) {
        case NodeKind::Package:
            return "shape=folder, fillcolor=\"#334155\", color=\"#334155\", fontcolor=white";
        case NodeKind::Main:
            return "fillcolor=\"#dbeafe\", color=\"#1d4ed8\", penwidth=2";
        case NodeKind::Media:
            return "fillcolor=\"#dcfce7\", color=\"#15803d\"";
        case NodeKind::Embedded:
            return "fillcolor=\"#ffedd5\", color=\"#c2410c\"";
        case NodeKind::Missing:
            return "style=\"filled,dashed\", fillcolor=\"#fee2e2\", color=\"#dc2626\", "
                   "fontcolor=\"#b91c1c\", penwidth=2";
        case NodeKind::External:
            return "shape=note, style=\"filled,dashed\", fillcolor=\"#fefce8\", color=\"#a16207\"";
        case NodeKind::Part:
            break;
    }
    return "";
}

const char* EdgeStyle(const GraphNode& target) {
    if (target.kind == NodeKind::Missing) return ", color=\"#dc2626\", fontcolor=\"#b91c1c\"";
    return target.kind == NodeKind::External ? ", style=dashed" : "";
}

std::string NodeLine(const GraphNode& node, const std::string& type, const InputFile& file) {
    const NodeText text = TextOf(node, file);
    const std::string style = StyleOf(node);
    return " [label=" + Label(text, TypeBesideTitle(node, type)) + ", tooltip=" + Quoted(text.tooltip) +
           (style.empty() ? "" : ", " + style) + "];\n";
}

std::string EdgeLine(const GraphEdge& edge, const GraphNode& target, bool isTypeInNode) {
    const std::string text = EdgeText(edge);
    return " [" + (isTypeInNode ? "" : "label=" + Quoted(text) + ", ") +
           "tooltip=" + Quoted(text + ": " + IdsText(edge)) + EdgeStyle(target) +
           (edge.isMutual ? ", dir=both" : "") +
           (edge.to > edge.from ? ", tailport=e, headport=w" : "") + "];\n";
}

}  // namespace

std::string DotText(const PackageGraph& graph, const InputFile& file) {
    const auto id = [](std::size_t node) { return "  n" + std::to_string(node); };
    const std::vector<std::string> types = TypesInNodes(graph);
    std::string dot = "digraph " + Quoted(PrintableLocal(file.name)) + " {\n" +
                      "  rankdir=LR; ranksep=0.9; nodesep=0.18;\n"
                      "  node [shape=box, style=\"filled,rounded\", fillcolor=\"#f8fafc\", "
                      "color=\"#64748b\", fontname=\"Helvetica\", fontsize=11, height=0.3, "
                      "margin=\"0.12,0.06\"];\n"
                      "  edge [color=\"#64748b\", fontname=\"Helvetica\", fontsize=8, "
                      "fontcolor=\"#475569\", arrowsize=0.6];\n";
    for (std::size_t i = 0; i < graph.nodes.size(); ++i) {
        dot += id(i) + NodeLine(graph.nodes[i], types[i], file);
    }
    for (const GraphEdge& edge : graph.edges) {
        dot += id(edge.from) + " ->" + id(edge.to).substr(1) +
               EdgeLine(edge, graph.nodes[edge.to], !types[edge.to].empty());
    }
    return dot + "}\n";
}

}  // namespace vexpa_tool

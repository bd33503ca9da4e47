#include "tool/graph/GraphText.h"
#include "tool/graph/NodeText.h"

namespace vexpa_tool {

namespace {

// Mermaid has entities of its own, without an ampersand.
std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        const bool isPlain = c != '"' && c != '#' && c != '<' && c != '>' && c != '&' && c != '`' &&
                             c != '\\' && c != '|' && c != ';';
        escaped += isPlain ? std::string(1, c) : "#" + std::to_string(static_cast<int>(c)) + ";";
    }
    return escaped;
}

std::string Label(const NodeText& text) {
    std::string label = Escaped(text.title);
    for (const std::string& detail : text.details) label += "<br/>" + Escaped(detail);
    return "\"" + label + "\"";
}

const char* ClassOf(NodeKind kind) {
    switch (kind) {
        case NodeKind::Package:
            return ":::package";
        case NodeKind::Main:
            return ":::main";
        case NodeKind::Media:
            return ":::media";
        case NodeKind::Embedded:
            return ":::embedded";
        case NodeKind::Missing:
            return ":::missing";
        case NodeKind::External:
            return ":::external";
        case NodeKind::Part:
            break;
    }
    return "";
}

const char* Arrow(const GraphEdge& edge, const GraphNode& target) {
    if (edge.isMutual) return "<-->";
    const bool isReal = target.kind != NodeKind::External && target.kind != NodeKind::Missing;
    return isReal ? "-->" : "-.->";
}

constexpr const char* kClasses =
    "  classDef package fill:#334155,stroke:#334155,color:#fff\n"
    "  classDef main fill:#dbeafe,stroke:#1d4ed8,stroke-width:2px\n"
    "  classDef media fill:#dcfce7,stroke:#15803d\n"
    "  classDef embedded fill:#ffedd5,stroke:#c2410c\n"
    "  classDef missing fill:#fee2e2,stroke:#dc2626,color:#b91c1c,stroke-dasharray:4\n"
    "  classDef external fill:#fefce8,stroke:#a16207,stroke-dasharray:4\n";

}  // namespace

std::string MermaidText(const PackageGraph& graph, const InputFile& file) {
    std::string text = "flowchart LR\n";
    for (std::size_t i = 0; i < graph.nodes.size(); ++i) {
        const GraphNode& node = graph.nodes[i];
        text += "  n" + std::to_string(i) + "[" + Label(TextOf(node, file)) + "]" + ClassOf(node.kind) +
                "\n";
    }
    for (const GraphEdge& edge : graph.edges) {
        text += "  n" + std::to_string(edge.from) + " " + Arrow(edge, graph.nodes[edge.to]) + "|\"" +
                Escaped(EdgeText(edge)) + "\"| n" + std::to_string(edge.to) + "\n";
    }
    return text + kClasses;
}

}  // namespace vexpa_tool

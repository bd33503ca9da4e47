// vexpa graph FILE: the relationships as a graph, for programs that draw and as a picture.

#include <cstdint>
#include <memory>
#include <string>

#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/graph/GraphText.h"
#include "tool/graph/Graphviz.h"
#include "tool/graph/PackageGraph.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PartArgument.h"
#include "tool/text/Local.h"
#include "tool/text/Output.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

// Beyond this, a picture takes minutes to lay out and shows nothing.
constexpr std::size_t kMostNodes = 1000;
constexpr std::size_t kMostEdges = 4000;

struct Arguments {
    std::string file;
    std::string from;
    std::size_t depth = SIZE_MAX;
    bool dot = false;
    bool svg = false;
    bool mermaid = false;
    bool isFull = false;
    bool json = false;
};

PackageGraph ReadGraph(const InputFile& file, const Arguments& arguments) {
    const auto package = OpenPackage(file);
    const GraphLimits limits{FindPartOrPackage(*package, file, arguments.from), arguments.depth};
    PackageGraph graph = MakeGraph(*package, file, limits);
    return arguments.isFull ? graph : Folded(graph);
}

ExitStatus Show(const InputFile& file, const Arguments& arguments, Output& out) {
    const PackageGraph graph = ReadGraph(file, arguments);
    if (arguments.mermaid) {
        out.Write(MermaidText(graph, file));
        return kDone;
    }
    const std::string dot = DotText(graph, file);
    if (arguments.svg && (graph.nodes.size() > kMostNodes || graph.edges.size() > kMostEdges)) {
        throw ToolError(kReadOrWriteError,
                        PrintableLocal(file.name) + ": " + std::to_string(graph.nodes.size()) +
                            " nodes and " + std::to_string(graph.edges.size()) +
                            " edges are too many for a picture (see --from, --depth)");
    }
    out.Write(arguments.svg ? DrawSvg(dot) : dot);
    return kDone;
}

const char* KindName(NodeKind kind) {
    switch (kind) {
        case NodeKind::Package:
            return "package";
        case NodeKind::Main:
            return "main";
        case NodeKind::Media:
            return "media";
        case NodeKind::Embedded:
            return "embedded";
        case NodeKind::Missing:
            return "missing";
        case NodeKind::External:
            return "external";
        case NodeKind::Part:
            break;
    }
    return "part";
}

Json NamesJson(const std::vector<std::u16string>& names) {
    Json list = Json::array();
    for (const std::u16string& name : names) list.push_back(ToUtf8(name));
    return list;
}

ExitStatus Fill(const InputFile& file, const Arguments& arguments, Json& json) {
    const PackageGraph graph = ReadGraph(file, arguments);
    for (const GraphNode& node : graph.nodes) {
        json["nodes"].push_back({{"kind", KindName(node.kind)},
                                 {"names", NamesJson(node.names)},
                                 {"size", node.size ? Json(*node.size) : Json()},
                                 {"content_type", ToUtf8(node.contentType)}});
    }
    for (const GraphEdge& edge : graph.edges) {
        json["edges"].push_back({{"from", edge.from},
                                 {"to", edge.to},
                                 {"type", edge.type},
                                 {"ids", NamesJson(edge.ids)},
                                 {"mutual", edge.isMutual}});
    }
    return kDone;
}

CommandRun Declare(const CommandLine& line) {
    const auto arguments = std::make_shared<Arguments>();
    AddFile(line, arguments->file);
    const Argument dot = line.Flag("--dot", arguments->dot, "For Graphviz; this is the default");
    const Argument svg = line.Flag("--svg", arguments->svg, "A picture");
    const Argument mermaid = line.Flag("--mermaid", arguments->mermaid, "For Mermaid");
    line.Flag("--full", arguments->isFull, "Fold nothing: a node for every part and link");
    line.Option("--from", arguments->from, "Begin at a part").Called("PART");
    line.Option("--depth", arguments->depth, "Follow at most N relationships in a row");
    const Argument json = AddJson(line, arguments->json);
    for (const Argument& one : {svg, mermaid, json}) one.Excludes(dot);
    svg.Excludes(mermaid).Excludes(json);
    mermaid.Excludes(json);
    return [arguments] {
        FileCommand command;
        command.showText = [&](const InputFile& file, Output& out) {
            return Show(file, *arguments, out);
        };
        command.members = {{"nodes", Json::array()}, {"edges", Json::array()}};
        command.fillJson = [&](const InputFile& file, Json& members) {
            return Fill(file, *arguments, members);
        };
        return RunFile(arguments->file, arguments->json, command);
    };
}

const CommandRegistration registration({"graph", "Draw the relationships", Declare});

}  // namespace

}  // namespace vexpa_tool

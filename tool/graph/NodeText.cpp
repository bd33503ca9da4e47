#include "tool/graph/NodeText.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

#include "tool/text/Local.h"
#include "tool/text/Size.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

constexpr std::size_t kLongest = 48;  // columns of a line
constexpr std::size_t kLongestTooltip = 300;
constexpr std::size_t kMostNamed = 4;  // of a group

// The end of a name tells more than its beginning; of a URL it is the other way round.
std::string CutFront(std::u16string_view text) {
    if (text.size() <= kLongest) return PrintableOrQuotes(text);
    return "..." + Printable(text.substr(text.size() - (kLongest - 3)));
}

std::string CutBack(std::u16string_view text, std::size_t longest = kLongest) {
    if (text.size() <= longest) return PrintableOrQuotes(text);
    return Printable(text.substr(0, longest - 3)) + "...";
}

std::u16string_view FileName(std::u16string_view name) {
    return name.substr(name.rfind(u'/') + 1);  // npos + 1 is 0
}

std::u16string_view Folder(std::u16string_view name) {
    return name.substr(0, name.rfind(u'/') + 1);
}

std::string SizeText(const GraphNode& node) {
    return node.size ? HumanSize(*node.size) : "unreadable";
}

void DescribePart(const GraphNode& node, NodeText& text) {
    const std::u16string_view name = node.names.front();
    text.title = CutFront(FileName(name));
    const std::u16string_view folder = Folder(name);
    text.details.push_back((folder.empty() ? "" : CutFront(folder) + ", ") + SizeText(node));
}

std::string GroupTitle(const GraphNode& node) {
    const std::string count = std::to_string(node.names.size());
    if (node.kind == NodeKind::Media) return count + " media";
    if (node.kind == NodeKind::External) return count + " hyperlinks";
    return count + " x " + CutBack(FromUtf8(node.type));
}

void NameSome(const std::vector<std::string>& lines, NodeText& text) {
    // The line that says "1 more" has room for the one.
    const std::size_t named = lines.size() == kMostNamed + 1 ? lines.size() : kMostNamed;
    for (std::size_t i = 0; i < lines.size() && i < named; ++i) text.details.push_back(lines[i]);
    if (lines.size() > named) {
        text.details.push_back("and " + std::to_string(lines.size() - named) + " more");
    }
}

void DescribeGroup(const GraphNode& node, NodeText& text) {
    text.title = GroupTitle(node);
    std::vector<std::string> names;
    for (const std::u16string& name : node.names) names.push_back(CutFront(FileName(name)));
    NameSome(names, text);
    text.details.push_back(SizeText(node));
}

// Where the links lead, the most frequent host first.
void DescribeHyperlinks(const GraphNode& node, NodeText& text) {
    text.title = GroupTitle(node);
    std::map<std::u16string, std::size_t> hosts;
    for (const std::u16string& name : node.names) {
        const tarn::opc::PartUri uri(name.c_str());
        ++hosts[uri.host.empty() ? uri.scheme.empty() ? u"(files)" : uri.scheme + u":" : uri.host];
    }
    std::vector<std::pair<std::u16string, std::size_t>> sorted(hosts.begin(), hosts.end());
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const auto& a, const auto& b) { return a.second > b.second; });
    std::vector<std::string> lines;
    lines.reserve(sorted.size());
    for (const auto& [host, count] : sorted) {
        lines.push_back(CutBack(host) + (count == 1 ? "" : " x" + std::to_string(count)));
    }
    NameSome(lines, text);
}

}  // namespace

NodeText TextOf(const GraphNode& node, const InputFile& file) {
    NodeText text;
    if (node.kind == NodeKind::Package) {
        const std::u16string name = FromLocal(file.name);
        text.title = CutFront(FileName(name));
        text.tooltip = CutBack(name, kLongestTooltip);
        text.details.push_back("package");
        return text;
    }
    text.tooltip = CutBack(node.names.front(), kLongestTooltip);
    if (node.names.size() > 1) {
        node.kind == NodeKind::External ? DescribeHyperlinks(node, text) : DescribeGroup(node, text);
    } else if (node.kind == NodeKind::External) {
        text.title = CutBack(node.names.front());
        text.details.push_back("external");
    } else if (node.kind == NodeKind::Missing) {
        text.title = CutFront(node.names.front());
        text.details.push_back("missing");
    } else {
        DescribePart(node, text);
    }
    return text;
}

std::string TypeText(const std::string& type) {
    return CutBack(FromUtf8(type));
}

std::string EdgeText(const GraphEdge& edge) {
    const std::string type = TypeText(edge.type);
    return edge.ids.size() == 1 ? type : type + " x" + std::to_string(edge.ids.size());
}

std::string IdsText(const GraphEdge& edge) {
    std::string text;
    for (std::size_t i = 0; i < edge.ids.size() && i < kMostNamed; ++i) {
        text += (i == 0 ? "" : ", ") + CutBack(edge.ids[i]);
    }
    return edge.ids.size() > kMostNamed ? text + ", ..." : text;
}

}  // namespace vexpa_tool

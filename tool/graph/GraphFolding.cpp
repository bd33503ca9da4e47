#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "tool/graph/PackageGraph.h"

namespace vexpa_tool {

namespace {

constexpr std::size_t kFewMedia = 2;
constexpr std::size_t kFewParts = 5;

using Relations = std::vector<std::pair<std::size_t, std::string>>;  // node and type

// Nodes are alike when all of this is the same: kind, whether hyperlinks, content type, what
// leads to them and where they lead to.
using Likeness = std::tuple<NodeKind, bool, std::u16string, Relations, Relations>;

void SortAndUnite(Relations& relations) {
    std::sort(relations.begin(), relations.end());
    relations.erase(std::unique(relations.begin(), relations.end()), relations.end());
}

class Folding {
public:
    explicit Folding(const PackageGraph& graph) : graph_(graph) {}

    PackageGraph Fold() {
        FindRelations();
        FindGroups();
        AddEdges();
        JoinMutualEdges();
        return std::move(folded_);
    }

private:
    void FindRelations() {
        from_.resize(graph_.nodes.size());
        to_.resize(graph_.nodes.size());
        for (const GraphEdge& edge : graph_.edges) {
            from_[edge.to].emplace_back(edge.from, edge.type);
            to_[edge.from].emplace_back(edge.to, edge.type);
        }
        for (Relations& relations : from_) SortAndUnite(relations);
        for (Relations& relations : to_) SortAndUnite(relations);
    }

    bool MayFold(std::size_t node) const {
        const GraphNode& one = graph_.nodes[node];
        if (node == 0) return false;
        if (one.kind == NodeKind::External) return one.isHyperlink;
        return one.kind == NodeKind::Media || one.kind == NodeKind::Part ||
               one.kind == NodeKind::Embedded;
    }

    static std::size_t FewestOf(const GraphNode& node) {
        const bool isMedia = node.kind == NodeKind::Media || node.kind == NodeKind::External;
        return isMedia ? kFewMedia : kFewParts;
    }

    // Pictures of all formats are alike.
    Likeness LikenessOf(std::size_t node) const {
        const GraphNode& one = graph_.nodes[node];
        const bool isMedia = one.kind == NodeKind::Media;
        return {one.kind, one.isHyperlink, isMedia ? std::u16string() : one.contentType, from_[node],
                to_[node]};
    }

    void FindGroups() {
        std::map<Likeness, std::vector<std::size_t>> alike;
        for (std::size_t i = 0; i < graph_.nodes.size(); ++i) {
            if (MayFold(i)) alike[LikenessOf(i)].push_back(i);
        }
        std::vector<const std::vector<std::size_t>*> groupOf(graph_.nodes.size());
        for (const auto& [likeness, nodes] : alike) {
            if (nodes.size() < FewestOf(graph_.nodes[nodes.front()])) continue;
            for (const std::size_t node : nodes) groupOf[node] = &nodes;
        }
        newIndex_.resize(graph_.nodes.size());
        for (std::size_t i = 0; i < graph_.nodes.size(); ++i) Place(i, groupOf[i]);
    }

    // A group stands where its first node stood.
    void Place(std::size_t node, const std::vector<std::size_t>* group) {
        if (group != nullptr && group->front() != node) {
            newIndex_[node] = newIndex_[group->front()];
            Join(graph_.nodes[node], folded_.nodes[newIndex_[node]]);
            return;
        }
        newIndex_[node] = folded_.nodes.size();
        folded_.nodes.push_back(graph_.nodes[node]);
    }

    static void Join(const GraphNode& node, GraphNode& group) {
        group.names.insert(group.names.end(), node.names.begin(), node.names.end());
        if (group.size && node.size) {
            *group.size += *node.size;
        } else {
            group.size.reset();
        }
    }

    void AddEdges() {
        std::map<std::tuple<std::size_t, std::size_t, std::string>, std::size_t> known;
        for (const GraphEdge& edge : graph_.edges) {
            const std::size_t from = newIndex_[edge.from], to = newIndex_[edge.to];
            const auto [found, isNew] = known.try_emplace({from, to, edge.type}, folded_.edges.size());
            if (isNew) folded_.edges.push_back({from, to, edge.type, {}});
            std::vector<std::u16string>& ids = folded_.edges[found->second].ids;
            ids.insert(ids.end(), edge.ids.begin(), edge.ids.end());
        }
    }

    // One edge each way, of whatever types: a layout and its master.
    void JoinMutualEdges() {
        std::map<std::pair<std::size_t, std::size_t>, std::vector<std::size_t>> between;
        for (std::size_t i = 0; i < folded_.edges.size(); ++i) {
            between[{folded_.edges[i].from, folded_.edges[i].to}].push_back(i);
        }
        std::vector<bool> isGone(folded_.edges.size());
        for (std::size_t i = 0; i < folded_.edges.size(); ++i) {
            GraphEdge& edge = folded_.edges[i];
            if (isGone[i] || edge.from == edge.to || between[{edge.from, edge.to}].size() != 1)
                continue;
            const auto back = between.find({edge.to, edge.from});
            if (back == between.end() || back->second.size() != 1) continue;
            edge.isMutual = true;
            isGone[back->second.front()] = true;
        }
        std::vector<GraphEdge> kept;
        for (std::size_t i = 0; i < folded_.edges.size(); ++i) {
            if (!isGone[i]) kept.push_back(std::move(folded_.edges[i]));
        }
        folded_.edges = std::move(kept);
    }

    const PackageGraph& graph_;
    std::vector<Relations> from_;
    std::vector<Relations> to_;
    std::vector<std::size_t> newIndex_;
    PackageGraph folded_;
};

}  // namespace

PackageGraph Folded(const PackageGraph& graph) {
    return Folding(graph).Fold();
}

}  // namespace vexpa_tool

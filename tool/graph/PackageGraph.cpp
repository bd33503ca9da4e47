#include "tool/graph/PackageGraph.h"

#include <map>
#include <unordered_map>
#include <utility>

#include "tool/model/MainPart.h"
#include "tool/model/PartReader.h"
#include "tool/model/PartWalk.h"
#include "tool/model/StrictTypes.h"
#include "tool/text/ShortNames.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

bool IsMediaType(std::u16string_view contentType) {
    return contentType.starts_with(u"image/") || contentType.starts_with(u"audio/") ||
           contentType.starts_with(u"video/");
}

bool IsEmbedding(opc::RelationshipTypeId type) {
    return type == opc::RelTypeOleObject || type == opc::RelTypePackage ||
           type == opc::RelTypeVbaProject || type == opc::RelTypeControl ||
           type == opc::RelTypeActiveXControlBinary;
}

class GraphMaker {
public:
    GraphMaker(opc::Package& package, const InputFile& file) : package_(package), reader_(file) {
        const opc::Relationship* main = MainRelationship(package);
        main_ = main == nullptr ? nullptr : TargetPart(package, *main);
    }

    PackageGraph Make(const GraphLimits& limits) {
        Start(limits.from);
        // The list of sources grows while it is gone through, a level at a time.
        std::size_t next = 0;
        for (std::size_t depth = 0; depth < limits.depth && next < sources_.size(); ++depth) {
            for (const std::size_t end = sources_.size(); next < end; ++next) AddEdgesOf(next);
        }
        return std::move(graph_);
    }

private:
    struct Source {
        std::size_t node;
        opc::Part* part;  // null for the package
    };

    void Start(opc::Part* from) {
        if (from == nullptr) {
            graph_.nodes.push_back({NodeKind::Package, {}, std::nullopt, {}});
            sources_.push_back({0, nullptr});
        } else {
            NodeOfPart(*from, nullptr);
        }
    }

    void AddEdgesOf(std::size_t source) {
        opc::Part* part = sources_[source].part;
        const opc::RelationshipMap& relationships =
            part == nullptr ? package_.GetRelationships() : part->GetRelationships();
        for (const auto& [id, relationship] : relationships) {
            const std::size_t to = NodeOf(*relationship);
            graph_.edges.push_back({sources_[source].node, to, TypeEnd(*relationship), {id}});
        }
    }

    std::size_t NodeOf(const opc::Relationship& relationship) {
        if (relationship.GetTargetMode() == opc::TargetModeExternal) return ExternalNode(relationship);
        opc::Part* part = TargetPart(package_, relationship);
        return part == nullptr ? MissingNode(relationship) : NodeOfPart(*part, &relationship);
    }

    std::size_t ExternalNode(const opc::Relationship& relationship) {
        const bool isHyperlink = MeantType(relationship) == opc::RelTypeHyperlink;
        const std::u16string& name = relationship.GetTarget().name;
        const auto [found, isNew] = external_.try_emplace({isHyperlink, name}, graph_.nodes.size());
        if (isNew) {
            graph_.nodes.push_back(
                {NodeKind::External, {name}, std::nullopt, {}, TypeEnd(relationship), isHyperlink});
        }
        return found->second;
    }

    std::size_t MissingNode(const opc::Relationship& relationship) {
        const std::u16string& name = relationship.GetResolvedTarget().name;
        const auto [found, isNew] = missing_.try_emplace(name, graph_.nodes.size());
        if (isNew) graph_.nodes.push_back({NodeKind::Missing, {name}, std::nullopt, {}});
        return found->second;
    }

    std::size_t NodeOfPart(opc::Part& part, const opc::Relationship* by) {
        const auto [found, isNew] = parts_.try_emplace(&part, graph_.nodes.size());
        if (!isNew) return found->second;
        const std::u16string contentType = tarn::CopyText(part.GetContentType());
        graph_.nodes.push_back({KindOf(part, contentType, by),
                                {part.GetName().name},
                                reader_.Size(part),
                                contentType,
                                by == nullptr ? std::string() : TypeEnd(*by)});
        sources_.push_back({found->second, &part});
        return found->second;
    }

    NodeKind KindOf(const opc::Part& part, const std::u16string& contentType,
                    const opc::Relationship* by) const {
        if (&part == main_) return NodeKind::Main;
        if (by != nullptr && IsEmbedding(MeantType(*by))) return NodeKind::Embedded;
        return IsMediaType(contentType) ? NodeKind::Media : NodeKind::Part;
    }

    opc::Package& package_;
    PartReader reader_;
    opc::Part* main_;
    PackageGraph graph_;
    std::vector<Source> sources_;
    std::unordered_map<const opc::Part*, std::size_t> parts_;
    std::map<std::u16string, std::size_t> missing_;
    std::map<std::pair<bool, std::u16string>, std::size_t> external_;
};

}  // namespace

PackageGraph MakeGraph(opc::Package& package, const InputFile& file, const GraphLimits& limits) {
    return GraphMaker(package, file).Make(limits);
}

}  // namespace vexpa_tool

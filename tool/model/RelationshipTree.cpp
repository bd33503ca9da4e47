#include "tool/model/RelationshipTree.h"

#include <unordered_map>
#include <utility>
#include <vector>

#include "tool/model/PartWalk.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

// One source whose relationships are being shown.
struct Branch {
    const opc::RelationshipMap* relationships;
    opc::RelationshipMap::const_iterator next;
    opc::Part* source;  // null for the package
    std::string lead;   // before the mark of each of its lines
};

// A stack of its own instead of recursion, as the document decides how deep it goes.
class TreeWalk {
public:
    TreeWalk(opc::Package& package, std::size_t depth, const TreeLineSink& sink)
        : package_(package), depth_(depth), sink_(sink) {}

    void Run(opc::Part* from) {
        if (depth_ == 0) return;
        if (from == nullptr) {
            Enter(package_.GetRelationships(), nullptr, {});
        } else {
            Enter(from->GetRelationships(), from, {});
        }
        while (!branches_.empty()) Step();
    }

private:
    enum class State { IsOpen, IsDone };

    void Enter(const opc::RelationshipMap& relationships, opc::Part* source, std::string lead) {
        if (source != nullptr) states_[source] = State::IsOpen;
        branches_.push_back({&relationships, relationships.begin(), source, std::move(lead)});
    }

    void Step() {
        Branch& branch = branches_.back();
        if (branch.next == branch.relationships->end()) {
            if (branch.source != nullptr) states_[branch.source] = State::IsDone;
            branches_.pop_back();
            return;
        }
        const opc::Relationship& relationship = *branch.next->second;
        const bool isLast = ++branch.next == branch.relationships->end();
        opc::Part* part = TargetPart(package_, relationship);
        const TargetKind kind = KindOf(relationship, part);
        const bool isCut = kind == TargetKind::Part && branches_.size() >= depth_;
        sink_({branch.lead + (isLast ? "`- " : "|- "), &relationship, part, kind, branches_.size(),
               branch.relationships, isCut ? part->GetRelationships().size() : 0});
        if (kind != TargetKind::Part || isCut) return;
        Enter(part->GetRelationships(), part, LeadBelow(branch.lead, isLast));
    }

    TargetKind KindOf(const opc::Relationship& relationship, opc::Part* part) const {
        if (relationship.GetTargetMode() == opc::TargetModeExternal) return TargetKind::External;
        if (part == nullptr) return TargetKind::Missing;
        const auto known = states_.find(part);
        if (known == states_.end()) return TargetKind::Part;
        return known->second == State::IsOpen ? TargetKind::Cycle : TargetKind::Above;
    }

    std::string LeadBelow(const std::string& lead, bool isLast) const {
        const std::size_t level = branches_.size();
        if (level >= kDrawnLevels) return "(level " + std::to_string(level + 1) + ") ";
        return lead + (isLast ? "   " : "|  ");
    }

    opc::Package& package_;
    const std::size_t depth_;
    const TreeLineSink& sink_;
    std::vector<Branch> branches_;
    std::unordered_map<const opc::Part*, State> states_;
};

}  // namespace

void WalkTree(opc::Package& package, const TreeLimits& limits, const TreeLineSink& sink) {
    TreeWalk(package, limits.depth, sink).Run(limits.from);
}

}  // namespace vexpa_tool

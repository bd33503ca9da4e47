#include "tests/fault/Scenario.h"

#include <gtest/gtest.h>

#include <deque>
#include <set>
#include <stdexcept>

namespace vexpa_test {

using namespace tarn;

namespace {

void LoadAllParts(opc::Package& package) {
    std::set<const opc::Part*> loaded;
    std::deque<const opc::RelationshipMap*> open{&package.GetRelationships()};
    for (; !open.empty(); open.pop_front()) {
        for (const auto& [id, relationship] : *open.front()) {
            const opc::Part* part = package.GetPart(relationship->GetResolvedTarget());
            if (part != nullptr && loaded.insert(part).second)
                open.push_back(&part->GetRelationships());
        }
    }
}

}  // namespace

const std::vector<Scenario>& Scenarios() {
    static const std::vector<Scenario> all = [] {
        std::vector<Scenario> scenarios;
        for (const auto& make :
             {OpeningScenarios, RelationshipScenarios, PartDataScenarios, VocabularyScenarios}) {
            const std::vector<Scenario> more = make();
            scenarios.insert(scenarios.end(), more.begin(), more.end());
        }
        return scenarios;
    }();
    return all;
}

Rehearsal::Rehearsal(const Scenario& scenario) : scenario_(scenario) {
    if (scenario.file != nullptr) file_ = std::make_unique<ScratchFile>(scenario.file());
    RunFresh();  // what is made once for the process or the thread is made now
    whole_ = RunFresh();
    if (scenario.shows == nullptr) {
        EXPECT_EQ(whole_, "");
    } else {
        EXPECT_NE(whole_.find(scenario.shows), std::string::npos) << whole_;
    }
}

Stage Rehearsal::SetUp() const {
    Stage stage;
    if (file_) stage.path = file_->Path16();
    if (scenario_.start == Start::kFile) return stage;
    if (scenario_.start == Start::kStarted) {
        stage.use = std::make_unique<tarn::Library>();
        return stage;
    }
    stage.package = opc::Package::Open(stage.path.c_str());
    if (!stage.package) throw std::runtime_error("the package does not open");
    if (scenario_.start == Start::kLoaded) LoadAllParts(*stage.package);
    return stage;
}

std::string Rehearsal::RunFresh() const {
    Stage stage = SetUp();
    Transcript seen;
    Run(stage, seen);
    return seen.Text();
}

void Rehearsal::ExpectSound(Stage& stage) const {
    Transcript again;
    Run(stage, again);
    if (scenario_.start != Start::kOpen) {
        EXPECT_EQ(again.Text(), whole_);
        return;
    }
    ExpectPartOfIt(again);
    EXPECT_EQ(RunFresh(), whole_);
}

void Rehearsal::ExpectPartOfIt(const Transcript& seen) const {
    EXPECT_EQ(LineNotIn(seen.Text(), whole_), "");
}

}  // namespace vexpa_test

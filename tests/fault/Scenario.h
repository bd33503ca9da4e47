// tests/fault/Scenario.h - things that callers do with the library, to be done while it fails.
#ifndef VEXPA_TESTS_FAULT_SCENARIO_H_
#define VEXPA_TESTS_FAULT_SCENARIO_H_

#include <memory>
#include <string>
#include <vector>

#include "tests/fault/Transcript.h"
#include "tests/support/ScratchFile.h"
#include "vexpa/base/Handle.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/opc/Package.h"

namespace vexpa_test {

// How far things are before the failures begin.
enum class Start {
    kFile,     // there is a file, if any
    kStarted,  // the library has been started
    kOpen,     // the package is open
    kLoaded,   // and all its parts are loaded, though not their bytes
};

// Where a scenario plays.
struct Stage {
    std::unique_ptr<tarn::Library> use;
    std::u16string path;
    tarn::Handle<tarn::opc::Package> package;

    tarn::opc::Part* Find(const char16_t* name) const { return package->FindPart(name); }
};

struct Scenario {
    const char* name;
    const char* shows;      // part of what is seen, so that it cannot be nothing; null: nothing is
    std::string (*file)();  // the bytes of the package; null: none is needed
    Start start;
    // May be run again on the same stage. What failed is left out of the transcript.
    void (*act)(Stage& stage, Transcript& seen);
};

std::vector<Scenario> OpeningScenarios();
std::vector<Scenario> RelationshipScenarios();
std::vector<Scenario> PartDataScenarios();
std::vector<Scenario> VocabularyScenarios();

// All of them.
const std::vector<Scenario>& Scenarios();

// One scenario, its file written, ready to be run as often as need be.
class Rehearsal {
public:
    explicit Rehearsal(const Scenario& scenario);

    Stage SetUp() const;
    void Run(Stage& stage, Transcript& seen) const { scenario_.act(stage, seen); }

    // What a fresh run shows when nothing fails.
    std::string RunFresh() const;

    // Without a failure it shows what it did at first. Parts that were loaded while it failed
    // may lack their relationships, so where the stage has some, that goes for a fresh one.
    void ExpectSound(Stage& stage) const;
    void ExpectPartOfIt(const Transcript& seen) const;

private:
    const Scenario& scenario_;
    std::unique_ptr<ScratchFile> file_;
    std::string whole_;
};

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_FAULT_SCENARIO_H_

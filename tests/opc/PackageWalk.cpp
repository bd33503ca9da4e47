#include "tests/opc/PackageWalk.h"

#include <deque>
#include <set>

#include "tests/opc/PackageFile.h"

namespace vexpa_test {

using namespace tarn;

namespace {

void ReadPart(opc::Part& part) {
    ComPtr<IStream> stream;
    if (part.GetStream(stream.Out()) == S_OK) ReadToEnd(*stream.Get());
    ComPtr<IStorage> storage;
    static_cast<void>(part.GetStorage(storage.Out()));
    part.GetEntryValue();
}

}  // namespace

std::size_t Walk(opc::Package& package) {
    std::set<opc::Part*> seen;
    std::deque<const opc::RelationshipMap*> open{&package.GetRelationships()};
    for (; !open.empty(); open.pop_front()) {
        for (const auto& entry : *open.front()) {
            if (entry.second->GetTargetMode() == opc::TargetModeExternal) continue;
            opc::Part* part = package.GetPart(entry.second->GetResolvedTarget());
            if (part == nullptr || !seen.insert(part).second) continue;
            ReadPart(*part);
            open.push_back(&part->GetRelationships());
        }
    }
    return seen.size();
}

std::size_t OpenAndWalk(const std::u16string& path) {
    const Handle<opc::Package> package = opc::Package::Open(path.c_str());
    return package ? Walk(*package) : 0;
}

}  // namespace vexpa_test

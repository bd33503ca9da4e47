#include "tests/worst/FullWalk.h"

#include <algorithm>
#include <deque>
#include <set>
#include <vector>

#include "vexpa/base/ComPtr.h"

namespace vexpa_test {

using namespace tarn;

namespace {

std::uint64_t ReadAll(IStream& stream) {
    char buffer[64 * 1024];
    std::uint64_t all = 0;
    for (std::uint32_t read = 0;; all += read) {
        if (stream.Read(buffer, sizeof buffer, &read) != S_OK || read == 0) return all;
    }
}

// Nested storages wait in a list: a file decides how deep they are.
void ReadElements(ComPtr<IStorage> root, Walked& walked) {
    std::vector<ComPtr<IStorage>> open;
    open.push_back(std::move(root));
    while (!open.empty()) {
        const ComPtr<IStorage> storage = std::move(open.back());
        open.pop_back();
        ComPtr<IEnumSTATSTG> elements;
        if (storage->EnumElements(0, nullptr, 0, elements.Out()) != S_OK) continue;
        STATSTG element;
        for (; elements->Next(1, &element, nullptr) == S_OK; ++walked.elements) {
            ComPtr<IStream> stream;
            ComPtr<IStorage> inner;
            if (storage->OpenStream(element.pwcsName, nullptr, 0, 0, stream.Out()) == S_OK) {
                walked.bytes += ReadAll(*stream.Get());
            } else if (storage->OpenStorage(element.pwcsName, nullptr, 0, nullptr, 0, inner.Out()) ==
                       S_OK) {
                open.push_back(std::move(inner));
            }
            _XCoTaskMemFree(element.pwcsName);
        }
    }
}

void ReadPart(opc::Part& part, WalkStorages storages, Walked& walked) {
    ++walked.parts;
    ComPtr<IStream> stream;
    if (part.GetStream(stream.Out()) == S_OK) {
        const std::uint64_t size = ReadAll(*stream.Get());
        walked.bytes += size;
        walked.largestPart = std::max(walked.largestPart, size);
    }
    ComPtr<IStorage> storage;
    if (storages == WalkStorages::kYes && part.GetStorage(storage.Out()) == S_OK)
        ReadElements(std::move(storage), walked);
}

}  // namespace

Walked WalkAll(opc::Package& package, WalkStorages storages) {
    Walked walked;
    std::set<opc::Part*> seen;
    std::deque<const opc::RelationshipMap*> open{&package.GetRelationships()};
    for (; !open.empty(); open.pop_front()) {
        for (const auto& entry : *open.front()) {
            ++walked.relationships;
            if (entry.second->GetTargetMode() == opc::TargetModeExternal) continue;
            opc::Part* part = package.GetPart(entry.second->GetResolvedTarget());
            if (part == nullptr || !seen.insert(part).second) continue;
            ReadPart(*part, storages, walked);
            open.push_back(&part->GetRelationships());
        }
    }
    return walked;
}

}  // namespace vexpa_test

// The task with this library, as an importer does it; with --walk-only in front, without
// reading the parts' bytes.

#include <deque>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <unordered_set>

#include "bench/drivers/Driver.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/opc/Package.h"

namespace {

using namespace tarn;
using vexpa_bench::Tally;

constexpr std::uint32_t kPiece = 64 * 1024;

// The part keeps its stream, and the stream the bytes; what an importer reads goes through a
// buffer of its own.
void ReadPart(opc::Part& part, unsigned char* buffer, Tally& tally) {
    ComPtr<IStream> stream;
    if (part.GetStream(stream.Out()) != S_OK) return;
    tally.BeginPart();
    std::uint32_t got = 0;
    do {
        if (stream->Read(buffer, kPiece, &got) != S_OK) throw std::runtime_error("cannot read a part");
        tally.AddPiece(buffer, got);
    } while (got == kPiece);
    tally.EndPart();
}

// Without a buffer the parts stay unread.
void Walk(opc::Package& package, unsigned char* buffer, Tally& tally) {
    std::unordered_set<opc::Part*> seen;
    std::deque<const opc::RelationshipMap*> open{&package.GetRelationships()};
    for (; !open.empty(); open.pop_front()) {
        for (const auto& [id, relationship] : *open.front()) {
            tally.AddRelationship();
            if (relationship->GetTargetMode() == opc::TargetModeExternal) continue;
            opc::Part* part = package.GetPart(relationship->GetResolvedTarget());
            if (part == nullptr || !seen.insert(part).second) continue;
            if (buffer != nullptr) ReadPart(*part, buffer, tally);
            open.push_back(&part->GetRelationships());
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    const bool walkOnly = argc > 1 && argv[1] == std::string_view("--walk-only");
    const auto buffer = walkOnly ? nullptr : std::make_unique<unsigned char[]>(kPiece);
    _vexpa_Initialize();
    const int status =
        vexpa_bench::RunDriver(argc - walkOnly, argv + walkOnly, [&](const char* file, Tally& tally) {
            const std::u16string path = std::filesystem::path(file).u16string();
            const Handle<opc::Package> package = opc::Package::Open(path.c_str());
            if (!package) throw std::runtime_error("cannot open the package");
            Walk(*package, buffer.get(), tally);
        });
    _vexpa_Terminate();
    return status;
}

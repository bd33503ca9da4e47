// A whole package: opened, walked, every stream and every storage read.
#include <set>
#include <string>
#include <vector>

#include "fuzz/FuzzTarget.h"
#include "fuzz/InputFile.h"
#include "fuzz/ReadStream.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/opc/Package.h"

namespace {

using namespace tarn;

constexpr std::size_t kMostParts = 256;

void ReadPart(opc::Part& part, std::size_t fileSize) {
    CopyText(part.GetContentType());
    ComPtr<IStream> stream;
    std::uint64_t bytes = 0;
    if (part.GetStream(stream.Out()) == S_OK) bytes = vexpa_fuzz::ReadStream(*stream.Get());
    vexpa_fuzz::Require(bytes <= 1032 * fileSize, "no part grows beyond what deflate can do");

    ComPtr<IStorage> storage;
    if (part.GetStorage(storage.Out()) == S_OK && storage)
        vexpa_fuzz::ReadStorage(*storage.Get(), static_cast<std::size_t>(bytes));
}

class Walk {
public:
    Walk(opc::Package& package, std::size_t fileSize) : package_(package), fileSize_(fileSize) {}

    void Run() {
        Follow(package_.GetRelationships());
        while (!waiting_.empty()) {
            opc::Part* part = waiting_.back();
            waiting_.pop_back();
            ReadPart(*part, fileSize_);
            Follow(part->GetRelationships());
        }
    }

private:
    void Follow(const opc::RelationshipMap& relationships) {
        for (const auto& [id, relationship] : relationships) {
            relationship->GetTypeId();
            const opc::PartUri& target = relationship->GetResolvedTarget();
            opc::Part* part = package_.GetPart(target);
            if (part == nullptr || seen_.size() == kMostParts) continue;
            vexpa_fuzz::Require(package_.GetPart(target) == part, "a part is loaded once");
            if (seen_.insert(part).second) waiting_.push_back(part);
        }
    }

    opc::Package& package_;
    std::size_t fileSize_;
    std::set<opc::Part*> seen_;
    std::vector<opc::Part*> waiting_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const vexpa_fuzz::InputFile file(vexpa_fuzz::Bytes(data, size));
    const Handle<opc::Package> package = opc::Package::Open(file.Path16().c_str());
    if (!package) return 0;
    Walk(*package, size).Run();
    return 0;
}

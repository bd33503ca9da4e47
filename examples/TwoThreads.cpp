// Reads two documents at once, each in a thread of its own: TwoThreads FILE FILE

#include <cinttypes>
#include <cstdio>
#include <future>
#include <set>
#include <vector>

#include "examples/Library.h"
#include "examples/OpenDocument.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/opc/Package.h"

using namespace tarn;

namespace {

struct Sums {
    std::size_t parts = 0;
    std::uint64_t bytes = 0;
};

std::uint64_t SizeOf(opc::Part& part) {
    ComPtr<IStream> stream;
    std::uint64_t size = 0;
    if (Failed(part.GetStream(stream.Out()))) return 0;
    return Failed(stream->Seek(0, STREAM_SEEK_END, &size)) ? 0 : size;
}

// A package, and all that comes from it, stays in the thread that opened it.
Sums ReadDocument(const char* file) {
    Sums sums;
    const Handle<opc::Package> package = OpenPackage(file);
    if (!package) return sums;

    // Relationships may lead back, so each part is taken once.
    std::set<opc::Part*> seen;
    std::vector<const opc::RelationshipMap*> waiting = {&package->GetRelationships()};
    while (!waiting.empty()) {
        const opc::RelationshipMap& relationships = *waiting.back();
        waiting.pop_back();
        for (const auto& [id, relationship] : relationships) {
            if (relationship->GetTargetMode() == opc::TargetModeExternal) continue;
            opc::Part* part = package->GetPart(relationship->GetResolvedTarget());
            if (part == nullptr || !seen.insert(part).second) continue;
            ++sums.parts;
            sums.bytes += SizeOf(*part);
            waiting.push_back(&part->GetRelationships());
        }
    }
    return sums;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const Library library;  // before the threads, and until they have ended
    std::future<Sums> first = std::async(std::launch::async, ReadDocument, argv[1]);
    std::future<Sums> second = std::async(std::launch::async, ReadDocument, argv[2]);
    for (std::future<Sums>* document : {&first, &second}) {
        const Sums sums = document->get();
        std::printf("%zu parts, %" PRIu64 " bytes\n", sums.parts, sums.bytes);
    }
}

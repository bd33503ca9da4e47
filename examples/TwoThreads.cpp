// Reads two documents at once, each in a thread of its own: TwoThreads FILE FILE

#include <cinttypes>
#include <cstdio>
#include <future>
#include <set>
#include <stdexcept>
#include <vector>

#include "examples/Arguments.h"
#include "examples/OpenDocument.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/opc/Package.h"

using namespace tarn;

namespace {

struct Sums {
    std::size_t parts = 0;
    std::uint64_t bytes = 0;
};

// Leaves the thread through its future.
class Failure : public std::runtime_error {
public:
    Failure(int status, const char* what) : runtime_error(what), status_(status) {}
    int Status() const noexcept { return status_; }

private:
    int status_;
};

std::uint64_t SizeOf(opc::Part& part) {
    ComPtr<IStream> stream;
    std::uint64_t size = 0;
    if (Failed(part.GetStream(stream.Out())) || Failed(stream->Seek(0, STREAM_SEEK_END, &size))) {
        throw Failure(5, "a part is missing, damaged or encrypted");
    }
    return size;
}

// A package, and all that comes from it, stays in the thread that opened it.
Sums ReadDocument(const char* file) {
    Sums sums;
    const Handle<opc::Package> package = OpenPackage(file);
    if (!package) throw Failure(3, "not readable, or no package");

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
    if (argc != 3) return Usage("TwoThreads FILE FILE");
    const Library library;  // before the threads, and until they have ended
    std::future<Sums> first = std::async(std::launch::async, ReadDocument, argv[1]);
    std::future<Sums> second = std::async(std::launch::async, ReadDocument, argv[2]);
    int status = 0;
    for (std::future<Sums>* document : {&first, &second}) {
        try {
            const Sums sums = document->get();
            std::printf("%zu parts, %" PRIu64 " bytes\n", sums.parts, sums.bytes);
        } catch (const Failure& failure) {
            std::fprintf(stderr, "%s\n", failure.what());
            status = failure.Status();
        }
    }
    return status;
}

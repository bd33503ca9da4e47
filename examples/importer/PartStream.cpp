#include "examples/importer/PartStream.h"

#include <algorithm>
#include <cstdint>

#include "examples/importer/Importer.h"
#include "vexpa/base/Result.h"

using namespace tarn;

namespace importer {

ComPtr<IStream> OpenStream(opc::Part& part) {
    ComPtr<IStream> stream;
    if (Failed(part.GetStream(stream.Out()))) throw ImportError("the part cannot be extracted");
    // Whoever asked for the stream before has moved the position that all share.
    if (Failed(stream->Seek(0, STREAM_SEEK_SET, nullptr))) throw ImportError("the part cannot be read");
    return stream;
}

ComPtr<IStream> OpenMainPart(const std::filesystem::path& file) {
    const Handle<opc::Package> package = opc::Package::Open(file.u16string().c_str());
    if (!package) throw ImportError("not readable, or no package");
    const opc::Relationship* start = package->GetRelationshipByType(opc::RelTypeOfficeDocument);
    if (start == nullptr) throw ImportError("no office-document relationship");
    opc::Part* part = package->GetPart(start->GetResolvedTarget());
    if (part == nullptr) throw ImportError("the main part is missing");
    return OpenStream(*part);  // outlives the package
}

std::size_t ReadBytes(IStream& stream, void* bytes, std::size_t wanted) {
    constexpr std::size_t kLargestPiece = 1 << 20;
    std::size_t done = 0;
    while (done < wanted) {
        const auto piece = static_cast<std::uint32_t>(std::min(wanted - done, kLargestPiece));
        std::uint32_t read = 0;
        if (Failed(stream.Read(static_cast<char*>(bytes) + done, piece, &read))) {
            throw ImportError("the part cannot be read");
        }
        if (read == 0) break;
        done += read;
    }
    return done;
}

}  // namespace importer

// Writes the bytes of a part to standard output: ReadPart FILE PART

#include <cstdint>
#include <cstdio>

#include "examples/Arguments.h"
#include "examples/OpenDocument.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/opc/Package.h"

using namespace tarn;

namespace {

// Whether all of it was read.
bool CopyToOutput(opc::Part& part) {
    ComPtr<IStream> stream;
    if (Failed(part.GetStream(stream.Out()))) return false;  // missing, damaged or encrypted
    // All who ask get this one stream: whoever read it before left its position somewhere.
    if (Failed(stream->Seek(0, STREAM_SEEK_SET, nullptr))) return false;

    char piece[16 * 1024];
    std::uint32_t count = 0;
    do {
        if (Failed(stream->Read(piece, sizeof piece, &count))) return false;
        if (std::fwrite(piece, 1, count, stdout) != count) return false;
    } while (count != 0);
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return Usage("ReadPart FILE PART");
    const Library library;
    const Handle<opc::Package> package = OpenPackage(argv[1]);
    if (!package) return 3;
    opc::Part* part = FindPart(*package, argv[2]);
    if (part == nullptr) return 4;
    return CopyToOutput(*part) ? 0 : 5;
}

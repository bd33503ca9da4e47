// tool/model/PartReader.h - the bytes of parts, however many, in bounded memory.
#ifndef VEXPA_TOOL_MODEL_PARTREADER_H_
#define VEXPA_TOOL_MODEL_PARTREADER_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "tool/InputFile.h"
#include "vexpa/opc/Package.h"

namespace vexpa_tool {

// Takes the next piece of a part.
using ByteSink = std::function<void(const char* bytes, std::size_t size)>;

struct PartDigest {
    std::uint64_t size = 0;
    std::string sha256;  // lower-case hexadecimal
};

// A part keeps the bytes it has extracted until its package ends, and archives exist whose
// parts hold gigabytes each. So the parts beyond the first few hundred megabytes are read
// through a package of their own, which is given up again and again.
class PartReader {
public:
    explicit PartReader(InputFile file) : file_(std::move(file)) {}

    // Each is empty, or false, when the part has no stream or the stream ends early.
    bool Read(tarn::opc::Part& part, const ByteSink& sink);
    std::optional<std::uint64_t> Size(tarn::opc::Part& part);
    std::optional<PartDigest> Digest(tarn::opc::Part& part);

private:
    struct OpenStream;
    OpenStream Open(tarn::opc::Part& part);
    tarn::opc::Part* Substitute(tarn::opc::Part& part);

    InputFile file_;
    tarn::Handle<tarn::opc::Package> other_;
    std::uint64_t kept_ = 0;  // bytes in the package that is read through
    bool useOther_ = false;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_PARTREADER_H_

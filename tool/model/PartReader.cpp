#include "tool/model/PartReader.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <algorithm>
#include <array>

#include "tool/model/OpenPackage.h"
#include "tool/run/Interrupt.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/base/Result.h"

namespace vexpa_tool {

namespace opc = tarn::opc;
using tarn::ComPtr;
using tarn::Failed;

namespace {

constexpr std::uint64_t kKeptBytes = 128 << 20;
constexpr std::uint32_t kPiece = 64 << 10;

}  // namespace

// A part's stream, at its start; null when there is none.
struct PartReader::OpenStream {
    ComPtr<IStream> stream;
    std::uint64_t size = 0;
};

opc::Part* PartReader::Substitute(opc::Part& part) {
    if (kept_ >= kKeptBytes) {
        other_ = FindPackage(file_);
        kept_ = 0;
        useOther_ = true;
    }
    if (!useOther_) return &part;
    return other_ ? other_->GetPart(part.GetName()) : nullptr;
}

PartReader::OpenStream PartReader::Open(opc::Part& part) {
    OpenStream open;
    opc::Part* source = Substitute(part);
    if (source == nullptr || Failed(source->GetStream(open.stream.Out()))) return {};
    // The stream may have been read before, and its position is everyone's.
    if (Failed(open.stream->Seek(0, STREAM_SEEK_END, &open.size)) ||
        Failed(open.stream->Seek(0, STREAM_SEEK_SET, nullptr))) {
        return {};
    }
    kept_ += open.size;
    return open;
}

bool PartReader::Read(opc::Part& part, const ByteSink& sink) {
    const OpenStream open = Open(part);
    if (!open.stream) return false;

    std::array<char, kPiece> piece;
    std::uint64_t left = open.size;
    while (left > 0) {
        StopIfInterrupted();
        std::uint32_t read = 0;
        if (Failed(open.stream->Read(piece.data(), kPiece, &read)) || read == 0) return false;
        sink(piece.data(), read);
        left -= std::min<std::uint64_t>(left, read);
    }
    return true;
}

std::optional<std::uint64_t> PartReader::Size(opc::Part& part) {
    const OpenStream open = Open(part);
    return open.stream ? std::optional(open.size) : std::nullopt;
}

std::optional<PartDigest> PartReader::Digest(opc::Part& part) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    std::uint64_t size = 0;
    const bool whole = Read(part, [&](const char* bytes, std::size_t count) {
        hash.addData(bytes, static_cast<int>(count));
        size += count;
    });
    if (!whole) return std::nullopt;
    return PartDigest{size, hash.result().toHex().toStdString()};
}

}  // namespace vexpa_tool

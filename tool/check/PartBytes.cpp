#include "tool/check/PartBytes.h"

#include <algorithm>
#include <array>

#include "tool/check/EntryBytes.h"
#include "tool/model/OpenPackage.h"
#include "tool/text/Unicode.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/base/Result.h"

namespace vexpa_tool {

namespace opc = tarn::opc;
using tarn::ComPtr;
using tarn::Failed;

namespace {

constexpr std::uint64_t kMostParts = 100'000;
constexpr std::uint64_t kMostBytes = 128 << 20;
constexpr std::uint32_t kPiece = 64 << 10;

}  // namespace

opc::Part* PartBytes::Find(const std::string& entry) {
    entry_ = entry;
    const opc::PartUri name(FromUtf8(entry).c_str());
    if (!subject_.Opens()) return subject_.model->GetPart(name);
    if (!package_ || ++keptParts_ > kMostParts || keptBytes_ > kMostBytes) {
        package_ = FindPackage(subject_.file);
        keptParts_ = keptBytes_ = 0;
    }
    return package_ ? package_->GetPart(name) : nullptr;
}

bool PartBytes::Read(opc::Part& part, const std::function<void(std::string_view piece)>& sink) {
    if (!subject_.Opens()) {
        const auto bytes = EntryBytes::Extract(subject_.file.path, entry_);
        if (bytes) sink(bytes->Text());
        return bytes.has_value();
    }
    ComPtr<IStream> stream;
    std::uint64_t left = 0;
    if (Failed(part.GetStream(stream.Out())) || Failed(stream->Seek(0, STREAM_SEEK_END, &left)) ||
        Failed(stream->Seek(0, STREAM_SEEK_SET, nullptr))) {
        return false;
    }
    keptBytes_ += left;
    std::array<char, kPiece> piece;
    while (left > 0) {
        std::uint32_t read = 0;
        if (Failed(stream->Read(piece.data(), kPiece, &read)) || read == 0) return false;
        sink({piece.data(), read});
        left -= std::min<std::uint64_t>(left, read);
    }
    return true;
}

bool PartBytes::IsStorage(opc::Part& part) {
    if (!subject_.Opens()) {
        const auto bytes = EntryBytes::Extract(subject_.file.path, entry_);
        return bytes && bytes->OpenStorage();
    }
    ComPtr<IStorage> storage;
    const ContainerEntry* entry = subject_.Find(entry_);
    if (entry != nullptr) keptBytes_ += entry->size;
    return !Failed(part.GetStorage(storage.Out()));
}

}  // namespace vexpa_tool

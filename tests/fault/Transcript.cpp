#include "tests/fault/Transcript.h"

#include <libdeflate.h>

#include <charconv>

#include "tests/opc/PackageContent.h"
#include "vexpa/base/ComPtr.h"

namespace vexpa_test {

using namespace tarn;

namespace {
constexpr std::size_t kRoom = 64UL * 1024;
}

Transcript::Transcript() {
    text_.reserve(kRoom);
}

void Transcript::SayRelationship(const opc::Relationship* relationship) {
    if (relationship == nullptr) return;
    Say("relationship ", relationship->GetId(), ' ', relationship->GetType(), ' ',
        relationship->GetTypeId(), ' ', relationship->GetTargetMode(), ' ',
        relationship->GetTarget().name, " -> ", relationship->GetResolvedTarget().name, " of ",
        relationship->GetSource().name);
}

void Transcript::SayRelationships(const opc::RelationshipMap& relationships) {
    for (const auto& [id, relationship] : relationships) SayRelationship(relationship);
}

void Transcript::SayPart(const opc::Part* part) {
    if (part == nullptr) return;
    Say("part ", part->GetName().name, " is ", part->GetContentType());
    SayRelationships(part->GetRelationships());
}

void Transcript::SayStream(opc::Part& part) {
    ComPtr<IStream> stream;
    if (part.GetStream(stream.Out()) != S_OK) return;
    stream->Seek(0, STREAM_SEEK_SET, nullptr);
    SayRest("stream", *stream.Get());
}

void Transcript::SayStorage(opc::Part& part) {
    ComPtr<IStorage> storage;
    if (part.GetStorage(storage.Out()) != S_OK) return;
    const std::string lines = DescribeStorage(*storage.Get());
    Append(lines);
}

void Transcript::SayRest(std::string_view what, IStream& stream) {
    char piece[4096];
    std::uint32_t got = 0, sum = 0;
    std::uint64_t size = 0;
    do {
        if (stream.Read(piece, sizeof piece, &got) != S_OK) return;
        sum = libdeflate_crc32(sum, piece, got);
        size += got;
    } while (got != 0);
    Say(what, " of ", size, " bytes, ", sum);
}

void Transcript::SaySet(const xmlfx::XmlRoAttr* set) {
    if (set == nullptr) return;
    Say("set ", set->GetValue(), " of ", set->GetCount());
    for (std::uint32_t i = 0; i < set->GetCount(); ++i) {
        std::uint32_t token = 0;
        const xmlfx::XmlRoAttr* value = set->GetAt(i, &token);
        Say("  ", token, ' ', value->GetValue(), " of ", value->GetCount());
    }
}

void Transcript::Append(std::u16string_view text) {
    for (const char16_t unit : text) text_ += unit < 0x80 ? static_cast<char>(unit) : '?';
}

void Transcript::Append(const unsigned short* text) {
    Append(ViewText(text));
}

void Transcript::AppendNumber(std::uint64_t number) {
    char digits[20];
    text_.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

std::string LineNotIn(const std::string& seen, const std::string& whole) {
    const std::string lines = '\n' + whole;
    for (std::size_t at = 0; at < seen.size();) {
        const std::size_t end = seen.find('\n', at);
        const std::string line = '\n' + seen.substr(at, end - at) + '\n';
        if (lines.find(line) == std::string::npos) return line;
        at = end == std::string::npos ? seen.size() : end + 1;
    }
    return {};
}

}  // namespace vexpa_test

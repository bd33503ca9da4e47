#include "tests/hostile/PackageText.h"

#include <libdeflate.h>

#include <algorithm>
#include <cstdio>
#include <deque>
#include <set>
#include <vector>

#include "tests/hostile/StorageText.h"
#include "tests/opc/PackageFile.h"

namespace vexpa_test {

using namespace tarn;

namespace {

using Lines = std::vector<std::string>;

constexpr std::size_t kLongestText = 48;
constexpr std::size_t kMostLines = 24;

// What is left out in the middle is counted.
std::string Joined(const Lines& lines) {
    const bool isLong = lines.size() > kMostLines;
    const std::size_t head = isLong ? kMostLines / 2 : lines.size();
    const std::size_t tail = isLong ? lines.size() - kMostLines / 2 : lines.size();
    std::string text;
    for (std::size_t i = 0; i < head; ++i) text += lines[i] + "\n";
    if (isLong) text += "(" + std::to_string(tail - head) + " more lines)\n";
    for (std::size_t i = tail; i < lines.size(); ++i) text += lines[i] + "\n";
    return text;
}

std::string TypeText(const opc::Relationship& relationship) {
    const std::u16string known = Text(opc::GetRelationshipTypeUri(relationship.GetTypeId()));
    if (!known.empty()) return NameText(known.substr(known.rfind(u'/') + 1));
    return "type " + NameText(Text(relationship.GetType()));
}

std::string DataText(opc::Part& part) {
    ComPtr<IStream> stream;
    std::string text =
        part.GetStream(stream.Out()) == S_OK ? BytesText(ReadToEnd(*stream.Get())) : "no stream";
    ComPtr<IStorage> storage;
    if (part.GetStorage(storage.Out()) == S_OK) text += " " + StorageText(*storage.Get());
    return text;
}

class PackageWalker {
public:
    explicit PackageWalker(opc::Package& package) : package_(package) {}

    std::string Run() {
        AddRelationships("package", package_.GetRelationships());
        for (; !open_.empty(); open_.pop_front()) AddPart(*open_.front());
        return lines_.empty() ? "opens, empty\n" : Joined(lines_);
    }

private:
    void AddPart(opc::Part& part) {
        const std::string name = NameText(part.GetName().name);
        lines_.push_back(name + ": " + NameText(Text(part.GetContentType())) + " " + DataText(part));
        AddRelationships(name, part.GetRelationships());
    }

    void AddRelationships(const std::string& source, const opc::RelationshipMap& relationships) {
        for (const auto& [id, relationship] : relationships) {
            std::string line = source + ": " + NameText(id) + " " + TypeText(*relationship);
            const opc::PartUri& target = relationship->GetResolvedTarget();
            const bool isExternal = relationship->GetTargetMode() == opc::TargetModeExternal;
            line += (isExternal ? " => " : " -> ") + NameText(target.name);
            if (!isExternal && !Enqueue(target)) line += ", no part";
            lines_.push_back(std::move(line));
        }
    }

    bool Enqueue(const opc::PartUri& name) {
        opc::Part* part = package_.GetPart(name);
        if (part != nullptr && seen_.insert(part).second) open_.push_back(part);
        return part != nullptr;
    }

    opc::Package& package_;
    std::set<opc::Part*> seen_;
    std::deque<opc::Part*> open_;
    Lines lines_;
};

}  // namespace

std::string PackageText(opc::Package& package) {
    return PackageWalker(package).Run();
}

std::string BytesText(std::string_view bytes) {
    const bool isText =
        std::all_of(bytes.begin(), bytes.end(), [](char c) { return c >= ' ' && c <= '~'; });
    if (isText && bytes.size() <= kLongestText) return "\"" + std::string(bytes) + "\"";
    char text[64];
    std::snprintf(text, sizeof text, "%zu bytes, crc %08x", bytes.size(),
                  libdeflate_crc32(0, bytes.data(), bytes.size()));
    return text;
}

std::string NameText(std::u16string_view name) {
    if (name.empty()) return "(empty)";
    constexpr std::size_t kEnd = 12;
    if (name.size() > kLongestText) {
        return NameText(name.substr(0, kEnd)) + "...(" + std::to_string(name.size()) + " units)..." +
               NameText(name.substr(name.size() - kEnd));
    }
    std::string text;
    for (const char16_t unit : name) {
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, "\\u%04X", unsigned{unit});
        text += unit > ' ' && unit <= '~' ? std::string(1, static_cast<char>(unit)) : escaped;
    }
    return text;
}

}  // namespace vexpa_test

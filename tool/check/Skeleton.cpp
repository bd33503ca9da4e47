#include "tool/check/Skeleton.h"

#include <sys/mman.h>
#include <unistd.h>

#include <optional>
#include <string_view>

#include "tool/check/ArchiveWriter.h"
#include "tool/check/EntryBytes.h"
#include "tool/text/Local.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

constexpr std::string_view kContentTypes = "[Content_Types].xml";
constexpr std::string_view kRelationships = "_rels/.rels";
constexpr std::string_view kAddedId = "added by the check, since the last relationship decides";

constexpr std::size_t kLongestName = 0xFFFF;
constexpr std::size_t kMostBytes = 64 << 20;
// The directory of so young a file is kept by nobody: it is read anew for every part.
constexpr std::size_t kMostEntries = 2000;

// Every character by its number: no value can break out of its attribute.
void AppendAttribute(const char* name, std::string_view value, std::string& xml) {
    xml.append(" ").append(name).append("=\"");
    while (!value.empty()) xml += "&#" + std::to_string(static_cast<unsigned>(TakeUtf8(value))) + ";";
    xml += '"';
}

void AppendAttribute(const char* name, const std::optional<std::string>& value, std::string& xml) {
    if (value) AppendAttribute(name, std::string_view(*value), xml);
}

std::string RelationshipsXml(const RelationshipScan& scan) {
    std::string xml = "<Relationships>";
    for (const ScannedRelationship& relationship : scan.relationships) {
        xml += "<Relationship";
        AppendAttribute("Id", relationship.id, xml);
        AppendAttribute("Type", relationship.type, xml);
        AppendAttribute("Target", relationship.target, xml);
        AppendAttribute("TargetMode", relationship.targetMode, xml);
        xml += " _=\"\"/>";  // an element without attributes is no relationship
    }
    xml += "<Relationship";
    AppendAttribute("Id", kAddedId, xml);
    AppendAttribute("Type", kAddedId, xml);
    AppendAttribute("Target", kRelationships, xml);
    return xml + "/></Relationships>";
}

bool IsRead(std::string_view name) {
    return name.ends_with(".rels") || name == kContentTypes;
}

// The name as a pattern that only it matches.
std::string Escaped(std::string_view name) {
    std::string pattern;
    for (const char c : name) {
        if (c == '*' || c == '?' || c == '[' || c == ']' || c == '\\') pattern += '\\';
        pattern += c;
    }
    return pattern;
}

// False when it becomes too large.
bool AddEntry(const std::string& path, const ContainerEntry& entry, ArchiveWriter& archive) {
    if (entry.name.size() > kLongestName) return true;
    if (!IsRead(entry.name)) {
        archive.Add(entry.name, {});
    } else if (entry.size > kMostBytes) {
        return false;
    } else if (const auto bytes = EntryBytes::Extract(path, Escaped(entry.name))) {
        archive.Add(entry.name, bytes->Text());
    } else {
        archive.AddDamaged(entry.name);
    }
    return archive.Size() <= kMostBytes;
}

// Content types that do not parse would stop the library once more, so they are left out.
bool HasSoundContentTypes(const std::string& path) {
    const auto bytes = EntryBytes::Extract(path, Escaped(kContentTypes));
    return bytes && bytes->Parse();
}

std::optional<std::string> MakeArchive(const std::string& path, const Container& container,
                                       const RelationshipScan& relationships) {
    const bool hasTypes = HasSoundContentTypes(path);
    ArchiveWriter archive;
    archive.Add(kRelationships, RelationshipsXml(relationships));
    if (!hasTypes) archive.Add(kContentTypes, "<Types/>");
    for (const ContainerEntry& entry : container.Entries()) {
        const bool isAdded = entry.name == kRelationships || (!hasTypes && entry.name == kContentTypes);
        // Of several entries of a name the library reads the first, also here.
        if (isAdded || container.Find(entry.name) != &entry) continue;
        if (!AddEntry(path, entry, archive)) return std::nullopt;
    }
    return archive.Finish();
}

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

}  // namespace

std::unique_ptr<Skeleton> Skeleton::Make(const std::string& path, const Container& container,
                                         const RelationshipScan& relationships) {
    if (container.Source() != ContainerSource::Directory) return nullptr;
    if (container.EntryCount() > kMostEntries || !container.IsWhole()) return nullptr;
    const std::optional<std::string> archive = MakeArchive(path, container, relationships);
    if (!archive) return nullptr;

    std::unique_ptr<Skeleton> skeleton(new Skeleton);
    skeleton->memory_ = memfd_create("skeleton", MFD_CLOEXEC);
    if (skeleton->memory_ < 0 || !WriteAll(skeleton->memory_, *archive)) return nullptr;
    const std::string memoryPath = "/proc/self/fd/" + std::to_string(skeleton->memory_);
    skeleton->package_ = opc::Package::Open(FromLocal(memoryPath).c_str());
    if (!skeleton->package_) return nullptr;
    return skeleton;
}

Skeleton::~Skeleton() {
    package_.Reset();
    if (memory_ >= 0) close(memory_);
}

bool Skeleton::IsAdded(const opc::Part& part) {
    return part.GetName().name == FromUtf8(kRelationships);
}

bool Skeleton::IsAdded(const opc::Relationship& relationship) {
    return tarn::CopyText(relationship.GetId()) == FromUtf8(kAddedId);
}

}  // namespace vexpa_tool

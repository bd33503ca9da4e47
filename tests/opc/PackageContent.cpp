#include "tests/opc/PackageContent.h"

#include <algorithm>
#include <deque>
#include <memory>
#include <set>
#include <utility>

#include "tests/opc/PackageFile.h"
#include "vexpa/base/ComPtr.h"

namespace vexpa_test {

using namespace tarn;

namespace {

std::string Narrow(std::u16string_view text) {
    std::string narrow;
    for (const char16_t unit : text) {
        if (unit < 0x80) {
            narrow.push_back(static_cast<char>(unit));
        } else {
            narrow += "<" + std::to_string(unit) + ">";
        }
    }
    return narrow;
}

std::string Lines(const opc::RelationshipMap& relationships) {
    std::string lines;
    for (const auto& [id, relationship] : relationships) {
        lines += Narrow(id) + ' ' + Narrow(Text(relationship->GetType())) + ' ' +
                 std::to_string(relationship->GetTypeId()) + ' ' +
                 Narrow(relationship->GetTarget().name) + " -> " +
                 Narrow(relationship->GetResolvedTarget().name) + ' ' +
                 std::to_string(relationship->GetTargetMode()) + '\n';
    }
    return lines;
}

std::optional<std::string> ReadBytes(IStream& stream) {
    std::string bytes;
    char piece[4096];
    std::uint32_t got = 0;
    stream.Seek(0, STREAM_SEEK_SET, nullptr);
    do {
        if (stream.Read(piece, sizeof piece, &got) != S_OK) return std::nullopt;
        bytes.append(piece, got);
    } while (got != 0);
    return bytes;
}

PartContent ReadPart(opc::Part& part) {
    PartContent content;
    content.contentType = Narrow(Text(part.GetContentType()));
    content.relationships = Lines(part.GetRelationships());
    ComPtr<IStream> stream;
    if (part.GetStream(stream.Out()) == S_OK) content.stream = ReadBytes(*stream.Get());
    ComPtr<IStorage> storage;
    if (part.GetStorage(storage.Out()) == S_OK) content.storage = DescribeStorage(*storage.Get());
    return content;
}

struct FreeTaskMemory {
    void operator()(char16_t* text) const { _XCoTaskMemFree(text); }
};

struct Element {
    std::u16string name;
    bool isStorage;
    std::uint64_t size;
};

std::vector<Element> ElementsOf(IStorage& storage) {
    std::vector<Element> elements;
    ComPtr<IEnumSTATSTG> enumerator;
    if (storage.EnumElements(0, nullptr, 0, enumerator.Out()) != S_OK) return elements;
    for (STATSTG stat{}; enumerator->Next(1, &stat, nullptr) == S_OK;) {
        const std::unique_ptr<char16_t, FreeTaskMemory> name(stat.pwcsName);
        elements.push_back(
            {name == nullptr ? u"" : name.get(), stat.type == STGTY_STORAGE, stat.cbSize});
    }
    return elements;
}

// `where` when no version has what was seen there.
template <class Field>
std::string Wrong(const std::string& where, const Field& seen, const std::vector<Field>& versions) {
    const bool isAVersion = std::find(versions.begin(), versions.end(), seen) != versions.end();
    return isAVersion ? "" : where + '\n';
}

template <class Field>
std::string WrongUnlessMissing(const std::string& where, const Field& seen,
                               const std::vector<Field>& versions) {
    return seen == Field() ? "" : Wrong(where, seen, versions);
}

std::string WrongPart(const std::string& name, const PartContent& seen,
                      const std::vector<const PackageContent*>& versions) {
    std::vector<std::string> contentTypes, relationships;
    std::vector<std::optional<std::string>> streams, storages;
    for (const PackageContent* version : versions) {
        const auto part = version->parts.find(name);
        if (part == version->parts.end()) continue;
        contentTypes.push_back(part->second.contentType);
        relationships.push_back(part->second.relationships);
        streams.push_back(part->second.stream);
        storages.push_back(part->second.storage);
    }
    if (streams.empty()) return "a part that there is not: " + name + '\n';
    // The content type is never missing: without the part that has it nothing opens.
    return Wrong("content type of " + name, seen.contentType, contentTypes) +
           WrongUnlessMissing("relationships of " + name, seen.relationships, relationships) +
           WrongUnlessMissing("stream of " + name, seen.stream, streams) +
           WrongUnlessMissing("storage of " + name, seen.storage, storages);
}

}  // namespace

std::string DescribeStorage(IStorage& storage) {
    std::string lines;
    std::set<std::string> names;
    std::deque<std::pair<std::string, ComPtr<IStorage>>> open;
    const auto describe = [&](const std::string& path, IStorage& current) {
        for (const Element& element : ElementsOf(current)) {
            const std::string name = path + '/' + Narrow(element.name);
            if (!names.insert(name).second) continue;
            const std::string line = name + ' ' + std::to_string(element.size) + ' ';
            ComPtr<IStorage> inner;
            ComPtr<IStream> stream;
            if (element.isStorage) {
                if (current.OpenStorage(element.name.c_str(), nullptr, 0, nullptr, 0, inner.Out()) !=
                    S_OK)
                    continue;
                lines += line + "storage\n";
                open.emplace_back(name, std::move(inner));
            } else if (current.OpenStream(element.name.c_str(), nullptr, 0, 0, stream.Out()) == S_OK) {
                if (const auto bytes = ReadBytes(*stream.Get())) lines += line + *bytes + '\n';
            }
        }
    };
    describe("", storage);
    for (; !open.empty(); open.pop_front()) describe(open.front().first, *open.front().second.Get());
    return lines;
}

PackageContent ReadContent(opc::Package& package) {
    PackageContent content;
    content.relationships = Lines(package.GetRelationships());
    std::set<const opc::Part*> seen;
    std::deque<const opc::RelationshipMap*> open{&package.GetRelationships()};
    for (; !open.empty(); open.pop_front()) {
        for (const auto& entry : *open.front()) {
            if (entry.second->GetTargetMode() == opc::TargetModeExternal) continue;
            opc::Part* part = package.GetPart(entry.second->GetResolvedTarget());
            if (part == nullptr || !seen.insert(part).second) continue;
            content.parts.emplace(Narrow(part->GetName().name), ReadPart(*part));
            open.push_back(&part->GetRelationships());
        }
    }
    return content;
}

std::optional<PackageContent> ReadPackage(const std::u16string& path) {
    const Handle<opc::Package> package = opc::Package::Open(path.c_str());
    if (!package) return std::nullopt;
    return ReadContent(*package);
}

std::string WrongContent(const PackageContent& seen,
                         const std::vector<const PackageContent*>& versions) {
    std::vector<std::string> relationships;
    for (const PackageContent* version : versions) relationships.push_back(version->relationships);
    std::string wrong = Wrong("relationships of the package", seen.relationships, relationships);
    for (const auto& [name, part] : seen.parts) wrong += WrongPart(name, part, versions);
    return wrong;
}

}  // namespace vexpa_test

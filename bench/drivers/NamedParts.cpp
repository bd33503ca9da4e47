#include "bench/drivers/NamedParts.h"

namespace vexpa_bench {

std::string ResolvedTarget(std::string_view source, std::string_view target) {
    if (target.starts_with('/')) return std::string(target.substr(1));
    const std::size_t folderEnd = source.rfind('/');
    std::string name(folderEnd == source.npos ? std::string_view() : source.substr(0, folderEnd));
    while (true) {
        if (target.starts_with("../")) {
            const std::size_t cut = name.rfind('/');
            name.erase(cut == name.npos ? 0 : cut);
            target.remove_prefix(3);
        } else if (target.starts_with("./")) {
            target.remove_prefix(2);
        } else {
            break;
        }
    }
    if (!name.empty()) name += '/';
    return name += target;
}

std::string RelationshipsOf(std::string_view part) {
    const std::size_t folderEnd = part.rfind('/') + 1;  // 0 when there is no folder
    std::string name(part.substr(0, folderEnd));
    return name.append("_rels/").append(part.substr(folderEnd)).append(".rels");
}

void ContentTypes::Add(const Element& element) {
    if (element.name == "Override") {
        std::string_view part = element.attribute("PartName");
        if (part.starts_with('/')) part.remove_prefix(1);
        overrides_.emplace(part, element.attribute("ContentType"));
    } else if (element.name == "Default") {
        defaults_.emplace(element.attribute("Extension"), element.attribute("ContentType"));
    }
}

const std::string* ContentTypes::Find(const std::string& part) const {
    if (const auto found = overrides_.find(part); found != overrides_.end()) return &found->second;
    const auto found = defaults_.find(part.substr(part.rfind('.') + 1));
    return found == defaults_.end() ? nullptr : &found->second;
}

}  // namespace vexpa_bench

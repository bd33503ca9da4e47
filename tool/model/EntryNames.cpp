#include "tool/model/EntryNames.h"

#include <cstdint>
#include <string_view>
#include <unordered_set>

#include "tool/text/Local.h"
#include "vexpa/base/Result.h"
#include "vexpa/platform/Runtime.h"

namespace vexpa_tool {

std::vector<std::u16string> EntryNames(const InputFile& file) {
    const std::u16string path = FromLocal(file.path);
    std::int32_t count = 0;
    if (tarn::Failed(_XGetZipFileCount(path.c_str(), &count)) || count <= 0) return {};
    std::vector<const char16_t*> names(static_cast<std::size_t>(count));
    if (tarn::Failed(_XGetZipFileList(path.c_str(), names.data(), count))) return {};
    return {names.begin(), names.end()};
}

std::vector<std::u16string> PartNames(const InputFile& file) {
    std::vector<std::u16string> names;
    std::unordered_set<std::u16string> seen;
    for (std::u16string& name : EntryNames(file)) {
        if (!name.empty() && !name.ends_with(u'/') && seen.insert(name).second) {
            names.push_back(std::move(name));
        }
    }
    return names;
}

bool IsPackageEntry(const std::u16string& name) {
    constexpr std::u16string_view kFolder = u"_rels/";
    if (name == u"[Content_Types].xml") return true;
    if (!name.ends_with(u".rels")) return false;
    const std::size_t folder = name.rfind(u'/') + 1;  // 0 without one
    return name.substr(0, folder).ends_with(kFolder);
}

}  // namespace vexpa_tool

// tool/model/ContentTypeRules.h - which rule of [Content_Types].xml gives a part its content type.
#ifndef VEXPA_TOOL_MODEL_CONTENTTYPERULES_H_
#define VEXPA_TOOL_MODEL_CONTENTTYPERULES_H_

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tool/InputFile.h"
#include "vexpa/opc/Package.h"

namespace vexpa_tool {

struct ContentTypeRule {
    bool isOverride;
    std::u16string key;  // the part name or the extension, as written
    std::u16string contentType;
    bool isRepeated = false;    // an earlier rule has the same key, so this one never counts
    std::size_t partCount = 0;  // to which it gives their type
};

// The library tells a part's type, not where it comes from. So the rules are read once more,
// and looked up in its order: an Override of exactly the name, then a Default of exactly the
// extension.
class ContentTypeRules {
public:
    // Of an open package. Throws a ToolError when the stream of rules cannot be read again.
    ContentTypeRules(tarn::opc::Package& package, const InputFile& file);

    const std::vector<ContentTypeRule>& Rules() const noexcept { return rules_; }

    // [borrowed] The rule for the part of this name, or null.
    ContentTypeRule* Find(std::u16string_view name);

private:
    using Keys = std::map<std::u16string, std::size_t, std::less<>>;
    void Add(bool isOverride, std::u16string key, std::u16string contentType);

    std::vector<ContentTypeRule> rules_;  // Overrides after Defaults
    Keys overrides_;
    Keys defaults_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_CONTENTTYPERULES_H_

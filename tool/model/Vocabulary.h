// tool/model/Vocabulary.h - the library's namespace maps, from start to end.
#ifndef VEXPA_TOOL_MODEL_VOCABULARY_H_
#define VEXPA_TOOL_MODEL_VOCABULARY_H_

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "vexpa/xmlfx/XmlMapper.h"

namespace vexpa_tool {

// The maps are filled while the object lives. Only the commands that need them pay for that.
class Vocabulary {
public:
    Vocabulary();
    ~Vocabulary();
    Vocabulary(const Vocabulary&) = delete;
    Vocabulary& operator=(const Vocabulary&) = delete;

    // The number of names in a namespace; 0 when it is not known.
    std::size_t CountNames(std::u16string_view uri) const;

    std::optional<std::uint32_t> FindToken(std::u16string_view uri, std::u16string_view name) const;

    // Every namespace and name that this token is given to.
    std::vector<std::pair<std::u16string_view, std::u16string_view>> NamesOf(std::uint32_t token) const;

    // [borrowed] What a token stands for, or null.
    const tarn::xmlfx::NameInfo* FindName(std::uint32_t token) const;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_VOCABULARY_H_

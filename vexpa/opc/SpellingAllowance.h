// vexpa/opc/SpellingAllowance.h - under how many names an entry may be a part.
#ifndef VEXPA_OPC_SPELLINGALLOWANCE_H_
#define VEXPA_OPC_SPELLINGALLOWANCE_H_

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarn::opc {

// Part names keep their backslashes and entries have slashes, so a name with twenty separators can
// be spelled in a million ways, each a part with bytes and relationships of its own. Sound
// packages spell a name in one way, or in two.
class SpellingAllowance {
public:
    static constexpr std::uint8_t kMost = 16;

    // Whether one more spelling with backslashes may stand for the entry with this index.
    // Throws when memory is exhausted.
    bool Take(std::size_t entry) {
        if (entry >= taken_.size()) taken_.resize(entry + 1);
        if (taken_[entry] == kMost) return false;
        ++taken_[entry];
        return true;
    }

private:
    std::vector<std::uint8_t> taken_;  // by entry
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_SPELLINGALLOWANCE_H_

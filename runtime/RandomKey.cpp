#include "runtime/RandomKey.h"

#include <random>

namespace vexpa_runtime {

const RandomKey& ProcessKey() {
    static const RandomKey key = [] {
        std::random_device random;
        const auto word = [&random] { return std::uint64_t{random()} << 32 | random(); };
        return RandomKey{word(), word()};
    }();
    return key;
}

}  // namespace vexpa_runtime

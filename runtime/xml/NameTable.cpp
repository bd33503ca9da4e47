#include "runtime/xml/NameTable.h"

#include <algorithm>

#include "runtime/RandomKey.h"

namespace vexpa_runtime {

namespace {

constexpr std::uint64_t kPrime = (std::uint64_t{1} << 61) - 1;

__extension__ using Wide = unsigned __int128;

std::uint64_t Reduce(Wide value) {
    const auto folded =
        static_cast<std::uint64_t>(value & kPrime) + static_cast<std::uint64_t>(value >> 61);
    return folded >= kPrime ? folded - kPrime : folded;
}

std::uint64_t RandomPoint() {
    constexpr std::uint64_t kUnits = 1 << 16;  // a point is none of these
    return kUnits + ProcessKey().k0 % (kPrime - kUnits);
}

}  // namespace

NameHash::NameHash() : point_(RandomPoint()) {}

// The name as a polynomial, evaluated at the random point: two names of n units meet with
// a chance of n / 2^61, whatever they are.
std::size_t NameHash::operator()(std::u16string_view name) const {
    std::uint64_t hash = name.size();
    for (const char16_t unit : name) hash = Reduce(Wide{hash} * point_ + unit + 1);
    return hash;
}

std::uint32_t NameTable::Intern(std::u16string_view name) {
    const std::uint32_t known = Find(name);
    if (known != kUnknown) return known;

    // By doubling it would leave its earlier selves in the block.
    if (names_.empty()) names_.reserve(kFew);
    char16_t* copy = text_->Allocate(name.size());
    std::copy(name.begin(), name.end(), copy);
    const auto number = static_cast<std::uint32_t>(names_.size());
    names_.emplace_back(copy, name.size());
    if (number == kFew) {
        for (std::uint32_t i = 0; i < number; ++i) numbers_.emplace(names_[i], i);
    }
    if (number >= kFew) numbers_.emplace(names_.back(), number);
    return number;
}

std::uint32_t NameTable::Find(std::u16string_view name) const {
    if (names_.size() <= kFew) {
        const auto known = std::find(names_.begin(), names_.end(), name);
        return known == names_.end() ? kUnknown : static_cast<std::uint32_t>(known - names_.begin());
    }
    const auto known = numbers_.find(name);
    return known == numbers_.end() ? kUnknown : known->second;
}

}  // namespace vexpa_runtime

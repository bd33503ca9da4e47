#include "runtime/xml/NameTable.h"

#include <algorithm>
#include <random>

namespace vexpa_runtime {

namespace {

constexpr std::uint64_t kPrime = (std::uint64_t{1} << 61) - 1;

__extension__ using Wide = unsigned __int128;

std::uint64_t Reduce(Wide value) {
    const auto folded =
        static_cast<std::uint64_t>(value & kPrime) + static_cast<std::uint64_t>(value >> 61);
    return folded >= kPrime ? folded - kPrime : folded;
}

// One for the process: asking the system costs more than a small document.
std::uint64_t RandomPoint() {
    static const std::uint64_t point = [] {
        std::random_device source;
        return std::uniform_int_distribution<std::uint64_t>(1 << 16, kPrime - 1)(source);
    }();
    return point;
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
    const auto known = numbers_.find(name);
    if (known != numbers_.end()) return known->second;

    char16_t* copy = text_->Allocate(name.size());
    std::copy(name.begin(), name.end(), copy);
    const auto number = static_cast<std::uint32_t>(numbers_.size());
    names_.emplace_back(copy, name.size());
    numbers_.emplace(names_.back(), number);
    return number;
}

std::uint32_t NameTable::Find(std::u16string_view name) const {
    const auto known = numbers_.find(name);
    return known == numbers_.end() ? kUnknown : known->second;
}

}  // namespace vexpa_runtime

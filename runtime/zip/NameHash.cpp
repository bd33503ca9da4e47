#include "runtime/zip/NameHash.h"

#include <bit>
#include <cstddef>

#include "runtime/zip/LittleEndian.h"

namespace vexpa_runtime::zip {

namespace {

struct SipState {
    std::uint64_t v0, v1, v2, v3;

    void Round() noexcept {
        v0 += v1;
        v2 += v3;
        v1 = std::rotl(v1, 13) ^ v0;
        v3 = std::rotl(v3, 16) ^ v2;
        v0 = std::rotl(v0, 32);
        v2 += v1;
        v0 += v3;
        v1 = std::rotl(v1, 17) ^ v2;
        v3 = std::rotl(v3, 21) ^ v0;
        v2 = std::rotl(v2, 32);
    }

    void Take(std::uint64_t word) noexcept {
        v3 ^= word;
        Round();
        v0 ^= word;
    }
};

// The bytes after the last whole word, with the length's low byte on top.
std::uint64_t LastWord(const std::uint8_t* rest, std::size_t size) noexcept {
    std::uint64_t word = static_cast<std::uint64_t>(size) << 56;
    for (std::size_t i = 0; i < size % 8; ++i) word |= static_cast<std::uint64_t>(rest[i]) << (8 * i);
    return word;
}

}  // namespace

std::uint64_t HashName(std::string_view name, const RandomKey& key) noexcept {
    SipState state{key.k0 ^ 0x736f6d6570736575, key.k1 ^ 0x646f72616e646f6d,
                   key.k0 ^ 0x6c7967656e657261, key.k1 ^ 0x7465646279746573};
    const auto* at = reinterpret_cast<const std::uint8_t*>(name.data());
    for (std::size_t words = name.size() / 8; words > 0; --words, at += 8) state.Take(Le64(at));
    state.Take(LastWord(at, name.size()));
    state.v2 ^= 0xFF;
    for (int i = 0; i < 3; ++i) state.Round();
    return state.v0 ^ state.v1 ^ state.v2 ^ state.v3;
}

}  // namespace vexpa_runtime::zip

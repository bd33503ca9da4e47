// tests/hostile/memory/Bombs.h - small packages that would unpack to a thousand times more.
#ifndef VEXPA_TESTS_HOSTILE_MEMORY_BOMBS_H_
#define VEXPA_TESTS_HOSTILE_MEMORY_BOMBS_H_

#include <cstddef>
#include <string>

namespace vexpa_test {

struct Bomb {
    std::string bytes;
    std::size_t parts;       // that the package is related to
    std::size_t partSize;    // of the largest
    std::size_t compressed;  // bytes that it is deflated to
};

// Entries that all begin at the one local header and deflated block there is.
Bomb OverlapBomb(std::size_t parts, std::size_t partSize);

// Entries each of which has the headers of the ones behind it for its first bytes, in stored
// blocks of the deflate format, and runs on to the end of the last one's block.
Bomb QuotedOverlapBomb(std::size_t parts, std::size_t partSize);

// Entries whose local headers count those behind them as their extra data.
Bomb ExtraFieldBomb(std::size_t parts, std::size_t partSize);

// One entry, and nothing wrong with it.
Bomb LargePart(std::size_t partSize);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_HOSTILE_MEMORY_BOMBS_H_

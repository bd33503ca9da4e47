// Changes a package part by part: what a plain change of bytes makes ends at the first
// check sum, and never reaches the readers behind it.
#include <algorithm>
#include <cstring>
#include <optional>
#include <random>
#include <string>
#include <utility>

#include "fuzz/FuzzTarget.h"
#include "fuzz/ReadZip.h"

extern "C" {
// libFuzzer's own: changes the bytes in place and answers their new size.
std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);
std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                    unsigned int seed);
std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* data1, std::size_t size1,
                                      const std::uint8_t* data2, std::size_t size2, std::uint8_t* out,
                                      std::size_t maxSize, unsigned int seed);
}

namespace {

using vexpa_fuzz::Bytes;
using vexpa_test::ZipEntry;
using vexpa_test::ZipFile;

void Mutate(std::string& text) {
    constexpr std::size_t kGrowth = 256;
    const std::size_t size = text.size();
    text.resize(size + kGrowth);
    auto* data = reinterpret_cast<std::uint8_t*>(text.data());
    text.resize(LLVMFuzzerMutate(data, size, text.size()));
}

void ChangeOneEntry(ZipFile& zip, std::minstd_rand& random) {
    const std::size_t at = random() % zip.entries.size();
    ZipEntry& entry = zip.entries[at];
    // Whatever is changed is packed anew; the others go back as they came.
    entry.rawData.reset();
    switch (random() % 16) {
        case 0:
            Mutate(entry.name);
            break;
        case 1:
            entry.stored = !entry.stored;
            break;
        case 2:
            std::swap(entry, zip.entries[random() % zip.entries.size()]);
            break;
        case 3:
            zip.entries.push_back(ZipEntry(entry));
            break;
        case 4:
            zip.entries.erase(zip.entries.begin() + static_cast<std::ptrdiff_t>(at));
            break;
        case 5:
            entry.content = zip.entries[random() % zip.entries.size()].content;
            break;
        default:
            Mutate(entry.content);
            break;
    }
    // A length in a header has 16 bits.
    for (ZipEntry& each : zip.entries)
        each.name.resize(std::min<std::size_t>(each.name.size(), 0xFFFF));
}

// 0 when it does not fit, which tells the fuzzer to try something else.
std::size_t Store(const ZipFile& zip, std::uint8_t* out, std::size_t maxSize) {
    const std::string bytes = zip.Bytes();
    if (bytes.size() > maxSize) return 0;
    std::memcpy(out, bytes.data(), bytes.size());
    return bytes.size();
}

}  // namespace

std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                    unsigned int seed) {
    std::minstd_rand random(seed);
    std::optional<ZipFile> zip = vexpa_fuzz::ReadZip(Bytes(data, size));
    // The archive itself is fuzzed now and then, most often by a target of its own.
    if (!zip || zip->entries.empty() || random() % 16 == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    ChangeOneEntry(*zip, random);
    const std::size_t written = Store(*zip, data, maxSize);
    return written != 0 ? written : size;
}

// A part of the second package replaces, or joins, those of the first.
std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* data1, std::size_t size1,
                                      const std::uint8_t* data2, std::size_t size2, std::uint8_t* out,
                                      std::size_t maxSize, unsigned int seed) {
    std::minstd_rand random(seed);
    std::optional<ZipFile> zip = vexpa_fuzz::ReadZip(Bytes(data1, size1));
    const std::optional<ZipFile> other = vexpa_fuzz::ReadZip(Bytes(data2, size2));
    if (!zip || !other || other->entries.empty()) return 0;
    const ZipEntry& entry = other->entries[random() % other->entries.size()];
    const auto same = std::find_if(zip->entries.begin(), zip->entries.end(),
                                   [&](const ZipEntry& each) { return each.name == entry.name; });
    if (same != zip->entries.end()) {
        *same = entry;
    } else {
        zip->entries.push_back(entry);
    }
    return Store(*zip, out, maxSize);
}

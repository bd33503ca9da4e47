#include "tests/growth/Work.h"

#include <expat.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <libdeflate.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdarg>
#include <cstring>
#include <ctime>

#include "tests/support/HeapMeter.h"

namespace {

std::uint64_t edges = 0;
std::uint64_t bytes = 0;

long hoursAhead = 1;

constexpr std::uint64_t kSystemCall = 64;  // as expensive as going over so many bytes

}  // namespace

// The linker leads the product's calls of these through here.
extern "C" {

void __sanitizer_cov_trace_pc() {
    ++edges;
}

void* __real_memcpy(void* to, const void* from, std::size_t size);
void* __wrap_memcpy(void* to, const void* from, std::size_t size) {
    bytes += size;
    return __real_memcpy(to, from, size);
}

void* __real_memmove(void* to, const void* from, std::size_t size);
void* __wrap_memmove(void* to, const void* from, std::size_t size) {
    bytes += size;
    return __real_memmove(to, from, size);
}

void* __real_memset(void* to, int value, std::size_t size);
void* __wrap_memset(void* to, int value, std::size_t size) {
    bytes += size;
    return __real_memset(to, value, size);
}

int __real_memcmp(const void* a, const void* b, std::size_t size);
int __wrap_memcmp(const void* a, const void* b, std::size_t size) {
    bytes += size;
    return __real_memcmp(a, b, size);
}

std::size_t __real_strlen(const char* text);
std::size_t __wrap_strlen(const char* text) {
    const std::size_t length = __real_strlen(text);
    bytes += length;
    return length;
}

int __real_open(const char* path, int flags, ...);
int __wrap_open(const char* path, int flags, ...) {
    bytes += kSystemCall;
    return __real_open(path, flags);  // the product never creates a file
}

int __real_stat(const char* path, struct stat* status);
int __wrap_stat(const char* path, struct stat* status) {
    bytes += kSystemCall;
    return __real_stat(path, status);
}

ssize_t __real_pread(int file, void* to, std::size_t size, off_t position);
ssize_t __wrap_pread(int file, void* to, std::size_t size, off_t position) {
    bytes += kSystemCall + size;
    return __real_pread(file, to, size, position);
}

// Files have settled, or they have not; how fast the program runs must not matter.
int __real_clock_gettime(clockid_t clock, timespec* time);
int __wrap_clock_gettime(clockid_t clock, timespec* time) {
    constexpr std::int64_t kStep = 10'000'000, kSecond = 1'000'000'000;
    static std::int64_t steady = 0;
    if (clock == CLOCK_MONOTONIC) {
        steady += kStep;
        *time = {steady / kSecond, steady % kSecond};
        return 0;
    }
    const int result = __real_clock_gettime(clock, time);
    if (clock == CLOCK_REALTIME) time->tv_sec += hoursAhead * 3'600;
    return result;
}

libdeflate_result __real_libdeflate_deflate_decompress(libdeflate_decompressor* decompressor,
                                                       const void* in, std::size_t inSize, void* out,
                                                       std::size_t outSize, std::size_t* actual);
libdeflate_result __wrap_libdeflate_deflate_decompress(libdeflate_decompressor* decompressor,
                                                       const void* in, std::size_t inSize, void* out,
                                                       std::size_t outSize, std::size_t* actual) {
    bytes += inSize + outSize;
    return __real_libdeflate_deflate_decompress(decompressor, in, inSize, out, outSize, actual);
}

std::uint32_t __real_libdeflate_crc32(std::uint32_t crc, const void* in, std::size_t size);
std::uint32_t __wrap_libdeflate_crc32(std::uint32_t crc, const void* in, std::size_t size) {
    bytes += size;
    return __real_libdeflate_crc32(crc, in, size);
}

// An unfinished token may be gone over from its start with every piece of it.
XML_Status __real_XML_ParseBuffer(XML_Parser parser, int size, int isLast);
XML_Status __wrap_XML_ParseBuffer(XML_Parser parser, int size, int isLast) {
    static XML_Index fed = 0, unfinished = 0;
    bytes += static_cast<std::uint64_t>(unfinished + size);
    const XML_Status status = __real_XML_ParseBuffer(parser, size, isLast);
    const XML_Index at = std::max<XML_Index>(XML_GetCurrentByteIndex(parser), 0);
    fed += size;
    unfinished = fed - at;
    if (isLast != 0 || status != XML_STATUS_OK) unfinished = fed = 0;
    return status;
}

}  // extern "C"

namespace vexpa_test {

namespace {

struct Kind {
    const char* name;
    std::uint64_t Work::*amount;
};
constexpr Kind kKinds[] = {
    {"edges", &Work::edges},
    {"bytes", &Work::bytes},
    {"allocations", &Work::allocations},
    {"allocated bytes", &Work::allocatedBytes},
};

}  // namespace

FilesOfTheFuture::FilesOfTheFuture() {
    hoursAhead = -1;
}
FilesOfTheFuture::~FilesOfTheFuture() {
    hoursAhead = 1;
}

Work Measured(const std::function<void()>& run) {
    const HeapMeter heap;
    const std::uint64_t edgesBefore = edges, bytesBefore = bytes;
    run();
    return {edges - edgesBefore, bytes - bytesBefore, heap.Count(), heap.Bytes()};
}

void ExpectNoFasterGrowthThanSize(std::size_t size, const Making& make) {
    constexpr double kMostGrowth = 5.8;
    constexpr std::uint64_t kUnevenness = 4'096;  // of tables that grow in steps
    make(1)();                                    // what is made once for the process
    const Work none = Measured(make(1));
    const Work small = Measured(make(size));
    const Work large = Measured(make(4 * size));
    EXPECT_GT(large.edges + large.bytes, none.edges + none.bytes + size)
        << "it does not reach the product";
    for (const Kind& kind : kKinds) {
        const auto beyond = [&](const Work& work) {
            const std::uint64_t base = none.*kind.amount;
            return static_cast<double>(std::max(work.*kind.amount, base) - base + kUnevenness);
        };
        EXPECT_LE(beyond(large), kMostGrowth * beyond(small))
            << kind.name << " for sizes 1, " << size << ", " << 4 * size << ": " << none.*kind.amount
            << ", " << small.*kind.amount << ", " << large.*kind.amount;
    }
}

}  // namespace vexpa_test

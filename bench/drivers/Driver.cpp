#include "bench/drivers/Driver.h"

#include <libdeflate.h>

#include <algorithm>
#include <charconv>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>

namespace vexpa_bench {

namespace {

std::int64_t Nanoseconds(clockid_t clock) {
    timespec now;
    clock_gettime(clock, &now);
    return now.tv_sec * 1'000'000'000LL + now.tv_nsec;
}

int Number(const char* text) {
    int number = 0;
    const char* end = text + std::strlen(text);
    const auto [stop, error] = std::from_chars(text, end, number);
    if (error != std::errc() || stop != end || number < 0) {
        throw std::invalid_argument(std::string("not a number: ") + text);
    }
    return number;
}

// The peak that the system keeps for the parent's wait counts the parent as well.
void PrintPeak() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        unsigned long long kib;
        if (std::sscanf(line.c_str(), "VmHWM: %llu kB", &kib) == 1) {
            std::printf("peak %llu\n", kib * 1024);
        }
    }
}

void Time(const char* file, int repetitions, int warmMilliseconds, const Pass& pass) {
    Tally checked(true);
    pass(file, checked);
    checked.Print();

    const std::int64_t warm = Nanoseconds(CLOCK_MONOTONIC) + warmMilliseconds * 1'000'000LL;
    while (Nanoseconds(CLOCK_MONOTONIC) < warm) {
        Tally tally(false);
        pass(file, tally);
    }
    for (int i = 0; i < repetitions; ++i) {
        Tally tally(false);
        const std::int64_t start = Nanoseconds(CLOCK_MONOTONIC);
        const std::int64_t processorStart = Nanoseconds(CLOCK_PROCESS_CPUTIME_ID);
        pass(file, tally);
        const std::int64_t processorEnd = Nanoseconds(CLOCK_PROCESS_CPUTIME_ID);
        const std::int64_t end = Nanoseconds(CLOCK_MONOTONIC);
        std::printf("ns %" PRId64 " %" PRId64 "\n", end - start, processorEnd - processorStart);
    }
}

}  // namespace

void Tally::BeginPart() {
    partSize_ = 0;
    partCrc_ = 0;
}

void Tally::AddPiece(const void* bytes, std::size_t size) {
    partSize_ += size;
    if (checking_) partCrc_ = libdeflate_crc32(partCrc_, bytes, size);
}

void Tally::EndPart() {
    ++parts_;
    bytes_ += partSize_;
    largest_ = std::max(largest_, partSize_);
    checksum_ += partCrc_;
}

void Tally::Print() const {
    std::printf("work parts=%" PRIu64 " bytes=%" PRIu64 " largest=%" PRIu64 " relationships=%" PRIu64
                " checksum=%" PRIu64 "\n",
                parts_, bytes_, largest_, relationships_, checksum_);
}

int RunDriver(int argc, char** argv, const Pass& pass) {
    try {
        if (argc < 3 || argc > 4) throw std::invalid_argument("FILE REPETITIONS [WARM_MS]");
        const int repetitions = Number(argv[2]);
        if (repetitions == 0) {
            Tally tally(false);
            pass(argv[1], tally);
            tally.Print();
            PrintPeak();
        } else {
            Time(argv[1], repetitions, argc == 4 ? Number(argv[3]) : 0, pass);
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
}

}  // namespace vexpa_bench

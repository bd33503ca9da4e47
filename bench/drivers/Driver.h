// bench/drivers/Driver.h - what every driver does around its task, so that all do the same.
//
//     DRIVER FILE REPETITIONS [WARM_MS]
//
// The task: open the package, walk every relationship, read every part's bytes, hold them
// until the end. The first pass is not timed; it prints what was done:
//
//     work parts=12 bytes=34567 largest=9876 relationships=17 checksum=123456789
//
// Then passes go untimed until WARM_MS milliseconds are over, and each of the REPETITIONS
// prints its time and the processor time that it took: `ns 1234567 1200000`. With 0
// repetitions there is one pass without a checksum, for timing a whole process from outside;
// after it comes the process's peak of memory, as `peak 12345678`, from drivers that know it.
#ifndef VEXPA_BENCH_DRIVERS_DRIVER_H_
#define VEXPA_BENCH_DRIVERS_DRIVER_H_

#include <cstddef>
#include <cstdint>
#include <functional>

namespace vexpa_bench {

// Counts what a pass reads. The checksum, the sum of the parts' CRC-32, does not depend on
// the order in which a peer walks; it is taken only in the first pass.
class Tally {
public:
    explicit Tally(bool checking) : checking_(checking) {}

    void AddRelationship() { ++relationships_; }
    void AddPart(const void* bytes, std::size_t size) {
        BeginPart();
        AddPiece(bytes, size);
        EndPart();
    }

    // A part whose bytes come in pieces.
    void BeginPart();
    void AddPiece(const void* bytes, std::size_t size);
    void EndPart();

    void Print() const;

private:
    bool checking_;
    std::uint64_t parts_ = 0;
    std::uint64_t bytes_ = 0;
    std::uint64_t largest_ = 0;
    std::uint64_t relationships_ = 0;
    std::uint64_t checksum_ = 0;
    std::uint64_t partSize_ = 0;
    std::uint32_t partCrc_ = 0;
};

// Does the task once and has released everything when it returns; throws when it cannot.
using Pass = std::function<void(const char* file, Tally& tally)>;

// The whole of a driver's main.
int RunDriver(int argc, char** argv, const Pass& pass);

}  // namespace vexpa_bench

#endif  // VEXPA_BENCH_DRIVERS_DRIVER_H_

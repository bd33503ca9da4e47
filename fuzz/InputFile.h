// fuzz/InputFile.h - an input as a file, written just now or long ago.
#ifndef VEXPA_FUZZ_INPUTFILE_H_
#define VEXPA_FUZZ_INPUTFILE_H_

#include <cstddef>
#include <optional>
#include <string_view>

#include "fuzz/MemoryFile.h"
#include "tests/support/OldFiles.h"

namespace vexpa_fuzz {

// Of most files something is kept from one call to the next: the whole file, or where it is too
// large, its directory and a piece of it. One that another program may still be writing to is read
// twice instead. Which of these an input is, its size says.
class InputFile : public MemoryFile {
public:
    explicit InputFile(std::string_view bytes)
        : MemoryFile(bytes, bytes.size() % 4 == 1 ? kTooLargeToKeep : 0) {
        if (bytes.size() % 4 != 0) old_.emplace();
    }

private:
    static constexpr std::size_t kTooLargeToKeep = 9UL << 20;

    std::optional<vexpa_test::OldFiles> old_;
};

}  // namespace vexpa_fuzz

#endif  // VEXPA_FUZZ_INPUTFILE_H_

// fuzz/FuzzTarget.h - what every fuzz target is made with.
#ifndef VEXPA_FUZZ_FUZZTARGET_H_
#define VEXPA_FUZZ_FUZZTARGET_H_

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" {
// Once for each process: the locale, and the library's own start.
int LLVMFuzzerInitialize(int* argc, char*** argv);
// One run over one input. Always 0.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
}

namespace vexpa_fuzz {

// Stops the run, so that the input is kept, when a promise of the library is broken.
inline void Require(bool holds, const char* promise) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", promise);
    std::abort();
}

inline std::string_view Bytes(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// Takes an input apart line by line: seeds stay readable, and words of a dictionary fit in.
class Lines {
public:
    explicit Lines(std::string_view bytes) : rest_(bytes) {}

    bool AtEnd() const { return rest_.empty(); }
    std::string_view Rest() const { return rest_; }

    std::string_view Next() {
        const std::size_t end = rest_.find('\n');
        const std::string_view line = rest_.substr(0, end);
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
        return line;
    }

private:
    std::string_view rest_;
};

// A unit for each byte; 0xFF and two bytes make any unit, so that every text can come up.
inline std::u16string Units(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = [bytes](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
        if (byte(i) == 0xFF && i + 2 < bytes.size()) {
            text.push_back(static_cast<char16_t>(byte(i + 1) | byte(i + 2) << 8));
            i += 2;
        } else {
            text.push_back(byte(i));
        }
    }
    return text;
}

}  // namespace vexpa_fuzz

#endif  // VEXPA_FUZZ_FUZZTARGET_H_

#include "tests/damage/ZipAnatomy.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <stdexcept>

namespace vexpa_test {

namespace {

using Widths = std::initializer_list<std::size_t>;

constexpr std::size_t kLocalHeader = 30;  // sizes of the fixed parts, APPNOTE 4.3
constexpr std::size_t kDirectoryHeader = 46;
constexpr std::uint64_t kAllOnes32 = 0xFFFFFFFF;

class Dissection {
public:
    Dissection(const std::string& zip, std::size_t prefix)
        : zip_(zip), prefix_(prefix), anatomy_{std::vector<bool>(zip.size()), {}} {}

    ZipAnatomy Run() {
        std::size_t at = zip_.find("PK\x01\x02");
        while (Is(at, "PK\x01\x02")) at = Entry(at);
        if (Is(at, "PK\x06\x06")) at = Fields(at, {4, 8, 2, 2, 4, 4, 8, 8, 8, 8});
        if (Is(at, "PK\x06\x07")) at = Fields(at, {4, 4, 8, 4});
        if (!Is(at, "PK\x05\x06")) throw std::runtime_error("no sound archive");
        at = Fields(at, {4, 2, 2, 2, 2, 4, 4, 2});
        Mark(at, zip_.size() - at);  // the comment
        return std::move(anatomy_);
    }

private:
    bool Is(std::size_t at, const char* signature) const {
        return at < zip_.size() && zip_.compare(at, 4, signature) == 0;
    }

    std::uint64_t Number(std::size_t at, std::size_t width) const {
        std::uint64_t number = 0;
        for (std::size_t i = width; i-- > 0;)
            number = number << 8 | static_cast<unsigned char>(zip_.at(at + i));
        return number;
    }

    std::size_t Mark(std::size_t at, std::size_t size) {
        const auto begin = anatomy_.isHeader.begin() + static_cast<std::ptrdiff_t>(at);
        std::fill_n(begin, size, true);
        return at + size;
    }

    std::size_t Fields(std::size_t at, Widths widths) {
        for (const std::size_t width : widths) {
            anatomy_.fields.push_back({at, width});
            at = Mark(at, width);
        }
        return at;
    }

    // A list of id, size and that many bytes; in a zip64 field these are numbers.
    std::size_t Extra(std::size_t at, std::size_t end) {
        while (at < end) {
            const std::uint64_t id = Number(at, 2);
            const std::size_t size = Number(at + 2, 2);
            at = Fields(at, {2, 2});
            if (id != 1) Mark(at, size);
            for (std::size_t i = 0; id == 1 && i < size; i += 8) Fields(at + i, {8});
            at += size;
        }
        return at;
    }

    // What a directory header says, its zip64 field worked in; and where it ends.
    std::size_t Entry(std::size_t at) {
        const std::size_t nameSize = Number(at + 28, 2);
        const std::size_t extraSize = Number(at + 30, 2);
        const std::size_t commentSize = Number(at + 32, 2);
        std::size_t wide = at + kDirectoryHeader + nameSize + 4;
        std::uint64_t values[] = {Number(at + 24, 4), Number(at + 20, 4), Number(at + 42, 4)};
        for (std::uint64_t& value : values) {
            if (value != kAllOnes32) continue;
            value = Number(wide, 8);
            wide += 8;
        }
        const bool described = (Number(at + 8, 2) & 0x0008) != 0;
        Local(values[2] + prefix_, values[1], described, Number(at + 6, 2) >= 45);

        Fields(at, {4, 2, 2, 2, 2, 2, 2, 4, 4, 4, 2, 2, 2, 2, 2, 4, 4});
        const std::size_t extra = Mark(at + kDirectoryHeader, nameSize);
        Extra(extra, extra + extraSize);
        return Mark(extra + extraSize, commentSize);
    }

    void Local(std::size_t at, std::size_t dataSize, bool described, bool wide) {
        const std::size_t nameSize = Number(at + 26, 2);
        const std::size_t extraSize = Number(at + 28, 2);
        Fields(at, {4, 2, 2, 2, 2, 2, 4, 4, 4, 2, 2});
        const std::size_t extra = Mark(at + kLocalHeader, nameSize);
        const std::size_t data = Extra(extra, extra + extraSize);
        if (!described) return;
        std::size_t descriptor = data + dataSize;
        if (Is(descriptor, "PK\x07\x08")) descriptor = Fields(descriptor, {4});
        Fields(descriptor, wide ? Widths{4, 8, 8} : Widths{4, 4, 4});
    }

    const std::string& zip_;
    const std::size_t prefix_;
    ZipAnatomy anatomy_;
};

}  // namespace

ZipAnatomy Dissect(const std::string& zip, std::size_t prefix) {
    return Dissection(zip, prefix).Run();
}

}  // namespace vexpa_test

// The physical limit: what cannot be spared, done as well as we know how, without any of our
// interfaces and without looking at what the bytes say.
//
// It reads the directory once, inflates every entry - the relationships among them, which
// others have to read as well - into memory that is held until the end, checks the CRC, and
// copies the bytes once, as a caller who reads them does. CRC and copy go together over pieces
// that stay in the cache. Small files are read, large ones mapped, whichever is cheaper.
//
// Memory is the question of taste: with --fresh it comes new from the system for each pass, in
// huge pages where it is large; without, the pass before left it warm. The faster of both is
// the limit. One thread only, as the others.

#include <fcntl.h>
#include <libdeflate.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "bench/drivers/Driver.h"

namespace {

using vexpa_bench::Tally;

constexpr std::size_t kHugePage = 2UL * 1024 * 1024;
constexpr std::size_t kPiece = 64 * 1024;
constexpr std::size_t kWorthMapping = 1024 * 1024;

void Require(bool condition, const char* what) {
    if (!condition) throw std::runtime_error(what);
}

template <class Number>
Number Field(const unsigned char* at) {
    Number number;
    std::memcpy(&number, at, sizeof number);
    return number;
}

std::size_t Rounded(std::size_t size, std::size_t unit) {
    return (size + unit - 1) / unit * unit;
}

// Pages from the system, aligned so that huge pages can back them.
class Pages {
public:
    explicit Pages(std::size_t size) : size_(Rounded(size, kHugePage) + kHugePage) {
        memory_ = mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        Require(memory_ != MAP_FAILED, "no memory");
        if (size >= kHugePage) madvise(memory_, size_, MADV_HUGEPAGE);
    }
    ~Pages() { munmap(memory_, size_); }
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;

    unsigned char* Start() const {
        const auto address = reinterpret_cast<std::uintptr_t>(memory_);
        return static_cast<unsigned char*>(memory_) + (Rounded(address, kHugePage) - address);
    }
    std::size_t Room() const { return size_ - kHugePage; }

private:
    std::size_t size_;
    void* memory_;
};

// Kept from pass to pass, or made anew for each.
class Arena {
public:
    explicit Arena(bool fresh) : fresh_(fresh) {}
    unsigned char* Reserve(std::size_t size) {
        if (!pages_ || pages_->Room() < size) pages_ = std::make_unique<Pages>(size);
        return pages_->Start();
    }
    void EndPass() {
        if (fresh_) pages_.reset();
    }

private:
    bool fresh_;
    std::unique_ptr<Pages> pages_;
};

class File {
public:
    explicit File(const char* path) : descriptor_(open(path, O_RDONLY | O_CLOEXEC)) {
        Require(descriptor_ >= 0, "cannot open the file");
        struct stat status;
        Require(fstat(descriptor_, &status) == 0, "cannot stat the file");
        size_ = static_cast<std::size_t>(status.st_size);
    }
    ~File() {
        if (mapped_ != nullptr) munmap(mapped_, size_);
        close(descriptor_);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    std::size_t Size() const { return size_; }
    const unsigned char* Bytes(std::vector<unsigned char>& buffer) {
        if (size_ < kWorthMapping) {
            if (buffer.size() < size_) buffer.resize(size_);
            Require(pread(descriptor_, buffer.data(), size_, 0) == static_cast<ssize_t>(size_),
                    "cannot read the file");
            return buffer.data();
        }
        void* mapped = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE | MAP_POPULATE, descriptor_, 0);
        Require(mapped != MAP_FAILED, "cannot map the file");
        mapped_ = mapped;
        return static_cast<const unsigned char*>(mapped);
    }

private:
    int descriptor_;
    std::size_t size_ = 0;
    void* mapped_ = nullptr;
};

struct Directory {
    const unsigned char* start;
    std::size_t count;
};

// Plain archives with at most 65,535 entries, or as many as the zip64 record says.
Directory FindDirectory(const unsigned char* bytes, std::size_t size) {
    Require(size >= 22, "no archive");
    const unsigned char* end = bytes + size - 22;
    while (Field<std::uint32_t>(end) != 0x06054b50) Require(--end > bytes, "no end record");
    std::uint64_t count = Field<std::uint16_t>(end + 10);
    std::uint64_t offset = Field<std::uint32_t>(end + 16);
    if (count == 0xFFFF || offset == 0xFFFFFFFF) {
        const unsigned char* wide = bytes + Field<std::uint64_t>(end - 20 + 8);
        count = Field<std::uint64_t>(wide + 32);
        offset = Field<std::uint64_t>(wide + 48);
    }
    return {bytes + offset, count};
}

struct Header {
    const unsigned char* at;

    bool IsDeflated() const { return Field<std::uint16_t>(at + 10) == 8; }
    std::uint32_t Crc() const { return Field<std::uint32_t>(at + 16); }
    std::size_t PackedSize() const { return Field<std::uint32_t>(at + 20); }
    std::size_t Size() const { return Field<std::uint32_t>(at + 24); }
    std::size_t Offset() const { return Field<std::uint32_t>(at + 42); }
    // The entries that are the package's own business are extracted, but not counted.
    bool IsPart() const {
        const std::string_view name(reinterpret_cast<const char*>(at) + 46, NameSize());
        return name != "[Content_Types].xml" && !name.ends_with(".rels") && !name.ends_with('/');
    }
    std::size_t NameSize() const { return Field<std::uint16_t>(at + 28); }
    Header Next() const {
        return {at + 46 + NameSize() + Field<std::uint16_t>(at + 30) + Field<std::uint16_t>(at + 32)};
    }
};

class Limit {
public:
    explicit Limit(bool fresh) : arena_(fresh), piece_(kPiece) {}
    ~Limit() { libdeflate_free_decompressor(decompressor_); }
    Limit(const Limit&) = delete;
    Limit& operator=(const Limit&) = delete;

    void Pass(const char* path, Tally& tally) {
        File file(path);
        const unsigned char* bytes = file.Bytes(small_);
        const Directory directory = FindDirectory(bytes, file.Size());

        std::size_t total = 0;
        Header header{directory.start};
        for (std::size_t i = 0; i < directory.count; ++i, header = header.Next()) {
            total += header.Size();
        }
        unsigned char* out = arena_.Reserve(total);
        header = {directory.start};
        for (std::size_t i = 0; i < directory.count; ++i, header = header.Next()) {
            const unsigned char* packed = PackedBytes(bytes + header.Offset());
            if (header.IsDeflated()) Inflate(packed, header, out);
            Deliver(header.IsDeflated() ? nullptr : packed, header, out, tally);
            out += header.Size();
        }
        arena_.EndPass();
    }

private:
    static const unsigned char* PackedBytes(const unsigned char* local) {
        return local + 30 + Field<std::uint16_t>(local + 26) + Field<std::uint16_t>(local + 28);
    }

    void Inflate(const unsigned char* packed, const Header& header, unsigned char* out) {
        Require(libdeflate_deflate_decompress(decompressor_, packed, header.PackedSize(), out,
                                              header.Size(), nullptr) == LIBDEFLATE_SUCCESS,
                "a damaged entry");
    }

    // A stored entry comes to its place here as well, while its pieces are in the cache.
    void Deliver(const unsigned char* stored, const Header& header, unsigned char* out, Tally& tally) {
        const bool counts = header.IsPart();
        std::uint32_t crc = 0;
        if (counts) tally.BeginPart();
        for (std::size_t done = 0; done < header.Size(); done += kPiece) {
            const std::size_t size = std::min(kPiece, header.Size() - done);
            if (stored != nullptr) std::memcpy(out + done, stored + done, size);
            crc = libdeflate_crc32(crc, out + done, size);
            std::memcpy(piece_.data(), out + done, size);
            asm volatile("" : : "r"(piece_.data()) : "memory");  // somebody reads it
            if (counts) tally.AddPiece(piece_.data(), size);
        }
        if (counts) tally.EndPart();
        Require(crc == header.Crc(), "a wrong CRC");
    }

    Arena arena_;
    std::vector<unsigned char> small_;
    std::vector<unsigned char> piece_;
    libdeflate_decompressor* decompressor_ = libdeflate_alloc_decompressor();
};

}  // namespace

int main(int argc, char** argv) {
    const bool fresh = argc > 1 && argv[1] == std::string_view("--fresh");
    Limit limit(fresh);
    return vexpa_bench::RunDriver(argc - fresh, argv + fresh,
                                  [&](const char* file, Tally& tally) { limit.Pass(file, tally); });
}

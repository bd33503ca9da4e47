// The task with minizip and Expat. Its own search for a name goes through the whole directory,
// so the places of all entries are kept in a hash map.

#include <minizip/unzip.h>

#include <memory>
#include <stdexcept>
#include <unordered_map>

#include "bench/drivers/NamedParts.h"

namespace {

using vexpa_bench::Bytes;

class Archive {
public:
    explicit Archive(const char* path) : zip_(unzOpen64(path)) {
        if (!zip_) throw std::runtime_error("cannot open the archive");
        char name[4096];
        unz_file_info64 info;
        for (int at = unzGoToFirstFile(zip_.get()); at == UNZ_OK; at = unzGoToNextFile(zip_.get())) {
            if (unzGetCurrentFileInfo64(zip_.get(), &info, name, sizeof name, nullptr, 0, nullptr, 0) !=
                UNZ_OK) {
                throw std::runtime_error("cannot read the directory");
            }
            unz64_file_pos place;
            unzGetFilePos64(zip_.get(), &place);
            places_.emplace(name, Place{place, info.uncompressed_size});
        }
    }

    std::optional<Bytes> Read(const std::string& name) {
        const auto found = places_.find(name);
        if (found == places_.end()) return std::nullopt;
        const auto& [place, size] = found->second;
        if (unzGoToFilePos64(zip_.get(), &place) != UNZ_OK ||
            unzOpenCurrentFile(zip_.get()) != UNZ_OK) {
            return std::nullopt;
        }
        Bytes bytes{std::make_unique_for_overwrite<char[]>(size), size};
        const int got = unzReadCurrentFile(zip_.get(), bytes.data.get(), static_cast<unsigned>(size));
        // Closing checks the CRC.
        if (got != static_cast<int>(size) || unzCloseCurrentFile(zip_.get()) != UNZ_OK) {
            throw std::runtime_error("cannot read an entry");
        }
        return bytes;
    }

private:
    struct Close {
        void operator()(unzFile zip) const { unzClose(zip); }
    };
    struct Place {
        unz64_file_pos position;
        std::size_t size;
    };
    std::unique_ptr<std::remove_pointer_t<unzFile>, Close> zip_;
    std::unordered_map<std::string, Place> places_;
};

}  // namespace

int main(int argc, char** argv) {
    return vexpa_bench::RunDriver(argc, argv, [](const char* file, vexpa_bench::Tally& tally) {
        Archive archive(file);
        vexpa_bench::WalkByNames(archive, vexpa_bench::ParseElements, tally);
    });
}

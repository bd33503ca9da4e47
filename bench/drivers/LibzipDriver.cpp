// The task with libzip and Expat.

#include <zip.h>

#include <memory>
#include <stdexcept>

#include "bench/drivers/NamedParts.h"

namespace {

using vexpa_bench::Bytes;

class Archive {
public:
    explicit Archive(const char* path) : zip_(zip_open(path, ZIP_RDONLY, nullptr)) {
        if (!zip_) throw std::runtime_error("cannot open the archive");
    }

    std::optional<Bytes> Read(const std::string& name) {
        const zip_int64_t index = zip_name_locate(zip_.get(), name.c_str(), 0);
        if (index < 0) return std::nullopt;
        const auto entry = static_cast<zip_uint64_t>(index);
        zip_stat_t status;
        if (zip_stat_index(zip_.get(), entry, 0, &status) != 0) return std::nullopt;
        const std::unique_ptr<zip_file_t, CloseFile> file(zip_fopen_index(zip_.get(), entry, 0));
        if (!file) return std::nullopt;
        Bytes bytes{std::make_unique_for_overwrite<char[]>(status.size), status.size};
        if (zip_fread(file.get(), bytes.data.get(), status.size) !=
            static_cast<zip_int64_t>(status.size)) {
            throw std::runtime_error("cannot read an entry");
        }
        return bytes;
    }

private:
    struct Close {
        void operator()(zip_t* zip) const { zip_discard(zip); }
    };
    struct CloseFile {
        void operator()(zip_file_t* file) const { zip_fclose(file); }
    };
    std::unique_ptr<zip_t, Close> zip_;
};

}  // namespace

int main(int argc, char** argv) {
    return vexpa_bench::RunDriver(argc, argv, [](const char* file, vexpa_bench::Tally& tally) {
        Archive archive(file);
        vexpa_bench::WalkByNames(archive, vexpa_bench::ParseElements, tally);
    });
}

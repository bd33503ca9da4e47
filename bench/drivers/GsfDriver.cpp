// The task with libgsf: its zip reader and its reader of relationships. It checks no CRC and
// does not read the content types.
//
// Over a mapped file it would hand out stored entries without reading them, which is not to hold
// their bytes; so it reads.

#include <gsf/gsf-infile-zip.h>
#include <gsf/gsf-open-pkg-utils.h>
#include <gsf/gsf.h>

#include <deque>
#include <memory>
#include <stdexcept>
#include <string>
#include <unordered_set>
#include <vector>

#include "bench/drivers/NamedParts.h"

namespace {

using vexpa_bench::Tally;

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
template <class T>
using Held = std::unique_ptr<T, Unref>;

struct Source {
    GsfInput* input;
    std::string name;
};

class Walker {
public:
    explicit Walker(Tally& tally) : tally_(tally) {}

    void Run(GsfInput* package) {
        open_.push_back({package, {}});
        for (; !open_.empty(); open_.pop_front()) {
            gsf_open_pkg_foreach_rel(
                open_.front().input,
                [](GsfInput*, const GsfOpenPkgRel* relationship, gpointer self) {
                    static_cast<Walker*>(self)->Visit(relationship);
                },
                this);
        }
    }

private:
    void Visit(const GsfOpenPkgRel* relationship) {
        tally_.AddRelationship();
        if (gsf_open_pkg_rel_is_extern(relationship)) return;
        const Source& source = open_.front();
        std::string name =
            vexpa_bench::ResolvedTarget(source.name, gsf_open_pkg_rel_get_target(relationship));
        if (!seen_.insert(name).second) return;
        Held<GsfInput> part(gsf_open_pkg_open_rel(source.input, relationship, nullptr));
        if (!part) return;
        const auto size = static_cast<std::size_t>(gsf_input_size(part.get()));
        // The bytes belong to the input and stay until it goes.
        const guint8* bytes = size == 0 ? nullptr : gsf_input_read(part.get(), size, nullptr);
        if (size != 0 && bytes == nullptr) throw std::runtime_error("cannot read a part");
        tally_.AddPart(bytes, size);
        open_.push_back({part.get(), std::move(name)});
        held_.push_back(std::move(part));
    }

    Tally& tally_;
    std::unordered_set<std::string> seen_;
    std::deque<Source> open_;
    std::vector<Held<GsfInput>> held_;
};

void Pass(const char* file, Tally& tally) {
    const Held<GsfInput> input(gsf_input_stdio_new(file, nullptr));
    if (!input) throw std::runtime_error("cannot open the file");
    const Held<GsfInfile> zip(gsf_infile_zip_new(input.get(), nullptr));
    if (!zip) throw std::runtime_error("cannot open the archive");
    Walker(tally).Run(GSF_INPUT(zip.get()));
}

}  // namespace

int main(int argc, char** argv) {
    gsf_init();
    const int status = vexpa_bench::RunDriver(argc, argv, Pass);
    gsf_shutdown();
    return status;
}

#include "examples/importer/RunImport.h"

#include <cinttypes>
#include <cstdio>

#include "examples/importer/PartStream.h"
#include "vexpa/base/Lifecycle.h"

namespace importer {

int RunImport(Importer& importer, int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FILE\n", argv[0]);
        return 2;
    }
    try {
        const tarn::Library library;  // the namespace maps are filled now
        const Tree tree = importer.Import(*OpenMainPart(argv[1]));
        std::printf("%" PRIu64 " elements, %" PRIu64 " attributes with a token, %zu levels\n",
                    tree.elements, tree.attributes, tree.depth);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[1], error.what());
        return 1;
    }
}

}  // namespace importer

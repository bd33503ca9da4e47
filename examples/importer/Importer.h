// examples/importer/Importer.h - what the importers have in common.
#ifndef VEXPA_EXAMPLES_IMPORTER_IMPORTER_H_
#define VEXPA_EXAMPLES_IMPORTER_IMPORTER_H_

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "vexpa/base/Handle.h"
#include "vexpa/platform/Com.h"
#include "vexpa/xmlfx/XmlMapper.h"
#include "vexpa/xmlfx/XmlRoAttr.h"

namespace importer {

// How much of a document is taken. Real ones stay far below, and a package may be made to
// harm: a few kilobytes of zip can hold millions of elements, one inside the other.
struct Limits {
    std::size_t depth = 1'000;         // elements within elements
    std::uint64_t nodes = 10'000'000;  // elements, attributes and texts: some 100 bytes each
    std::size_t namespaceUri = 1'000;  // code units: each name of the namespace costs as many
};

// A part's XML. Names outside the vocabulary have no token: such an attribute is dropped,
// such an element stands in the tree under kNullToken.
struct Tree {
    std::uint32_t token = tarn::xmlfx::kNullToken;  // of the root element
    tarn::Handle<tarn::xmlfx::XmlRoAttr> root;

    std::uint64_t elements = 0;
    std::uint64_t attributes = 0;  // that have a token
    std::size_t depth = 0;
};

// Malformed XML, a document type, a limit, a part that cannot be read.
class ImportError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    ImportError(const std::string& what, std::uint64_t line)
        : runtime_error("line " + std::to_string(line) + ": " + what) {}
};

class Importer {
public:
    virtual ~Importer() = default;
    // Reads the stream from its position to its end, piece by piece. Throws an ImportError
    // or std::bad_alloc; nothing is left behind.
    virtual Tree Import(IStream& stream) = 0;
};

// Package parts hold no document type declaration (ECMA-376 Part 2, 8.1.4). To refuse it
// ends all attacks with entities before they begin.
inline constexpr const char* kNoDocumentType = "a document type declaration";

}  // namespace importer

#endif  // VEXPA_EXAMPLES_IMPORTER_IMPORTER_H_

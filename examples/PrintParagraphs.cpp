// Prints the paragraphs of a text document, each after its style: PrintParagraphs FILE
//
// A small importer of its own: the part and the parser come from QtImporter.

#include <cstdio>
#include <exception>
#include <initializer_list>
#include <string>
#include <vector>

#include "examples/Arguments.h"
#include "examples/QtImporter.h"
#include "examples/importer/PartStream.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/base/Utf8.h"
#include "vexpa/xmlfx/XmlAttrHandler.h"

using namespace tarn;
using namespace tarn::xmlfx;

namespace {

// As `vexpa tokens w:p` prints them. A token never changes.
enum : std::uint32_t {
    kP = 0x000100E6,
    kPPr = 0x00010007,
    kPStyle = 0x00010027,
    kVal = 0x00010258,
    kT = 0x00010075,
};

std::string ValueOf(const XmlRoAttr* set) {
    return set == nullptr ? "-" : ToUtf8(set->GetValue());
}

const XmlRoAttr* Find(const XmlRoAttr& set, std::initializer_list<std::uint32_t> tokens) {
    const XmlRoAttr* found = &set;
    for (const std::uint32_t token : tokens) {
        if (found != nullptr) found = found->Find(token);
    }
    return found;
}

void PrintParagraphs(const XmlRoAttr& document) {
    struct Open {
        const XmlRoAttr* set;
        std::uint32_t next;
    };
    std::vector<Open> open = {{&document, 0}};  // and no recursion: a document may be very deep
    const char* separator = "";
    while (!open.empty()) {
        std::uint32_t token = 0;
        const XmlRoAttr* value = open.back().set->GetAt(open.back().next++, &token);
        if (value == nullptr) {
            open.pop_back();
            continue;
        }
        if (token == kP) {
            std::printf("%s%s: ", separator, ValueOf(Find(*value, {kPPr, kPStyle, kVal})).c_str());
            separator = "\n";
        }
        if (token == kT) std::printf("%s", ValueOf(value->Find(kTextToken)).c_str());
        open.push_back({value, 0});
    }
    std::printf("\n");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return Usage("PrintParagraphs FILE");
    const Library library;
    try {
        importer::QtImporter qt;
        const importer::Tree tree = qt.Import(*importer::OpenMainPart(argv[1]));
        PrintParagraphs(*tree.root);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[1], error.what());
        return 1;
    }
}

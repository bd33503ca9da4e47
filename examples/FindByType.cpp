// Finds the styles and the headers of a text document: FindByType FILE

#include <cstdio>

#include "examples/Arguments.h"
#include "examples/OpenDocument.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/base/Utf8.h"
#include "vexpa/opc/Package.h"

using namespace tarn;

namespace {

void Print(const char* what, const opc::Relationship* relationship) {
    if (relationship == nullptr) {
        std::printf("%s: none\n", what);
        return;
    }
    const opc::PartUri& target = relationship->GetResolvedTarget();
    std::printf("%s: %s\n", what, ToUtf8(target.name).c_str());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return Usage("FindByType FILE");
    const Library library;
    const Handle<opc::Package> package = OpenPackage(argv[1]);
    if (!package) return 3;
    opc::Part* document = FindMainPart(*package);
    if (document == nullptr) return 4;

    // A document has one part of styles, so asking by type finds it.
    Print("styles", document->GetRelationshipByType(opc::RelTypeStyles));

    // It may have a header for each section, for first and for even pages. By type there is
    // one answer, the first in the relationship stream, and no way to ask for the next.
    Print("a header, by type", document->GetRelationshipByType(opc::RelTypeHeader));

    // By Id there are all of them.
    for (const auto& [id, relationship] : document->GetRelationships()) {
        if (relationship->GetTypeId() != opc::RelTypeHeader) continue;
        Print(ToUtf8(u"header " + id).c_str(), relationship);
    }
}

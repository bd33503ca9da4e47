// Lists what the main part of a document relates to: ListParts FILE

#include <cstdio>

#include "vexpa/base/Lifecycle.h"
#include "vexpa/base/Utf8.h"
#include "vexpa/opc/Package.h"

using namespace tarn;

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: ListParts FILE\n");
        return 2;
    }
    const Library library;  // _vexpa_Initialize now, _vexpa_Terminate at the end
    const Handle<opc::Package> package = opc::Package::Open(FromUtf8(argv[1]).c_str());
    if (!package) return 3;  // not readable, or no package

    opc::Relationship* start = package->GetRelationshipByType(opc::RelTypeOfficeDocument);
    opc::Part* document = start == nullptr ? nullptr : package->GetPart(start->GetResolvedTarget());
    if (document == nullptr) return 4;
    for (const auto& [id, relationship] : document->GetRelationships()) {
        const opc::PartUri& target = relationship->GetResolvedTarget();
        const bool isThere = package->GetPart(target) != nullptr;
        std::printf("%s %s%s\n", ToUtf8(id).c_str(), ToUtf8(target.name).c_str(),
                    isThere ? "" : " (not a part)");
    }
}

// Lists what the main part of a document relates to: ListParts FILE

#include <cstdio>
#include <filesystem>

#include "examples/Arguments.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/opc/Package.h"

using namespace tarn;

int main(int argc, char** argv) {
    if (argc != 2 || !AreUtf8(argv + 1)) return 2;
    const Library library;  // _vexpa_Initialize now, _vexpa_Terminate at the end
    const Handle<opc::Package> package =
        opc::Package::Open(std::filesystem::path(argv[1]).u16string().c_str());
    if (!package) return 3;  // not readable, or no package

    opc::Relationship* main = package->GetRelationshipByType(opc::RelTypeOfficeDocument);
    opc::Part* document = main == nullptr ? nullptr : package->GetPart(main->GetResolvedTarget());
    if (document == nullptr) return 4;
    for (const auto& [id, relationship] : document->GetRelationships()) {
        const opc::PartUri& target = relationship->GetResolvedTarget();
        const bool isThere = package->GetPart(target) != nullptr;
        std::printf("%s %s%s\n", std::filesystem::path(id).c_str(),
                    std::filesystem::path(target.name).c_str(), isThere ? "" : " (not a part)");
    }
}

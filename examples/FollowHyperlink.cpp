// Says where a hyperlink of a document leads: FollowHyperlink FILE ID

#include <cstdio>

#include "examples/Arguments.h"
#include "examples/OpenDocument.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/base/Utf8.h"
#include "vexpa/opc/Package.h"

using namespace tarn;

namespace {

void PrintTarget(opc::Package& package, const opc::Relationship& link) {
    if (link.GetTargetMode() == opc::TargetModeExternal) {
        // Nothing was opened or looked up. Whoever does looks at the scheme, and asks first.
        const opc::PartUri& target = link.GetTarget();
        std::printf("outside: %s\nscheme %s, host %s, path %s\n", ToUtf8(target.name).c_str(),
                    ToUtf8(target.scheme).c_str(), ToUtf8(target.host).c_str(),
                    ToUtf8(target.path).c_str());
        return;
    }
    const opc::PartUri& target = link.GetResolvedTarget();
    const opc::Part* part = package.GetPart(target);
    std::printf("inside: %s\n", ToUtf8(target.name).c_str());
    std::printf("%s\n", part == nullptr ? "missing" : ToUtf8(part->GetContentType()).c_str());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return Usage("FollowHyperlink FILE ID");
    const Library library;
    const Handle<opc::Package> package = OpenPackage(argv[1]);
    if (!package) return 3;
    opc::Part* document = FindMainPart(*package);
    if (document == nullptr) return 4;

    // The document says <w:hyperlink r:id="...">, and the Id leads to the relationship.
    const opc::Relationship* link = document->GetRelationshipById(FromUtf8(argv[2]).c_str());
    if (link == nullptr) return 5;
    PrintTarget(*package, *link);
}

// Says where a hyperlink of a document leads: FollowHyperlink FILE ID

#include <cstdio>
#include <filesystem>
#include <string>

#include "examples/Arguments.h"
#include "examples/OpenDocument.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/opc/Package.h"

using namespace tarn;

namespace {

std::u16string Utf16(const char* text) {
    return std::filesystem::path(text).u16string();
}

std::string Utf8(const std::u16string& text) {
    return std::filesystem::path(text).string();
}

void PrintTarget(opc::Package& package, const opc::Relationship& link) {
    if (link.GetTargetMode() == opc::TargetModeExternal) {
        // Nothing was opened or looked up. Whoever does looks at the scheme, and asks first.
        const opc::PartUri& target = link.GetTarget();
        std::printf("outside: %s\nscheme %s, host %s, path %s\n", Utf8(target.name).c_str(),
                    Utf8(target.scheme).c_str(), Utf8(target.host).c_str(), Utf8(target.path).c_str());
        return;
    }
    const opc::PartUri& target = link.GetResolvedTarget();
    const opc::Part* part = package.GetPart(target);
    std::printf("inside: %s\n", Utf8(target.name).c_str());
    std::printf("%s\n", part == nullptr ? "missing" : Utf8(CopyText(part->GetContentType())).c_str());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3 || !AreUtf8(argv + 1)) return 2;
    const Library library;
    const Handle<opc::Package> package = OpenPackage(argv[1]);
    if (!package) return 3;
    opc::Part* document = FindMainPart(*package);
    if (document == nullptr) return 4;

    // The document says <w:hyperlink r:id="...">, and the Id leads to the relationship.
    const opc::Relationship* link = document->GetRelationshipById(Utf16(argv[2]).c_str());
    if (link == nullptr) return 5;
    PrintTarget(*package, *link);
}

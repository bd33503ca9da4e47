#include "tool/model/PackageComparison.h"

#include "tool/model/OpenPackage.h"
#include "tool/model/PrettyXml.h"
#include "tool/model/XmlElements.h"
#include "tool/run/LineDifference.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

std::string ReadPart(const InputFile& file, opc::Package& package, const std::u16string& name) {
    std::string bytes;
    opc::Part* part = package.GetPart(opc::PartUri(name.c_str()));
    if (part == nullptr) return bytes;
    PartReader(file).Read(*part,
                          [&](const char* piece, std::size_t size) { bytes.append(piece, size); });
    return bytes;
}

}  // namespace

PackageComparison::PackageComparison(const InputFile& fileA, const InputFile& fileB,
                                     const ComparedKinds& kinds)
    : fileA_(fileA), fileB_(fileB), packageA_(OpenPackage(fileA)), packageB_(OpenPackage(fileB)) {
    const ComparedPackage a{fileA_, *packageA_.Get()}, b{fileB_, *packageB_.Get()};
    const bool all = !kinds.parts && !kinds.relationships && !kinds.types;
    if (all || kinds.parts) parts = CompareParts(a, b);
    if (all || kinds.relationships) {
        relationships = CompareRelationships(a, b);
        firsts = CompareFirsts(a, b);
    }
    if (all || kinds.types) types = CompareTypes(a, b);
}

std::optional<std::string> PackageComparison::XmlDifference(const PartDifference& part) const {
    if (part.change != Change::Changed || part.isUnreadable) return std::nullopt;
    try {
        return LineDifference(PrettyXml(ReadPart(fileA_, *packageA_.Get(), part.name)),
                              PrettyXml(ReadPart(fileB_, *packageB_.Get(), part.name)));
    } catch (const XmlError&) {
        return std::nullopt;
    }
}

}  // namespace vexpa_tool

// tool/model/PackageComparison.h - two packages, and what differs between them.
#ifndef VEXPA_TOOL_MODEL_PACKAGECOMPARISON_H_
#define VEXPA_TOOL_MODEL_PACKAGECOMPARISON_H_

#include <optional>
#include <string>
#include <vector>

#include "tool/InputFile.h"
#include "tool/model/PackageDifference.h"
#include "vexpa/opc/Package.h"

namespace vexpa_tool {

// None means all.
struct ComparedKinds {
    bool parts = false;
    bool relationships = false;
    bool types = false;
};

class PackageComparison {
public:
    // Throws a ToolError when one of them does not open.
    PackageComparison(const InputFile& fileA, const InputFile& fileB, const ComparedKinds& kinds);

    bool IsEmpty() const {
        return parts.empty() && relationships.empty() && firsts.empty() && types.empty();
    }

    // How the two forms of a changed XML part differ, tag by tag; not known for other parts.
    std::optional<std::string> XmlDifference(const PartDifference& part) const;

    std::vector<PartDifference> parts;
    std::vector<RelationshipDifference> relationships;
    std::vector<FirstDifference> firsts;  // with the relationships
    std::vector<TypeDifference> types;

private:
    const InputFile& fileA_;
    const InputFile& fileB_;
    tarn::Handle<tarn::opc::Package> packageA_;
    tarn::Handle<tarn::opc::Package> packageB_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_PACKAGECOMPARISON_H_

// tool/check/Subject.h - the package that is checked, from every side that it is looked at.
#ifndef VEXPA_TOOL_CHECK_SUBJECT_H_
#define VEXPA_TOOL_CHECK_SUBJECT_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tool/InputFile.h"
#include "tool/check/ContentTypeScan.h"
#include "tool/check/NameIndex.h"
#include "tool/check/RelationshipScan.h"
#include "tool/check/Skeleton.h"
#include "tool/container/Container.h"
#include "vexpa/opc/Package.h"

namespace vexpa_tool {

class Vocabulary;

inline constexpr const char* kContentTypesEntry = "[Content_Types].xml";
inline constexpr const char* kRelationshipsEntry = "_rels/.rels";

struct CheckOptions {
    bool isDeep = false;                                // read every part
    bool isOpeningOnly = false;                         // leave what does not bear on opening
    std::uint64_t largestPart = 512ULL << 20;           // what is larger is not read
    std::size_t mostEntries = Container::kMostEntries;  // the first of the archive
    std::size_t mostItems = 0;                          // kept of what a finding sums up
    const Vocabulary* vocabulary = nullptr;             // for isDeep; without it names are not counted
};

// Who the groups of checks ask. Filled step by step, as far as the file allows.
struct Subject {
    Subject(const InputFile& checkedFile, const CheckOptions& checkOptions);

    InputFile file;
    CheckOptions options;

    // The library's word.
    tarn::Handle<tarn::opc::Package> package;  // empty when it refuses the file
    bool Opens() const { return static_cast<bool>(package); }

    std::optional<Container> container;  // empty when there is no readable file
    bool HasDirectory() const;
    const ContainerEntry* Find(std::string_view name) const;
    // Whether the archive has the entry, also beyond those that are looked at.
    bool Has(std::string_view entry) const;
    const ContainerEntry* FindVariant(std::string_view name) const;  // differs in letter case only
    const NameIndex& Names() const;                                  // needs a container

    // As far as they could be read.
    std::optional<ContentTypeScan> contentTypes;
    std::optional<RelationshipScan> relationships;

    // The package, or what stands in for one that does not open; null where neither can be had.
    tarn::opc::Package* model = nullptr;
    std::vector<tarn::opc::Part*> parts;  // reached from it
    void MakeModel();

private:
    mutable std::unique_ptr<NameIndex> names_;
    std::unique_ptr<Skeleton> skeleton_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_SUBJECT_H_

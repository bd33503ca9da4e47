#include "tool/check/Subject.h"

#include "tool/model/OpenPackage.h"
#include "tool/model/PartWalk.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

Subject::Subject(const InputFile& checkedFile, const CheckOptions& checkOptions)
    : file(checkedFile),
      options(checkOptions),
      package(FindPackage(file)),
      container(Container::Read(file.path, options.mostEntries)) {}

bool Subject::HasDirectory() const {
    return container && container->Source() == ContainerSource::Directory;
}

const ContainerEntry* Subject::Find(std::string_view name) const {
    return container ? container->Find(name) : nullptr;
}

bool Subject::Has(std::string_view entry) const {
    return container && container->Has(entry);
}

const ContainerEntry* Subject::FindVariant(std::string_view name) const {
    return container ? Names().FindVariant(name) : nullptr;
}

const NameIndex& Subject::Names() const {
    if (names_ == nullptr) names_ = std::make_unique<NameIndex>(*container);
    return *names_;
}

void Subject::MakeModel() {
    model = package.Get();
    if (model == nullptr && container) {
        skeleton_ = Skeleton::Make(file.path, *container, relationships.value_or(RelationshipScan()));
        if (skeleton_) model = &skeleton_->Package();
    }
    if (model == nullptr) return;
    parts = ReachedParts(*model);
    // What only the added relationship leads to is not the package's.
    if (skeleton_) std::erase_if(parts, [](opc::Part* part) { return Skeleton::IsAdded(*part); });
}

}  // namespace vexpa_tool

#include "tool/check/PackageInfo.h"

#include "tool/check/Check.h"
#include "tool/check/CheckedSources.h"
#include "tool/model/PartWalk.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

void CountEntries(const Container& container, PackageInfo& info) {
    info.fileSize = container.FileSize();
    info.isZip = container.Source() != ContainerSource::None;
    info.hasDirectory = container.Source() == ContainerSource::Directory;
    info.entries = container.EntryCount();
    for (const ContainerEntry& entry : container.Entries()) {
        info.packedSize += entry.compressedSize;
        info.unpackedSize += entry.size;
    }
}

void CountRelationships(const Subject& subject, PackageInfo& info) {
    for (const CheckedSource& source : CheckedSources(subject)) {
        const std::uint64_t count = source.relationships.size();
        (source.part == nullptr ? info.packageRelationships : info.partRelationships) += count;
        info.sourceParts += source.part == nullptr ? 0 : 1;
        for (const opc::Relationship* relationship : source.relationships) {
            const bool isExternal = relationship->GetTargetMode() == opc::TargetModeExternal;
            info.external += isExternal ? 1 : 0;
            const bool hasPart = TargetPart(*subject.model, *relationship) != nullptr;
            info.dangling += !isExternal && !hasPart ? 1 : 0;
        }
    }
}

void CountParts(const Subject& subject, PackageInfo& info) {
    info.parts = subject.parts.size();
    for (const opc::Part* part : subject.parts) {
        info.partsWithoutType += tarn::TextLength(part->GetContentType()) == 0 ? 1 : 0;
    }
    if (!subject.contentTypes) return;
    for (const ScannedTypeRule& rule : subject.contentTypes->rules) {
        if (rule.IsWhole()) ++(rule.isOverride ? info.overrides : info.defaults);
    }
}

}  // namespace

PackageInfo InfoOf(const InputFile& file) {
    CheckOptions options;
    options.isOpeningOnly = true;
    Subject subject(file, options);
    Findings findings(subject.Opens());
    ReplayOpening(subject, findings);
    subject.MakeModel();

    PackageInfo info;
    if (subject.container) CountEntries(*subject.container, info);
    if (const Finding* stop = findings.Stop()) info.stop = *stop;
    // Of what is no package, a model would only repeat the container.
    if (subject.model == nullptr || (!subject.contentTypes && !subject.relationships)) return info;
    info.hasModel = true;
    info.document = KindOf(*subject.model);
    CountRelationships(subject, info);
    CountParts(subject, info);
    return info;
}

}  // namespace vexpa_tool

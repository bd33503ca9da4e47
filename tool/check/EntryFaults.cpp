#include "tool/check/EntryFaults.h"

#include "tool/check/Shown.h"

namespace vexpa_tool {

std::string DamageText(EntryDamage damage) {
    switch (damage) {
        case EntryDamage::OnOtherDisk:
            return "it lies on another disk of a split archive";
        case EntryDamage::Encrypted:
            return "it is encrypted";
        case EntryDamage::UnknownMethod:
            return "it is packed with a method that is not supported";
        case EntryDamage::NoLocalHeader:
            return "no local header lies where the directory says";
        case EntryDamage::DataBeyondFile:
            return "its data reaches beyond the end of the file";
        case EntryDamage::ImpossibleSize:
            return "its size cannot be true";
        case EntryDamage::BadData:
            return "its packed data is broken";
        case EntryDamage::WrongSize:
            return "its data unpacks to another size than the directory says";
        case EntryDamage::WrongCrc:
            return "its data has another CRC than the directory says";
        case EntryDamage::None:
            break;
    }
    return "memory ran out, or the file has changed";
}

void ExplainUnreadable(const Subject& subject, std::string_view entry, Finding& finding) {
    finding.entry = entry;
    finding.cause = "cannot be extracted";
    const ContainerEntry* found = subject.Find(entry);
    if (found == nullptr) return;
    finding.offset =
        found->headerPosition == kNowhere ? found->directoryPosition : found->headerPosition;
    if (found->size > subject.options.largestPart) return;
    finding.cause += ": " + DamageText(FindDamage(*subject.container, *found));
}

void ExplainFault(std::string_view entry, std::string_view bytes, const std::optional<XmlFault>& fault,
                  Finding& finding) {
    finding.entry = entry;
    if (bytes.empty()) {
        finding.cause = "is empty";
    } else if (!fault) {
        finding.cause = "is nested too deep, or too large to be read";
    } else {
        Locate(entry, fault->place, finding);
        finding.cause = (fault->isRefusal ? "is refused: " : "is not well-formed: ") + fault->what;
    }
}

Step StepThatReads(std::string_view entry) {
    if (entry == kContentTypesEntry) return Step::ContentTypes;
    return entry == kRelationshipsEntry ? Step::PackageRelationships : Step::PartRelationships;
}

void Locate(std::string_view entry, const XmlPlace& place, Finding& finding) {
    finding.entry = entry;
    finding.line = place.line;
    finding.column = place.column;
}

void CheckRoot(std::string_view entry, const RootName& root, const RootName& usual, FindingId id,
               Findings& findings) {
    if (root.name == usual.name && root.uri == usual.uri) return;
    findings.Add(id, [&](Finding& finding) {
        finding.step = StepThatReads(entry);
        finding.entry = entry;
        finding.cause = "its root element is " + Shown(root.name) + " in " +
                        (root.uri.empty() ? "no namespace" : "the namespace " + Shown(root.uri)) +
                        ", not " + std::string(usual.name) + " in " + std::string(usual.uri);
    });
}

void ReportDocumentType(std::string_view entry, Findings& findings) {
    findings.Add(FindingId::DocumentType, [&](Finding& finding) {
        finding.step = StepThatReads(entry);
        finding.entry = entry;
        finding.cause = "has a document type declaration";
    });
}

}  // namespace vexpa_tool

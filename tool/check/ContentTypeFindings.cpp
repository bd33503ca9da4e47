// VX2xx: [Content_Types].xml.

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "tool/check/EntryBytes.h"
#include "tool/check/EntryFaults.h"
#include "tool/check/Groups.h"
#include "tool/check/PartNames.h"
#include "tool/check/Shown.h"
#include "tool/text/Local.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

constexpr const char* kPattern = "\\[Content_Types\\].xml";

struct KnownFormat {
    const char* entry;
    const char* what;
};

constexpr KnownFormat kKnownFormats[] = {
    {"Index/Document.iwa", "an office document of another format"},
    {"Index.zip", "an office document of another format"},
    {"META-INF/container.xml", "an electronic book"},
    {"AndroidManifest.xml", "a program for phones"},
    {"META-INF/MANIFEST.MF", "a Java archive"},
};

// "a mimetype entry says application/vnd.oasis.opendocument.text"
std::string OtherFormat(const Subject& subject) {
    constexpr std::uint64_t kLongestMimeType = 200;
    const ContainerEntry* entry = subject.Find("mimetype");
    if (entry != nullptr && entry->size <= kLongestMimeType) {
        if (const auto bytes = EntryBytes::Extract(subject.file.path, "mimetype")) {
            return "a mimetype entry says " + Shown(FromLocal(std::string(bytes->Text())));
        }
    }
    for (const KnownFormat& format : kKnownFormats) {
        if (subject.Has(format.entry)) return "it looks like " + std::string(format.what);
    }
    return {};
}

const ContainerEntry* FindNearMiss(const Subject& subject) {
    for (const ContainerEntry& entry : subject.container->Entries()) {
        if (ResemblesContentTypes(entry.name)) return &entry;
    }
    return nullptr;
}

// Says what the archive has instead, and what to do about it.
void ExplainMissing(const Subject& subject, Finding& finding) {
    finding.cause = "no " + std::string(kContentTypesEntry);
    if (subject.container->EntryCount() == 0) {
        finding.cause += ": the archive has no entries";
        finding.hint = "obtain the file again";
        return;
    }
    if (const ContainerEntry* near = FindNearMiss(subject)) {
        finding.cause += "; there is " + Shown(near->name);
        if (near->name.find('/') == std::string_view::npos)
            finding.hint = "give the entry its exact name";
        return;
    }
    const std::string other = OtherFormat(subject);
    if (!other.empty()) {
        finding.cause += "; " + other;
        finding.hint = "give it to a program for that kind of file";
    } else if (!subject.Has(kRelationshipsEntry) &&
               subject.FindVariant(kRelationshipsEntry) == nullptr) {
        finding.cause = "a zip archive, but no package: neither " + std::string(kContentTypesEntry) +
                        " nor " + kRelationshipsEntry + " is in it";
        finding.hint = "look at its entries with 'vexpa ls'; if it should be a document, get it again";
    }
}

void ReportMissing(const Subject& subject, Findings& findings) {
    findings.AddStop(FindingId::NoContentTypes,
                     [&](Finding& finding) { ExplainMissing(subject, finding); });
}

// The key of an Override: nothing but its first slash is taken off.
std::string_view OverrideKey(std::string_view partName) {
    if (partName.starts_with('/') || partName.starts_with('\\')) partName.remove_prefix(1);
    return partName;
}

class Rules {
public:
    Rules(const Subject& subject, Findings& findings) : subject_(subject), findings_(findings) {}

    void Look(const ScannedTypeRule& rule) {
        if (!rule.IsWhole()) return ReportIncomplete(rule);
        if (!keys_.emplace(rule.isOverride, KeyOf(rule)).second) {
            Report(FindingId::IdleOverride, rule, "stands twice; the first counts");
        } else if (rule.isOverride) {
            LookForPart(rule);
        } else if (rule.key->starts_with('.')) {
            Report(FindingId::NearMissOfType, rule, "is written with a dot and applies to nothing");
        }
    }

private:
    static std::string KeyOf(const ScannedTypeRule& rule) {
        return rule.isOverride ? std::string(OverrideKey(*rule.key)) : *rule.key;
    }

    void LookForPart(const ScannedTypeRule& rule) {
        const std::string key = KeyOf(rule);
        if (subject_.Has(key)) return;
        const ContainerEntry* variant = subject_.FindVariant(key);
        if (variant == nullptr) return Report(FindingId::IdleOverride, rule, "has no part");
        Report(FindingId::NearMissOfType, rule,
               "misses " + Shown(variant->name) + " by the case of its letters");
    }

    void Report(FindingId id, const ScannedTypeRule& rule, const std::string& what) {
        findings_.Add(id, [&](Finding& finding) {
            Locate(kContentTypesEntry, rule.place, finding);
            finding.target = *rule.key;
            finding.cause = std::string("the ") + (rule.isOverride ? "Override" : "Default") + " for " +
                            Shown(*rule.key) + " " + what;
        });
    }

    void ReportIncomplete(const ScannedTypeRule& rule) {
        findings_.Add(FindingId::IncompleteTypeRule, [&](Finding& finding) {
            Locate(kContentTypesEntry, rule.place, finding);
            const char* lacks = rule.key ? "ContentType" : rule.isOverride ? "PartName" : "Extension";
            finding.cause =
                std::string(rule.isOverride ? "an Override" : "a Default") + " without " + lacks;
        });
    }

    const Subject& subject_;
    Findings& findings_;
    std::set<std::pair<bool, std::string>> keys_;
};

void CheckRules(const Subject& subject, Findings& findings) {
    const ContentTypeScan& scan = *subject.contentTypes;
    if (scan.hasDocumentType) ReportDocumentType(kContentTypesEntry, findings);
    CheckRoot(kContentTypesEntry, {scan.root, scan.rootNamespace},
              {"Types", "http://schemas.openxmlformats.org/package/2006/content-types"},
              FindingId::UnexpectedTypesRoot, findings);
    Rules rules(subject, findings);
    for (const ScannedTypeRule& rule : scan.rules) rules.Look(rule);
}

std::string_view ExtensionOf(std::string_view entry) {
    return entry.substr(entry.rfind('.') + 1);  // a name without a dot is its own extension
}

// The Defaults by their extension in lower case; of several the first.
std::map<std::string, const ScannedTypeRule*> FoldedDefaults(const ContentTypeScan& scan) {
    std::map<std::string, const ScannedTypeRule*> defaults;
    for (const ScannedTypeRule& rule : scan.rules) {
        if (!rule.isOverride && rule.IsWhole()) defaults.try_emplace(FoldedCase(*rule.key), &rule);
    }
    return defaults;
}

}  // namespace

void CheckContentTypes(Subject& subject, Findings& findings) {
    if (!subject.HasDirectory()) return;
    if (!subject.Has(kContentTypesEntry)) return ReportMissing(subject, findings);
    const auto bytes = EntryBytes::Extract(subject.file.path, kPattern);
    if (!bytes) {
        findings.AddStop(FindingId::UnreadableContentTypes, [&](Finding& finding) {
            ExplainUnreadable(subject, kContentTypesEntry, finding);
        });
        return;
    }
    const ContentTypeScan scan = ScanContentTypes(bytes->Text());
    if (!bytes->Parse()) {
        findings.AddStop(FindingId::MalformedContentTypes, [&](Finding& finding) {
            ExplainFault(kContentTypesEntry, bytes->Text(), scan.fault, finding);
        });
        return;
    }
    subject.contentTypes = scan;
    if (!subject.options.isOpeningOnly) CheckRules(subject, findings);
}

// What the library answers for each part that is reached.
void CheckTypesOfParts(const Subject& subject, Findings& findings) {
    if (!subject.contentTypes) return;
    const std::map<std::string, const ScannedTypeRule*> defaults =
        FoldedDefaults(*subject.contentTypes);
    std::set<std::string> missed;
    for (const opc::Part* part : subject.parts) {
        if (tarn::TextLength(part->GetContentType()) != 0) continue;
        const std::string entry = EntryNameOf(part->GetName());
        findings.Add(FindingId::PartWithoutType, [&](Finding& finding) {
            finding.entry = entry;
            finding.cause = "no Override and no Default gives it a content type";
        });
        const std::string extension(ExtensionOf(entry));
        const auto variant = defaults.find(FoldedCase(extension));
        if (variant == defaults.end() || !missed.insert(extension).second) continue;
        findings.Add(FindingId::NearMissOfType, [&](Finding& finding) {
            const ScannedTypeRule& rule = *variant->second;
            Locate(kContentTypesEntry, rule.place, finding);
            finding.target = *rule.key;
            finding.cause = "the Default for " + Shown(*rule.key) + " misses the extension " +
                            Shown(extension) + " by the case of its letters";
        });
    }
}

}  // namespace vexpa_tool

// VX104 to VX106, VX108, VX110, VX111, VX114, VX503, VX606 and VX609: the
// names of the entries.

#include <QString>
#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/text/Utf8.h"
#include "tool/check/Groups.h"
#include "tool/check/PartNames.h"
#include "tool/check/Shown.h"
#include "tool/container/SpelledName.h"
#include "tool/container/UnicodePath.h"
#include "tool/text/Size.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

// Entries that have the same thing in their names: one finding for all.
using NameGroup = std::vector<const ContainerEntry*>;

// What is said of one name, and of several: "uses '\\' and ...", "use '\\' and ...".
struct Predicate {
    const char* one;
    const char* several;
};

// The first of the group is shown as it is written, where that differs from how it is read.
void AddGroup(const NameGroup& group, FindingId id, Severity severity, const Predicate& predicate,
              const std::string& written, Findings& findings) {
    if (group.empty()) return;
    const ContainerEntry& first = *group.front();
    const std::string read = Shown(first.name);
    findings.Add(id, severity, [&](Finding& finding) {
        finding.offset = first.directoryPosition;
        finding.namesAllItems = group.size() == 1;
        if (group.size() == 1) {
            finding.entry = first.name;
            finding.cause = std::string("the name ") + predicate.one;
            if (written != read) finding.cause += ": " + written;
        } else {
            finding.cause = GroupedDigits(group.size()) + " entry names " + predicate.several +
                            " (first: " + written + ")";
        }
        for (const ContainerEntry* entry : group) findings.AddItem(finding, {std::string(entry->name)});
    });
}

void AddGroup(const NameGroup& group, FindingId id, const Predicate& predicate, Findings& findings) {
    if (group.empty()) return;
    AddGroup(group, id, KindOf(id).severity, predicate, Shown(group.front()->name), findings);
}

// The bytes of the first name, which may be in any encoding.
std::string FirstWritten(const Container& container, const NameGroup& group) {
    if (group.empty()) return {};
    const std::string raw = container.RawName(*group.front());
    return Shown(QString::fromUtf8(raw.data(), static_cast<int>(raw.size())).toStdU16String());
}

std::string FirstSpelled(const Container& container, const NameGroup& group) {
    return group.empty() ? std::string() : Shown(SpelledName(container, *group.front()));
}

bool HasWildcard(std::string_view name) {
    return name.find_first_of("*?[") != name.npos;
}

// '.' and '..', empty segments save the one behind the last '/' (a folder), and drive letters.
bool LeavesItsFolder(std::string_view name) {
    if (name.size() > 1 && name[1] == ':') return true;
    for (std::string_view rest = name.starts_with('/') ? name.substr(1) : name; !rest.empty();) {
        const std::size_t end = std::min(rest.find_first_of("/\\"), rest.size());
        const std::string_view segment = rest.substr(0, end);
        if (segment.empty() || segment == "." || segment == "..") return true;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return false;
}

// "word/document.xml/[0].piece", also the last one, "[3].last.piece" (ECMA-376 Part 2).
bool IsPiece(std::string_view name) {
    const std::size_t slash = name.rfind('/');
    return slash != name.npos && name.substr(slash + 1).starts_with('[') && name.ends_with("].piece");
}

bool IsLastPiece(std::string_view name) {
    return name.ends_with("].last.piece");
}

// The raw name may have a NUL, of which the decoded name keeps nothing.
bool IsDeceptive(std::string_view name, std::string_view rawName) {
    if (rawName.find('\0') != rawName.npos) return true;
    while (!name.empty()) {
        if (IsUnsafeToPrint(TakeUtf8(name))) return true;
    }
    return false;
}

// The way that names take to the archive.
bool SurvivesLocale(std::string_view name) {
    const QString text = QString::fromUtf8(name.data(), static_cast<int>(name.size()));
    return QString::fromLocal8Bit(text.toLocal8Bit()) == text;
}

class EntryNames {
public:
    EntryNames(const Container& container, Findings& findings)
        : container_(container), findings_(findings) {}

    void Look(const ContainerEntry& entry) {
        const std::string_view name = entry.name;
        const std::string rawName = container_.RawName(entry);
        LookForBackslash(entry, rawName);
        if (name.starts_with('/')) leadingSlash_.push_back(&entry);
        if (IsPiece(name) || IsLastPiece(name)) {
            pieces_.push_back(&entry);
        } else if (HasWildcard(name) && !IsToldOf(name)) {
            wildcard_.push_back(&entry);
        }
        if (!vexpa_runtime::IsUtf8(rawName)) codePage_.push_back(&entry);
        if (!SurvivesLocale(name)) outsideLocale_.push_back(&entry);
        if (LeavesItsFolder(name)) climbing_.push_back(&entry);
        if (IsDeceptive(name, rawName)) deceptive_.push_back(&entry);
        LookForSecondName(entry);
    }

    void Report() {
        AddGroup(backslash_, FindingId::Backslash,
                 {"has a '\\' and is never found", "have a '\\' and are never found"}, findings_);
        AddGroup(readAsSlash_, FindingId::Backslash, Severity::Info,
                 {"is written with '\\' and read with '/'", "are written with '\\' and read with '/'"},
                 FirstWritten(container_, readAsSlash_), findings_);
        AddGroup(leadingSlash_, FindingId::LeadingSlash,
                 {"begins with '/' and is never found", "begin with '/' and are never found"},
                 findings_);
        AddGroup(wildcard_, FindingId::WildcardInName,
                 {"has characters of a pattern", "have characters of a pattern"}, findings_);
        AddGroup(codePage_, FindingId::NameEncoding,
                 {"is not UTF-8 and is read as code page 437",
                  "are not UTF-8 and are read as code page 437"},
                 findings_);
        AddGroup(outsideLocale_, FindingId::NameEncoding,
                 {"is not text in the encoding of the locale, which the library asks in",
                  "are not text in the encoding of the locale, which the library asks in"},
                 findings_);
        AddGroup(pieces_, FindingId::InterleavedPart,
                 {"is that of a piece of a part; pieces are not joined",
                  "are those of pieces of parts; pieces are not joined"},
                 findings_);
        AddGroup(climbing_, FindingId::PathClimbs,
                 {"has '.', '..' or empty segments, or a drive letter",
                  "have '.', '..' or empty segments, or a drive letter"},
                 findings_);
        AddGroup(deceptive_, FindingId::DeceptiveName, KindOf(FindingId::DeceptiveName).severity,
                 {"has control characters or turns the direction of writing",
                  "have control characters or turn the direction of writing"},
                 FirstSpelled(container_, deceptive_), findings_);
    }

private:
    // Also when it is not quite the name: then it is told of as missing.
    bool IsToldOf(std::string_view name) const {
        if (name == kContentTypesEntry) return true;
        return !container_.Has(kContentTypesEntry) && ResemblesContentTypes(name);
    }

    // A name is read with '/' where the system that wrote it has '\'.
    void LookForBackslash(const ContainerEntry& entry, std::string_view rawName) {
        if (entry.name.find('\\') != entry.name.npos) {
            backslash_.push_back(&entry);
        } else if (rawName.find('\\') != rawName.npos) {
            readAsSlash_.push_back(&entry);
        }
    }

    void LookForSecondName(const ContainerEntry& entry) {
        const std::optional<std::string> second = UnicodePath(container_, entry);
        if (!second || *second == entry.name) return;
        findings_.Add(FindingId::UnicodePath, [&](Finding& finding) {
            finding.entry = entry.name;
            finding.offset = entry.directoryPosition;
            finding.cause = "a Unicode Path field names it " + Shown(*second);
        });
    }

    const Container& container_;
    Findings& findings_;
    NameGroup backslash_, readAsSlash_, leadingSlash_, wildcard_, codePage_, outsideLocale_, pieces_,
        climbing_, deceptive_;
};

void LookForRepeatedNames(const Subject& subject, Findings& findings) {
    subject.Names().ForEachRepeated([&](const ContainerEntry& first, const ContainerEntry& other) {
        const bool isSame = subject.Find(other.name) != &other;
        findings.Add(
            isSame ? FindingId::DuplicateName : FindingId::CaseDuplicate, [&](Finding& finding) {
                finding.entry = other.name;
                finding.offset = other.directoryPosition;
                finding.cause = isSame ? "the name occurs again; the library reads the first entry"
                                       : "differs only in letter case from " + Shown(first.name);
            });
    });
}

}  // namespace

void CheckEntryNames(const Subject& subject, Findings& findings) {
    if (!subject.HasDirectory()) return;
    EntryNames names(*subject.container, findings);
    for (const ContainerEntry& entry : subject.container->Entries()) names.Look(entry);
    names.Report();
    LookForRepeatedNames(subject, findings);
}

}  // namespace vexpa_tool

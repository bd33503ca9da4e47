// VX102, VX103, VX115 and VX602: how the archive lies in its file.

#include "tool/check/Groups.h"
#include "tool/check/Shown.h"
#include "tool/container/Layout.h"
#include "tool/text/Size.h"

namespace vexpa_tool {

namespace {

std::string Bytes(std::uint64_t count) {
    return Counted(count, "byte", "bytes");
}

// A word on what the bytes are, where that can be seen.
std::string Remark(const Container& container, const ByteRange& range) {
    const std::string start = container.Bytes(range.start, std::min<std::uint64_t>(range.Size(), 512));
    if (start.starts_with("PK\3\4")) return ", which begin like another archive";
    if (start.starts_with("#!")) return ", which begin like a script";
    if (start.starts_with("MZ") || start.starts_with("\x7F"
                                                     "ELF"))
        return ", which begin like a program";
    const bool isZero = start.find_first_not_of('\0') == std::string::npos;
    return isZero && range.Size() <= start.size() ? ", all zero" : "";
}

void AddRest(const Container& container, const ByteRange& range, const char* where,
             Findings& findings) {
    if (range.Size() == 0) return;
    findings.Add(FindingId::BytesAfter, [&](Finding& finding) {
        finding.offset = range.start;
        finding.cause = Bytes(range.Size()) + " " + where + Remark(container, range);
    });
}

void CheckGaps(const Container& container, const Layout& layout, Findings& findings) {
    if (layout.before.Size() != 0) {
        findings.Add(FindingId::BytesBefore, [&](Finding& finding) {
            finding.offset = 0;
            finding.cause = Bytes(layout.before.Size()) + " before the first entry" +
                            Remark(container, layout.before);
        });
    }
    if (layout.gapBytes != 0) {
        findings.Add(FindingId::BytesAfter, [&](Finding& finding) {
            finding.offset = layout.firstGap.start;
            finding.cause = Bytes(layout.gapBytes) + " between the entries that belong to none" +
                            Remark(container, layout.firstGap);
        });
    }
    AddRest(container, layout.afterEntries, "between the last entry and the directory", findings);
}

void CheckEnds(const Container& container, const Layout& layout, Findings& findings) {
    AddRest(container, layout.afterDirectory, "between the directory and the end record", findings);
    AddRest(container, layout.afterEnd, "after the end of the archive", findings);
    if (layout.missingComment == 0) return;
    findings.Add(FindingId::EndRecordDiffers, [&](Finding& finding) {
        finding.offset = container.End().position;
        finding.cause = "the end record claims a comment of " + Bytes(container.End().commentSize) +
                        ", " + GroupedDigits(layout.missingComment) + " more than the file has";
    });
}

void AddDifference(const Container& container, const std::string& cause, Findings& findings) {
    findings.Add(FindingId::EndRecordDiffers, [&](Finding& finding) {
        finding.offset = container.End().position;
        finding.cause = cause;
    });
}

void CheckEndRecord(const Container& container, const Layout& layout, Findings& findings) {
    const ContainerEnd& end = container.End();
    const std::uint64_t count = container.EntryCount();
    const std::uint64_t size = end.directoryEnd - end.directoryStart;
    const std::string says = "the end record says ", has = ", but the directory has ";
    if (count != end.claimedCount && count > 0xFFFF && (count & 0xFFFF) == end.claimedCount) {
        AddDifference(container,
                      "the number of entries, " + GroupedDigits(count) +
                          ", needs zip64 records, which "
                          "are missing",
                      findings);
    } else if (count != end.claimedCount) {
        AddDifference(container,
                      says + Counted(end.claimedCount, "entry", "entries") + has + GroupedDigits(count),
                      findings);
    }
    if (size != end.claimedSize) {
        AddDifference(container,
                      says + "the directory has " + Bytes(end.claimedSize) + ", but it has " +
                          GroupedDigits(size),
                      findings);
    }
    // Bytes before the archive shift every offset by as much: that is told of already, unless the
    // first entry is not known.
    if (!container.IsWhole()) return;
    if (end.archiveStart == 0 || end.archiveStart == layout.before.Size()) return;
    AddDifference(container,
                  says + "the directory begins at offset " + GroupedDigits(end.claimedOffset) +
                      ", but it begins at " + GroupedDigits(end.directoryStart),
                  findings);
}

void CheckOverlaps(const Container& container, const Layout& layout, Findings& findings) {
    for (const Overlap& overlap : layout.overlaps) {
        const ContainerEntry& first = container.Entries()[overlap.first];
        const ContainerEntry& second = container.Entries()[overlap.second];
        findings.Add(FindingId::Overlap, [&](Finding& finding) {
            finding.entry = second.name;
            finding.offset = second.headerPosition;
            finding.cause = first.headerPosition == second.headerPosition
                                ? "has the same bytes as the entry " + Shown(first.name)
                                : "begins inside the entry " + Shown(first.name);
        });
    }
    // No more are kept than are told of.
    for (std::uint64_t i = layout.overlaps.size(); i < layout.overlapCount; ++i) {
        findings.Add(FindingId::Overlap, [](Finding&) {});
    }
    if (!layout.intoDirectory) return;
    findings.Add(FindingId::Overlap, [&](Finding& finding) {
        const ContainerEntry& entry = container.Entries()[*layout.intoDirectory];
        finding.entry = entry.name;
        finding.offset = entry.headerPosition;
        finding.cause = "reaches into the directory";
    });
}

}  // namespace

void CheckLayout(const Subject& subject, Findings& findings) {
    if (!subject.HasDirectory()) return;
    const Container& container = *subject.container;
    const Layout layout = LayOut(container);
    if (layout.isComplete) CheckGaps(container, layout, findings);
    CheckEnds(container, layout, findings);
    CheckEndRecord(container, layout, findings);
    CheckOverlaps(container, layout, findings);
}

}  // namespace vexpa_tool

// VX101: why an archive has no directory.

#include "tool/check/Groups.h"
#include "tool/check/Shown.h"
#include "tool/container/DirectoryFault.h"
#include "tool/text/Size.h"

namespace vexpa_tool {

namespace {

using Kind = DirectoryFault::Kind;

std::string Offset(std::uint64_t offset) {
    return "offset " + GroupedDigits(offset);
}

std::string NameOf(std::string_view entry) {
    return entry.empty() ? "an entry without a name" : "the entry " + Shown(entry);
}

// Entries are told of by their local headers.
std::string CauseOf(const DirectoryFault& fault, std::uint64_t fileSize) {
    const std::string entries = Counted(fault.count, "entry", "entries");
    const std::string noEnd = "no end record: the file ";
    switch (fault.kind) {
        case Kind::CutInsideEntry:
            return noEnd + "ends inside " + NameOf(fault.entry) + ", the last of " + entries + " found";
        case Kind::CutBeforeDirectory:
            return noEnd + "is cut off after " + entries + ", where its directory should begin";
        case Kind::CutInsideDirectory:
            return noEnd + "is cut off inside its directory, which begins at " + Offset(fault.position);
        case Kind::CutInsideEndRecord:
            return "the file is cut off inside its end record, which begins at " +
                   Offset(fault.position);
        case Kind::NoEndRecord:
            return "no end record: after " + entries + " something else follows, at " +
                   Offset(fault.position);
        case Kind::NoDirectory:
            return "the end record says that the directory begins at " + Offset(fault.claimedOffset) +
                   " and has " + GroupedDigits(fault.claimedSize) + " bytes, but " +
                   (fault.claimedOffset >= fileSize ? "the file has only " + GroupedDigits(fileSize)
                                                    : "none is there");
        case Kind::DirectoryBreaksOff:
            return "the directory breaks off after " + entries + ": the header at " +
                   Offset(fault.position) + " reaches beyond its end";
        case Kind::DirectoryMiscounted:
            return "the end record fits nothing: it says " + GroupedDigits(fault.claimedCount) +
                   " entries in " + GroupedDigits(fault.claimedSize) +
                   " bytes, but the headers end after " + GroupedDigits(fault.count) + ", at " +
                   Offset(fault.position);
        case Kind::NoArchive:
            break;
    }
    return "not a zip archive";
}

std::uint64_t PlaceOf(const DirectoryFault& fault) {
    return fault.kind == Kind::NoDirectory ? fault.endRecord : fault.position;
}

}  // namespace

void CheckDirectory(const Subject& subject, Findings& findings) {
    if (!subject.container || subject.HasDirectory() || findings.Stop() != nullptr) return;
    findings.AddStop(FindingId::NoDirectory, [&](Finding& finding) {
        const DirectoryFault fault = FindDirectoryFault(*subject.container);
        finding.offset = PlaceOf(fault);
        finding.cause = CauseOf(fault, subject.container->FileSize());
    });
}

}  // namespace vexpa_tool

// VX107, VX109, VX113, VX116, VX601, VX603 and VX608: what the headers say of the entries' data.

#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "tool/check/Groups.h"
#include "tool/check/Shown.h"
#include "tool/container/EntryDamage.h"
#include "tool/container/LocalComparison.h"
#include "tool/container/LocalHeader.h"
#include "tool/container/Names.h"
#include "tool/text/Local.h"
#include "tool/text/Size.h"

namespace vexpa_tool {

namespace {

constexpr std::uint64_t kLargeEntry = 1 << 20;
constexpr std::uint64_t kHighRatio = 100;

constexpr std::pair<LocalDifference, const char*> kDifferenceNames[] = {
    {kNameDiffers, "the name"},
    {kMethodDiffers, "the method"},
    {kEncryptionDiffers, "whether it is encrypted"},
    {kCrcDiffers, "the CRC"},
    {kCompressedSizeDiffers, "the packed size"},
    {kSizeDiffers, "the size"},
};

void Locate(const ContainerEntry& entry, Finding& finding) {
    finding.entry = entry.name;
    finding.offset = entry.headerPosition == kNowhere ? entry.directoryPosition : entry.headerPosition;
}

// The local header's name, where that differs.
std::string OtherName(const Container& container, const ContainerEntry& entry) {
    const auto header = ReadLocalHeader(container, entry.headerPosition, WideSizes::Leave);
    return header ? "; the local header names it " + Shown(FromLocal(LocalName(container, *header)))
                  : "";
}

void CheckLocalHeader(const Container& container, const ContainerEntry& entry, unsigned differences,
                      Findings& findings) {
    ShownList fields(std::size(kDifferenceNames));
    for (const auto& [bit, name] : kDifferenceNames) {
        if ((differences & bit) != 0) fields.Add(std::string_view(name));
    }
    if (fields.Count() == 0) return;
    findings.Add(FindingId::LocalHeaderDiffers, [&](Finding& finding) {
        Locate(entry, finding);
        finding.cause = "directory and local header disagree about " + fields.Text() +
                        ((differences & kNameDiffers) != 0 ? OtherName(container, entry) : "");
    });
}

void CheckPlace(const ContainerEntry& entry, unsigned differences, Findings& findings) {
    if ((differences & (kNoLocalHeader | kDataBeyondFile)) == 0) return;
    findings.Add(FindingId::DataElsewhere, [&](Finding& finding) {
        Locate(entry, finding);
        finding.cause = (differences & kNoLocalHeader) == 0
                            ? "its data reaches beyond the end of the file"
                        : entry.headerPosition == kNowhere
                            ? "the directory places it beyond the end of the file"
                            : "no local header lies at offset " + GroupedDigits(entry.headerPosition);
    });
}

// Empty for an entry that the library extracts.
std::string WhyUnextractable(const ContainerEntry& entry) {
    if (entry.onOtherDisk) return "lies on another disk of a split archive";
    if ((entry.flags & kEncrypted) != 0) return "is encrypted";
    if (entry.method == kStored || entry.method == kDeflated) return {};
    return "is packed with " + MethodName(entry.method) + ", which is not supported";
}

void CheckMethod(const ContainerEntry& entry, Findings& findings) {
    const std::string why = WhyUnextractable(entry);
    if (why.empty()) return;
    findings.Add(FindingId::Unextractable, [&](Finding& finding) {
        Locate(entry, finding);
        finding.cause = why;
    });
}

std::string Bytes(std::uint64_t count) {
    return Counted(count, "byte", "bytes");
}

void CheckSize(const ContainerEntry& entry, Findings& findings) {
    if (IsImpossibleSize(entry)) {
        findings.Add(FindingId::ImpossibleSize, [&](Finding& finding) {
            Locate(entry, finding);
            finding.cause = "claims " + Bytes(entry.size) + ", but has " + Bytes(entry.compressedSize) +
                            (entry.method == kStored ? " stored" : " of packed data, which hold less");
        });
    } else if (entry.size > kLargeEntry && entry.size / kHighRatio > entry.compressedSize) {
        findings.Add(FindingId::HighRatio, [&](Finding& finding) {
            Locate(entry, finding);
            finding.cause =
                "unpacks to " + Bytes(entry.size) + " from " + GroupedDigits(entry.compressedSize);
        });
    } else if (entry.method == kDeflated && entry.size == 0 && entry.compressedSize == 0) {
        findings.Add(FindingId::NoDeflateStream, [&](Finding& finding) {
            Locate(entry, finding);
            finding.cause = "is deflated, but has no packed data, not even that of no bytes";
        });
    }
}

void CheckCount(const Container& container, Findings& findings) {
    if (container.EntryCount() <= container.Entries().size()) return;
    findings.Add(FindingId::TooManyEntries, [&](Finding& finding) {
        finding.cause = "the archive has " + GroupedDigits(container.EntryCount()) +
                        " entries; only the first " + GroupedDigits(container.Entries().size()) +
                        " were looked at";
    });
}

}  // namespace

void CheckEntries(const Subject& subject, Findings& findings) {
    if (!subject.HasDirectory()) return;
    const Container& container = *subject.container;
    LocalComparison comparison(container);
    for (const ContainerEntry& entry : container.Entries()) {
        const unsigned differences = comparison.Compare(entry);
        CheckPlace(entry, differences, findings);
        CheckLocalHeader(container, entry, differences, findings);
        CheckMethod(entry, findings);
        CheckSize(entry, findings);
    }
    CheckCount(container, findings);
}

}  // namespace vexpa_tool

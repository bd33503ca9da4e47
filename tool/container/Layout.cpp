#include "tool/container/Layout.h"

#include <algorithm>
#include <optional>

#include "tool/container/LocalHeader.h"

namespace vexpa_tool {

namespace {

constexpr std::uint64_t kEndSize = 22;  // APPNOTE 4.3.16

// A data descriptor has a signature or none, and sizes of four bytes or of eight.
constexpr std::uint64_t kDescriptorSizes[] = {12, 16, 20, 24};

struct Extent {
    std::size_t entry;
    std::uint64_t start;
    std::uint64_t end;  // of the data
    bool hasDescriptor;
};

// An entry whose data cannot be there takes no room: that it cannot is told elsewhere.
std::vector<Extent> Extents(const Container& container) {
    std::vector<Extent> extents;
    const std::vector<ContainerEntry>& entries = container.Entries();
    extents.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::optional<LocalHeader> header =
            ReadLocalHeader(container, entries[i].headerPosition, WideSizes::Leave);
        if (!header) continue;
        const std::uint64_t data = header->DataPosition();
        const std::uint64_t end = data + entries[i].compressedSize;
        if (end < data || end > container.FileSize()) continue;
        extents.push_back({i, header->position, end, (header->flags & kHasDescriptor) != 0});
    }
    std::sort(extents.begin(), extents.end(), [](const Extent& a, const Extent& b) {
        return a.start != b.start ? a.start < b.start : a.entry < b.entry;
    });
    return extents;
}

// The bytes from the end of `extent` up to `next` that its descriptor does not account for.
ByteRange GapAfter(const Extent& extent, std::uint64_t next) {
    if (next <= extent.end) return {next, next};
    const std::uint64_t size = next - extent.end;
    const bool isDescriptor =
        extent.hasDescriptor && std::find(std::begin(kDescriptorSizes), std::end(kDescriptorSizes),
                                          size) != std::end(kDescriptorSizes);
    return isDescriptor ? ByteRange{next, next} : ByteRange{extent.end, next};
}

void AddOverlap(const Extent& first, const Extent& second, Layout& layout) {
    ++layout.overlapCount;
    if (layout.overlaps.size() < Layout::kMostOverlaps) {
        layout.overlaps.push_back({first.entry, second.entry});
    }
}

// Goes through the entries by position; `last` is the one that reaches furthest so far.
void AddEntries(const Container& container, Layout& layout) {
    const std::vector<Extent> extents = Extents(container);
    layout.isComplete = extents.size() == container.EntryCount();
    const std::uint64_t directory = container.End().directoryStart;
    layout.before = {0, extents.empty() ? directory : std::min(extents.front().start, directory)};
    layout.afterEntries = {directory, directory};
    if (extents.empty()) return;

    const Extent* last = &extents.front();
    for (std::size_t i = 1; i < extents.size(); ++i) {
        const Extent& next = extents[i];
        if (next.start < last->end) {
            AddOverlap(*last, next, layout);
        } else if (const ByteRange gap = GapAfter(*last, next.start); gap.Size() != 0) {
            if (layout.gapBytes == 0) layout.firstGap = gap;
            layout.gapBytes += gap.Size();
        }
        if (next.end > last->end) last = &next;
    }
    layout.afterEntries = GapAfter(*last, directory);
    if (last->end > directory) layout.intoDirectory = last->entry;
}

}  // namespace

Layout LayOut(const Container& container) {
    Layout layout;
    if (container.Source() != ContainerSource::Directory) return layout;
    AddEntries(container, layout);
    const ContainerEnd& end = container.End();
    layout.afterDirectory = {end.directoryEnd, end.recordsStart};
    const std::uint64_t fileSize = container.FileSize();
    const std::uint64_t archiveEnd = end.position + kEndSize + end.commentSize;
    layout.missingComment = archiveEnd - std::min(archiveEnd, fileSize);
    layout.afterEnd = {std::min(archiveEnd, fileSize), fileSize};
    return layout;
}

}  // namespace vexpa_tool

#include <cstdint>

#include "tests/tool/check/FindingRows.h"

namespace vexpa_test {

namespace {

ZipEntry& Image(SoundPackage& package) {
    return package.zip.entries.front();
}

// The first entry's local header says something else.
std::string WithLocal(std::size_t at, const std::string& bytes) {
    return SoundPackage().Bytes().replace(at, bytes.size(), bytes);
}

constexpr std::size_t kMethodAt = 8;
constexpr std::size_t kCrcAt = 14;

}  // namespace

FindingRows ArchiveRows() {
    return {
        {"an end record without its directory", Spoiled([](SoundPackage& p) {
             p.zip.directoryOffset = 7;
             p.zip.directorySize = 9;
         }),
         "VX101"},
        {"an end record that fits nothing", Spoiled([](SoundPackage& p) {
             p.zip.entryCount = 3;
             p.zip.directorySize = 9;
         }),
         "VX101"},
        {"bytes before", Spoiled([](SoundPackage& p) { p.zip.prefix = "#!/bin/sh\n"; }), "VX102"},
        {"bytes after", Spoiled([](SoundPackage& p) { p.zip.suffix = "x"; }), "VX103"},
        {"a comment is nothing", Spoiled([](SoundPackage& p) { p.zip.comment = "x"; }), ""},
        {"bytes before the end record", Spoiled([](SoundPackage& p) { p.zip.gap = "x"; }), "VX103"},
        {"bytes between entries", Spoiled([](SoundPackage& p) {
             Image(p).stored = true;
             Image(p).rawData = "\x89PNGrest";
             Image(p).compressedSize = 4;
         }),
         "VX103"},
        {"data descriptors are nothing",
         Spoiled([](SoundPackage& p) { Image(p).dataDescriptor = true; }), ""},
        {"zip64 is nothing", Spoiled([](SoundPackage& p) {
             p.zip.zip64 = true;
             Image(p).zip64 = true;
         }),
         ""},
        {"another method", WithLocal(kMethodAt, "\7"), "VX107"},
        {"another CRC", WithLocal(kCrcAt, "\7\7"), "VX107"},
        {"another name", Spoiled([](SoundPackage& p) { Image(p).localName = "word/media/image2.png"; }),
         "VX107"},
        {"encryption", Spoiled([](SoundPackage& p) { Image(p).flags = 1; }), "VX109"},
        {"bzip2", Spoiled([](SoundPackage& p) { Image(p).method = 12; }), "VX109"},
        {"another disk", Spoiled([](SoundPackage& p) { Image(p).disk = 1; }), "VX109"},
        {"a wrong CRC", Spoiled([](SoundPackage& p) { Image(p).crc = 1; }), "VX112"},
        {"bad data", Spoiled([](SoundPackage& p) { Image(p).rawData = "\xFF\xFF"; }), "VX112"},
        {"no local header", WithLocal(0, "pk"), "VX113"},
        {"an offset beyond the file", Spoiled([](SoundPackage& p) { Image(p).localOffset = 1 << 20; }),
         "VX113"},
        {"data beyond the file", Spoiled([](SoundPackage& p) { Image(p).compressedSize = 1 << 20; }),
         "VX113"},
        {"a deflated entry without data", Spoiled([](SoundPackage& p) {
             Image(p).content = "";
             Image(p).rawData = "";
         }),
         "VX116"},
        {"a stored entry without data", Spoiled([](SoundPackage& p) {
             Image(p).content = "";
             Image(p).stored = true;
         }),
         ""},
        {"a count too high", Spoiled([](SoundPackage& p) { p.zip.entryCount = 9; }), "VX115"},
        {"a directory offset that is off", Spoiled([](SoundPackage& p) { p.zip.directoryOffset = 1; }),
         "VX113 VX115 VX207 VX300"},
        {"a comment longer than the file",
         Spoiled([](SoundPackage& p) {
             p.zip.comment = "x";
         }).substr(0, Spoiled([](SoundPackage& p) { p.zip.comment = "x"; }).size() - 1),
         "VX115"},
    };
}

}  // namespace vexpa_test

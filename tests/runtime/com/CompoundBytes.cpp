#include "tests/runtime/com/CompoundBytes.h"

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-outfile.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-utils.h>

namespace vexpa_test {

namespace {

constexpr std::size_t kSector = 512;
constexpr std::size_t kEntry = 128;
constexpr std::size_t kLinks = kSector / 4;

void AddElements(GsfOutfile* storage, const std::vector<CompoundElement>& elements) {
    for (const CompoundElement& element : elements) {
        const bool isStorage = element.storage || !element.elements.empty();
        GsfOutput* child = gsf_outfile_new_child(storage, element.name.c_str(), isStorage);
        if (isStorage) {
            AddElements(GSF_OUTFILE(child), element.elements);
        } else {
            gsf_output_write(child, element.content.size(),
                             reinterpret_cast<const guint8*>(element.content.data()));
        }
        gsf_output_close(child);
        g_object_unref(child);
    }
}

void PutEntry(std::string& bytes, std::size_t at, const RawEntry& entry) {
    for (std::size_t i = 0; i < entry.name.size(); ++i) Put16(bytes, at + 2 * i, entry.name[i]);
    Put16(bytes, at + 64, static_cast<std::uint16_t>(2 * (entry.name.size() + 1)));
    bytes[at + 66] = static_cast<char>(entry.type);
    bytes[at + 67] = 1;  // black
    Put32(bytes, at + 68, entry.left);
    Put32(bytes, at + 72, entry.right);
    Put32(bytes, at + 76, entry.child);
    Put32(bytes, at + 116, entry.start);
    Put32(bytes, at + 120, entry.size);
}

}  // namespace

void Put16(std::string& bytes, std::size_t at, std::uint16_t value) {
    bytes[at] = static_cast<char>(value & 0xFF);
    bytes[at + 1] = static_cast<char>(value >> 8);
}

void Put32(std::string& bytes, std::size_t at, std::uint32_t value) {
    Put16(bytes, at, static_cast<std::uint16_t>(value));
    Put16(bytes, at + 2, static_cast<std::uint16_t>(value >> 16));
}

std::string CompoundBytes(const std::vector<CompoundElement>& elements, const std::string& rootClass) {
    gsf_init();
    GsfOutput* memory = gsf_output_memory_new();
    GsfOutfile* root = gsf_outfile_msole_new(memory);
    if (!rootClass.empty()) {
        gsf_outfile_msole_set_class_id(GSF_OUTFILE_MSOLE(root),
                                       reinterpret_cast<const guint8*>(rootClass.data()));
    }
    AddElements(root, elements);
    gsf_output_close(GSF_OUTPUT(root));
    g_object_unref(root);
    std::string bytes(
        reinterpret_cast<const char*>(gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(memory))),
        static_cast<std::size_t>(gsf_output_size(memory)));
    g_object_unref(memory);
    return bytes;
}

// Header, FAT, directory, the rest.
std::string RawCompoundBytes(const std::vector<RawEntry>& directory, std::size_t sectors) {
    const std::size_t forDirectory = (directory.size() * kEntry + kSector - 1) / kSector;
    std::size_t forFat = 1;
    while (forFat * kLinks < forFat + forDirectory + sectors) ++forFat;
    std::string bytes((1 + forFat + forDirectory + sectors) * kSector, '\0');

    bytes.replace(0, 8, "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
    Put16(bytes, 24, 0x3E);
    Put16(bytes, 26, 3);
    Put16(bytes, 28, 0xFFFE);
    Put16(bytes, 30, 9);
    Put16(bytes, 32, 6);
    Put32(bytes, 44, static_cast<std::uint32_t>(forFat));
    Put32(bytes, 48, static_cast<std::uint32_t>(forFat));
    Put32(bytes, 56, 4096);
    Put32(bytes, 60, kEndOfChain);
    Put32(bytes, 68, kEndOfChain);
    for (std::size_t i = 0; i < 109; ++i) {
        Put32(bytes, 76 + 4 * i, i < forFat ? static_cast<std::uint32_t>(i) : kNoEntry);
    }
    for (std::size_t i = 0; i < forFat * kLinks; ++i) {
        const bool inDirectory = i >= forFat && i + 1 < forFat + forDirectory;
        std::uint32_t next = inDirectory ? static_cast<std::uint32_t>(i + 1) : kNoEntry;
        if (i < forFat) next = 0xFFFFFFFD;
        if (i + 1 == forFat + forDirectory) next = kEndOfChain;
        Put32(bytes, kSector + 4 * i, next);
    }
    for (std::size_t i = 0; i < directory.size(); ++i) {
        PutEntry(bytes, (1 + forFat) * kSector + i * kEntry, directory[i]);
    }
    return bytes;
}

}  // namespace vexpa_test

#include <gtest/gtest.h>

#include <functional>

#include "tests/tool/container/Archive.h"
#include "tool/container/EntryDamage.h"

namespace {

using namespace vexpa_test;
using namespace vexpa_tool;

TEST(EntryDamage, IsTheFirstReasonThatDataCannotBeHad) {
    struct Row {
        const char* shows;
        std::function<void(ZipEntry&)> change;
        EntryDamage damage;
    };
    const Row rows[] = {
        {"a sound entry", [](ZipEntry&) {}, EntryDamage::None},
        {"a sound stored entry", [](ZipEntry& e) { e.stored = true; }, EntryDamage::None},
        {"an empty entry", [](ZipEntry& e) { e.content.clear(); }, EntryDamage::None},
        {"another disk", [](ZipEntry& e) { e.disk = 1; }, EntryDamage::OnOtherDisk},
        {"encryption", [](ZipEntry& e) { e.flags = 1; }, EntryDamage::Encrypted},
        {"bzip2", [](ZipEntry& e) { e.method = 12; }, EntryDamage::UnknownMethod},
        {"no local header", [](ZipEntry& e) { e.localOffset = 3; }, EntryDamage::NoLocalHeader},
        {"offset beyond", [](ZipEntry& e) { e.localOffset = 90000; }, EntryDamage::NoLocalHeader},
        {"data beyond", [](ZipEntry& e) { e.compressedSize = 90000; }, EntryDamage::DataBeyondFile},
        {"a size no data can hold", [](ZipEntry& e) { e.size = 1U << 30; },
         EntryDamage::ImpossibleSize},
        {"stored, but sizes differ",
         [](ZipEntry& e) {
             e.stored = true;
             e.size = 3;
         },
         EntryDamage::ImpossibleSize},
        {"bad data", [](ZipEntry& e) { e.rawData = "\xFF\xFF\xFF"; }, EntryDamage::BadData},
        {"fewer bytes than claimed", [](ZipEntry& e) { e.size = e.content.size() + 1; },
         EntryDamage::WrongSize},
        {"more bytes than claimed", [](ZipEntry& e) { e.size = 3; }, EntryDamage::WrongSize},
        {"a wrong CRC", [](ZipEntry& e) { e.crc = 3; }, EntryDamage::WrongCrc},
        {"a wrong CRC of stored data",
         [](ZipEntry& e) {
             e.stored = true;
             e.crc = 3;
         },
         EntryDamage::WrongCrc},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.shows);
        ZipFile zip = Letters();
        row.change(zip.entries[0]);
        const Archive archive(zip);
        EXPECT_EQ(FindDamage(archive.container, archive.container.Entries()[0]), row.damage);
    }
}

}  // namespace

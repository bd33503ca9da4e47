#include "tests/fault/ArchiveChanges.h"

#include <cstdint>

#include "tests/support/ZipFile.h"

namespace vexpa_test {

std::string WithTheSameCheckSum(std::string text) {
    constexpr unsigned char kPolynomial[] = {0x41, 0x06, 0x71, 0xDB, 0x01};
    for (std::size_t at = 0; at + 8 <= text.size(); at += 8) {
        for (std::size_t i = 0; i < sizeof kPolynomial; ++i)
            text[at + i] = static_cast<char>(static_cast<unsigned char>(text[at + i]) ^ kPolynomial[i]);
    }
    return text;
}

namespace {

// Deflate that only stores: its bytes are the text's, so a mixture of two inflates as well.
std::string Unpacked(const std::string& text) {
    const auto size = static_cast<std::uint16_t>(text.size());
    std::string packed = "\x01";
    for (const std::uint16_t number : {size, static_cast<std::uint16_t>(~size)}) {
        packed.push_back(static_cast<char>(number & 0xFF));
        packed.push_back(static_cast<char>(number >> 8));
    }
    return packed + text;
}

std::string Archive(const std::string& before, const std::string& content, bool stored = false) {
    ZipFile zip;
    zip.Add("before", before).stored = true;
    zip.Add("entry", content).stored = stored;
    zip.Add("after", "more").stored = true;
    return zip.Bytes();
}

const std::string kText(96, 't');

Versions Moved() {
    return {Archive("", "old content"), Archive("something", "new content, which is longer")};
}

Versions InTheSamePlace() {
    return {Archive("", "old content", true), Archive("", "new content", true)};
}

Versions StoredWithTheSameCheckSum() {
    return {Archive("", kText, true), Archive("", WithTheSameCheckSum(kText), true)};
}

Versions DeflatedWithTheSameCheckSum() {
    ZipFile zip;
    ZipEntry& entry = zip.Add("entry", kText);
    entry.rawData = Unpacked(entry.content);
    Versions versions{zip.Bytes(), {}};
    zip.entries[0].content = WithTheSameCheckSum(kText);
    zip.entries[0].rawData = Unpacked(zip.entries[0].content);
    versions.becomes = zip.Bytes();
    return versions;
}

// The data stay where they are; the directory lists them in another order. A header of which
// the name is new and the rest old would lead to the other one's data.
Versions ReorderedDirectory() {
    ZipFile zip;
    zip.Add("other", "wrong").stored = true;
    zip.Add("entry", "right").stored = true;
    Versions versions{zip.Bytes(), {}};
    const std::size_t directory = versions.was.find("PK\x01\x02");
    const std::size_t header = 46 + 5;
    versions.becomes =
        versions.was.substr(0, directory) + versions.was.substr(directory + header, header) +
        versions.was.substr(directory, header) + versions.was.substr(directory + 2 * header);
    return versions;
}

Versions Grown() {
    ZipFile more;
    more.prefix = Archive("", "old content");
    more.Add("entry", "new content");
    return {more.prefix, more.Bytes()};
}

Versions CutInTheData() {
    const std::string bytes = Archive("", kText, true);
    return {bytes, bytes.substr(0, bytes.find(kText) + kText.size() / 2)};
}

Versions CutInTheDirectory() {
    const std::string bytes = Archive("", kText, true);
    return {bytes, bytes.substr(0, bytes.size() - 30)};
}

Versions CutToNothing() {
    return {Archive("", kText, true), ""};
}

}  // namespace

const std::vector<ArchiveChange>& ArchiveChanges() {
    static const std::vector<ArchiveChange> changes = {
        {"Moved", Moved()},
        {"InTheSamePlace", InTheSamePlace()},
        {"StoredWithTheSameCheckSum", StoredWithTheSameCheckSum()},
        {"DeflatedWithTheSameCheckSum", DeflatedWithTheSameCheckSum()},
        {"ReorderedDirectory", ReorderedDirectory()},
        {"Grown", Grown()},
        {"CutInTheData", CutInTheData()},
        {"CutInTheDirectory", CutInTheDirectory()},
        {"CutToNothing", CutToNothing()},
    };
    return changes;
}

}  // namespace vexpa_test

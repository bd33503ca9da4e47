// tests/tool/check/SoundPackage.h - a package without any finding, to be spoiled.
#ifndef VEXPA_TESTS_TOOL_CHECK_SOUNDPACKAGE_H_
#define VEXPA_TESTS_TOOL_CHECK_SOUNDPACKAGE_H_

#include <map>
#include <string>
#include <vector>

#include "tests/support/ScratchFile.h"
#include "tests/support/ZipFile.h"
#include "tool/check/Check.h"

namespace vexpa_test {

// Four pieces of text that most tests change, and the entries around them.
struct SoundPackage {
    SoundPackage();

    // Elements inside the root of each.
    std::string types;
    std::string relationships;
    std::string partRelationships;
    std::string document;  // the whole of word/document.xml

    ZipFile zip;  // the other entries, and how the archive lies

    // Entries in place of those that are made of the texts above; nothing leaves one out.
    std::map<std::string, std::optional<std::string>> instead;

    ZipEntry& Add(const std::string& name, const std::string& content) {
        return zip.Add(name, content);
    }
    ZipFile Make() const;
    std::string Bytes() const { return Make().Bytes(); }
};

// In the namespace of ECMA-376 Part 1.
std::string OfficeType(const std::string& tail);
std::string Relation(const std::string& id, const std::string& type, const std::string& target,
                     const std::string& more = {});

// What a deep check finds in these bytes.
vexpa_tool::CheckReport CheckBytes(const std::string& bytes, vexpa_tool::CheckOptions options = {});
vexpa_tool::CheckReport CheckDeeply(const std::string& bytes);

// "VX305 VX401": each id once.
std::string Ids(const vexpa_tool::CheckReport& report);

// The first finding of an id; fails the test when there is none.
vexpa_tool::Finding FindingOf(const vexpa_tool::CheckReport& report, vexpa_tool::FindingId id);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_TOOL_CHECK_SOUNDPACKAGE_H_

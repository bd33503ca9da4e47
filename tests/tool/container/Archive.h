// tests/tool/container/Archive.h - an archive on disk, and what the tool reads of it.
#ifndef VEXPA_TESTS_TOOL_CONTAINER_ARCHIVE_H_
#define VEXPA_TESTS_TOOL_CONTAINER_ARCHIVE_H_

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/ScratchFile.h"
#include "tests/support/ZipFile.h"
#include "tool/container/Container.h"

namespace vexpa_test {

struct Archive {
    explicit Archive(std::string_view bytes)
        : file(bytes), container(*vexpa_tool::Container::Read(file.Path())) {}
    explicit Archive(const ZipFile& zip) : Archive(zip.Bytes()) {}

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const vexpa_tool::ContainerEntry& entry : container.Entries())
            names.emplace_back(entry.name);
        return names;
    }

    ScratchFile file;
    vexpa_tool::Container container;
};

// Three entries, a, b and c.
inline ZipFile Letters() {
    ZipFile zip;
    zip.Add("a", "first");
    zip.Add("b", "second");
    zip.Add("c", std::string(1000, 'c'));
    return zip;
}

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_TOOL_CONTAINER_ARCHIVE_H_

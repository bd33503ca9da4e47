// Count and names of an archive.
#include <vector>

#include "fuzz/FuzzTarget.h"
#include "fuzz/InputFile.h"
#include "vexpa/platform/Runtime.h"

using vexpa_fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const vexpa_fuzz::InputFile file(vexpa_fuzz::Bytes(data, size));
    const std::u16string path = file.Path16();

    std::int32_t count = -1;
    if (_XGetZipFileCount(path.c_str(), &count) != S_OK) {
        Require(count == 0, "a failed count is 0");
        return 0;
    }
    constexpr std::size_t kDirectoryHeader = 46;  // APPNOTE 4.3.12, without the name
    Require(count >= 0 && static_cast<std::size_t>(count) <= size / kDirectoryHeader,
            "every entry has a header in the file");

    std::vector<const char16_t*> names(static_cast<std::size_t>(count));
    Require(_XGetZipFileList(path.c_str(), names.data(), count) == S_OK,
            "an archive that was counted is listed");
    std::size_t units = 0;
    for (const char16_t* name : names) units += u_strlen(name);
    Require(units <= size, "no name is longer than its bytes");
    return 0;
}

#include "tests/runtime/zip/ZipClient.h"

#include <clocale>
#include <cstdlib>

#include "tests/support/ScratchFile.h"
#include "vexpa/platform/Runtime.h"

namespace vexpa_test {

namespace {

// Before any text is converted: the conversion keeps the encoding that it finds first.
[[maybe_unused]] const char* const kLocale = std::setlocale(LC_ALL, "C.UTF-8");

}  // namespace

const char* const kSmallText =
    "the quick brown fox jumps over the lazy dog, the lazy dog, the lazy dog";

std::optional<Names> ListZip(const std::string& path) {
    const std::u16string path16 = Utf16(path);
    std::int32_t count = -1;
    if (_XGetZipFileCount(path16.c_str(), &count) != S_OK) return std::nullopt;
    std::vector<const char16_t*> names(static_cast<std::size_t>(count));
    if (_XGetZipFileList(path16.c_str(), names.data(), count) != S_OK) return std::nullopt;
    return Names(names.begin(), names.end());
}

std::optional<std::string> UnzipEntry(const std::string& path, std::string request) {
    std::string zip = path;
    UzpOpts options{};
    UzpCB callbacks{};
    callbacks.structlen = 24;
    UzpBuffer result{};
    const int done = UzpUnzipToMemory(zip.data(), request.data(), &options, &callbacks, &result);
    std::string bytes(result.strptr, result.strlength);
    std::free(result.strptr);
    if (done == 0) return std::nullopt;
    return bytes;
}

std::optional<Names> ListBytes(const std::string& bytes) {
    return ListZip(ScratchFile(bytes).Path());
}

std::optional<std::string> UnzipBytes(const std::string& bytes, const std::string& request) {
    return UnzipEntry(ScratchFile(bytes).Path(), request);
}

ZipFile SmallZip() {
    ZipFile zip;
    zip.Add("a.txt", kSmallText);
    zip.Add("b/c.txt", "stored text").stored = true;
    return zip;
}

}  // namespace vexpa_test

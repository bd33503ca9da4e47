// Extraction by a pattern and by every name. An input is the request, a line, and the archive.
#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

#include "fuzz/FuzzTarget.h"
#include "fuzz/InputFile.h"
#include "vexpa/platform/Runtime.h"

namespace {

using vexpa_fuzz::InputFile;
using vexpa_fuzz::Require;

constexpr std::size_t kMostNames = 64;

std::optional<std::string> Extract(const InputFile& file, std::string request) {
    std::string path = file.Path();
    UzpOpts options{};
    UzpCB callbacks{};
    callbacks.structlen = sizeof callbacks;
    UzpBuffer result{};
    const int done = UzpUnzipToMemory(path.data(), request.data(), &options, &callbacks, &result);
    const std::unique_ptr<char, decltype(&std::free)> bytes(result.strptr, &std::free);
    if (done == 0) return std::nullopt;
    if (result.strlength == 0) return std::string();
    return std::string(bytes.get(), result.strlength);
}

void ExtractTwice(const InputFile& file, const std::string& request, std::size_t fileSize) {
    const std::optional<std::string> bytes = Extract(file, request);
    Require(Extract(file, request) == bytes, "the same request gives the same bytes");
    // The most that deflate makes of a byte is 1032 bytes.
    Require(!bytes || bytes->size() <= 1032 * fileSize, "no entry grows beyond what deflate can do");
}

std::vector<std::string> PlainNames(const InputFile& file) {
    const std::u16string path = file.Path16();
    std::int32_t count = 0;
    if (_XGetZipFileCount(path.c_str(), &count) != S_OK) return {};
    std::vector<const char16_t*> listed(static_cast<std::size_t>(count));
    if (_XGetZipFileList(path.c_str(), listed.data(), count) != S_OK) return {};

    std::vector<std::string> names;
    for (const char16_t* text : listed) {
        const std::u16string_view name(text);
        const bool isAscii =
            std::all_of(name.begin(), name.end(), [](char16_t unit) { return unit < 0x80; });
        if (isAscii && names.size() < kMostNames) names.emplace_back(name.begin(), name.end());
    }
    return names;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vexpa_fuzz::Lines lines(vexpa_fuzz::Bytes(data, size));
    const std::string request(lines.Next());
    const InputFile file(lines.Rest());

    ExtractTwice(file, request, size);
    for (const std::string& name : PlainNames(file)) ExtractTwice(file, name, size);
    return 0;
}

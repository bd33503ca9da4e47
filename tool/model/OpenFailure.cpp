#include "tool/model/OpenFailure.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <system_error>
#include <vector>

#include "runtime/Runtime.h"
#include "tool/text/Local.h"
#include "tool/text/Unicode.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/base/Result.h"

namespace vexpa_tool {

namespace {

using tarn::ComPtr;
using tarn::Failed;

constexpr std::size_t kSignatureSize = 8;
constexpr std::string_view kCompoundFile = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

std::string SystemError() {
    return "cannot be read: " + std::generic_category().message(errno);
}

// Empty when the file can be read and does not look like something else than a zip archive.
std::string LookAtTheFile(const std::string& file) {
    if (!IsLocalText(file)) return "the file name is not text in the encoding of the locale";
    struct stat status;
    if (stat(file.c_str(), &status) != 0) return SystemError();
    // Reading a pipe could wait for ever.
    if (!S_ISREG(status.st_mode)) return "not a regular file";
    if (status.st_size == 0) return "empty file";

    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> opened(std::fopen(file.c_str(), "rb"),
                                                                 std::fclose);
    if (!opened) return SystemError();
    std::array<char, kSignatureSize> signature{};
    const std::size_t read = std::fread(signature.data(), 1, signature.size(), opened.get());
    if (std::ferror(opened.get()) != 0) return SystemError();
    if (std::string_view(signature.data(), read) == kCompoundFile) {
        return "not a zip archive: a compound file, as a password-protected or a legacy document is";
    }
    return {};
}

bool HasEntry(const std::vector<const char16_t*>& names, std::u16string_view name) {
    return std::any_of(names.begin(), names.end(), [&](const char16_t* one) { return one == name; });
}

// What the document in this entry is, or null.
ComPtr<IDomDocument> ParseEntry(std::string file, std::string pattern, std::string& trouble) {
    ComPtr<IDomDocument> document;
    UzpOpts options{};
    UzpCB callbacks{};
    callbacks.structlen = sizeof callbacks;
    callbacks.msgfn = [](void*, unsigned char*, unsigned long, int) { return 0; };
    UzpBuffer bytes{};
    const bool extracted =
        UzpUnzipToMemory(file.data(), pattern.data(), &options, &callbacks, &bytes) != 0;
    const std::unique_ptr<char, void (*)(void*)> owned(bytes.strptr, std::free);
    if (!extracted) {
        trouble = "cannot be extracted";
        return document;
    }
    ComPtr<IStream> stream;
    if (Failed(_XCreateStreamOnHGBL(nullptr, 1, stream.Out()))) return document;
    stream->Write(bytes.strptr, static_cast<std::uint32_t>(bytes.strlength), nullptr);
    stream->Seek(0, STREAM_SEEK_SET, nullptr);
    _XDOMParse(document.Out(), stream.Get(), 0xFFFFFFFF, 0, 0, 0);
    if (!document) trouble = "is not well-formed XML";
    return document;
}

// The target of the last relationship, the one that decides.
std::string LastTarget(IDomDocument& document) {
    IDomNodeList* relationships = document.GetElementsByTagName(u"Relationship");
    for (std::uint32_t i = relationships->GetLength(); i > 0; --i) {
        IDomAttributes* attributes = relationships->GetItem(i - 1)->GetAttributes();
        if (attributes == nullptr) continue;
        IDomAttribute* target = attributes->GetNamedItem(u"Target");
        const char16_t* value = target == nullptr ? nullptr : target->GetValue();
        return value == nullptr ? std::string() : Printable(value);
    }
    return {};
}

std::string LookAtTheArchive(const std::string& file) {
    const std::u16string path = FromLocal(file);
    std::int32_t count = 0;
    if (Failed(_XGetZipFileCount(path.c_str(), &count))) return "not a zip archive, or a damaged one";
    std::vector<const char16_t*> names(static_cast<std::size_t>(count));
    if (count > 0 && Failed(_XGetZipFileList(path.c_str(), names.data(), count))) {
        return "not a zip archive, or a damaged one";
    }
    const std::string contentTypes = "[Content_Types].xml";
    const std::string relationships = "_rels/.rels";
    if (!HasEntry(names, u"[Content_Types].xml")) return "no package: no entry " + contentTypes;
    if (!HasEntry(names, u"_rels/.rels")) return "no package: no entry " + relationships;

    std::string trouble;
    ParseEntry(file, "\\[Content_Types\\].xml", trouble);
    if (!trouble.empty()) return "no package: " + contentTypes + " " + trouble;
    const ComPtr<IDomDocument> document = ParseEntry(file, relationships, trouble);
    if (!trouble.empty()) return "no package: " + relationships + " " + trouble;
    if (!document) return "no package: out of memory";
    return "no package: the last relationship has no part: " + LastTarget(*document.Get());
}

}  // namespace

std::string WhyNotOpened(const std::string& file) {
    const std::string reason = LookAtTheFile(file);
    return reason.empty() ? LookAtTheArchive(file) : reason;
}

}  // namespace vexpa_tool

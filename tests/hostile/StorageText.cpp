#include "tests/hostile/StorageText.h"

#include <vector>

#include "tests/hostile/PackageText.h"
#include "vexpa/base/ComPtr.h"

namespace vexpa_test {

using tarn::ComPtr;

namespace {

constexpr const char* kUnreadable = " unreadable";

// An element that is a storage is nested in what precedes; no file nests deeper than this in
// a test, and one that claims to must not nest the test's calls.
constexpr int kDeepest = 64;

std::string StreamText(IStorage& storage, const char16_t* name) {
    ComPtr<IStream> stream;
    if (storage.OpenStream(name, nullptr, 0, 0, stream.Out()) != S_OK) return kUnreadable;
    std::string bytes;
    std::vector<char> piece(64UL * 1024);
    std::uint32_t got = 0;
    do {
        if (stream->Read(piece.data(), static_cast<std::uint32_t>(piece.size()), &got) != S_OK)
            return kUnreadable;
        bytes.append(piece.data(), got);
    } while (got != 0);
    return " " + BytesText(bytes);
}

std::string ElementsText(IStorage& storage, int depth);

std::string InnerText(IStorage& storage, const char16_t* name, int depth) {
    ComPtr<IStorage> inner;
    if (storage.OpenStorage(name, nullptr, 0, nullptr, 0, inner.Out()) != S_OK) return kUnreadable;
    return depth == kDeepest ? "{...}" : ElementsText(*inner.Get(), depth + 1);
}

std::string ElementsText(IStorage& storage, int depth) {
    ComPtr<IEnumSTATSTG> elements;
    if (storage.EnumElements(0, nullptr, 0, elements.Out()) != S_OK) return kUnreadable;
    std::string text;
    STATSTG element;
    while (elements->Next(1, &element, nullptr) == S_OK) {
        const std::u16string name = element.pwcsName == nullptr ? u"" : element.pwcsName;
        _XCoTaskMemFree(element.pwcsName);
        if (!text.empty()) text += ", ";
        text += NameText(name);
        text += element.type == STGTY_STORAGE ? InnerText(storage, name.c_str(), depth)
                                              : StreamText(storage, name.c_str());
    }
    return "{" + text + "}";
}

}  // namespace

std::string StorageText(IStorage& storage) {
    return ElementsText(storage, 0);
}

}  // namespace vexpa_test

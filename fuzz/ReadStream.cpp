#include "fuzz/ReadStream.h"

#include <string>
#include <utility>
#include <vector>

#include "fuzz/FuzzTarget.h"
#include "vexpa/base/ComPtr.h"

namespace vexpa_fuzz {

namespace {

using tarn::ComPtr;

constexpr std::size_t kDirectoryEntry = 128;  // [MS-CFB] 2.6.1

// Reading sums the bytes up, so that a sanitizer sees each of them.
std::uint64_t ReadToEnd(IStream& stream, std::uint32_t& sum) {
    std::vector<unsigned char> piece(4096);
    std::uint64_t total = 0;
    for (;;) {
        std::uint32_t got = 0;
        if (stream.Read(piece.data(), static_cast<std::uint32_t>(piece.size()), &got) != S_OK ||
            got == 0)
            return total;
        Require(got <= piece.size(), "a read gives no more than was asked for");
        for (std::uint32_t i = 0; i < got; ++i) sum = sum * 31 + piece[i];
        total += got;
    }
}

struct Element {
    std::u16string name;
    std::uint32_t type;
};

std::uint64_t SizeOf(IStream& stream) {
    STATSTG stat{};
    Require(stream.Stat(&stat, STATFLAG_NONAME) == S_OK, "a stream tells its size");
    return stat.cbSize;
}

bool NextElement(IEnumSTATSTG& elements, Element& element) {
    STATSTG stat{};
    if (elements.Next(1, &stat, nullptr) != S_OK) return false;
    element = {stat.pwcsName == nullptr ? u"" : stat.pwcsName, stat.type};
    _XCoTaskMemFree(stat.pwcsName);
    return true;
}

}  // namespace

std::uint64_t ReadStream(IStream& stream) {
    ComPtr<IStream> clone;
    if (stream.Clone(clone.Out()) != S_OK) return 0;
    std::uint32_t sum = 0;
    std::uint32_t sumOfClone = 0;
    const std::uint64_t total = ReadToEnd(stream, sum);
    Require(ReadToEnd(*clone.Get(), sumOfClone) == total && sum == sumOfClone,
            "a clone reads the same bytes");
    return total;
}

void ReadStorage(IStorage& storage, std::size_t fileSize) {
    std::vector<ComPtr<IStorage>> open;
    std::size_t seen = 0;
    const auto readOne = [&](IStorage& current) {
        ComPtr<IEnumSTATSTG> elements;
        if (current.EnumElements(0, nullptr, 0, elements.Out()) != S_OK) return;
        Element element;
        while (NextElement(*elements.Get(), element)) {
            // Where two storages have one name, the first is met twice, and so is all in it.
            if (++seen > fileSize / kDirectoryEntry) return;
            ComPtr<IStorage> inner;
            ComPtr<IStream> stream;
            const char16_t* name = element.name.c_str();
            if (element.type == STGTY_STORAGE) {
                if (current.OpenStorage(name, nullptr, 0, nullptr, 0, inner.Out()) == S_OK)
                    open.push_back(std::move(inner));
            } else if (current.OpenStream(name, nullptr, 0, 0, stream.Out()) == S_OK) {
                Require(ReadStream(*stream.Get()) <= SizeOf(*stream.Get()),
                        "a stream is no longer than its size");
            }
        }
    };
    readOne(storage);
    while (!open.empty()) {
        const ComPtr<IStorage> next = std::move(open.back());
        open.pop_back();
        readOne(*next.Get());
    }
}

}  // namespace vexpa_fuzz

// tests/runtime/com/CompoundWalk.h - reads all there is in a compound file.
#ifndef VEXPA_TESTS_RUNTIME_COM_COMPOUNDWALK_H_
#define VEXPA_TESTS_RUNTIME_COM_COMPOUNDWALK_H_

#include <string>
#include <vector>

#include "tests/runtime/com/Blocks.h"

namespace vexpa_test {

struct CompoundWalk {
    bool opened = false;
    std::size_t storages = 0;  // below the root
    std::size_t streams = 0;
    std::size_t damaged = 0;  // elements that do not open or do not read
    std::uint64_t bytes = 0;
};

inline std::u16string Utf16Number(std::uint32_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

inline bool ReadsWhole(IStream& stream, std::uint64_t size) {
    std::vector<char> piece(64 * 1024);
    std::uint32_t got = 0;
    do {
        if (stream.Read(piece.data(), static_cast<std::uint32_t>(piece.size()), &got) != S_OK)
            return false;
        size -= got;
    } while (got != 0);
    return size == 0;
}

inline CompoundWalk WalkBytes(const std::string& bytes) {
    CompoundWalk walk;
    HGBL block = NewBlock(bytes);
    std::vector<ComPtr<IStorage>> open(1);
    if (_XStgOpenStorageOnHGBL2(&block, 1, open[0].Out()) != S_OK) return walk;
    walk.opened = true;
    while (!open.empty()) {
        const ComPtr<IStorage> storage = std::move(open.back());
        open.pop_back();
        ComPtr<IEnumSTATSTG> elements;
        if (storage->EnumElements(0, nullptr, 0, elements.Out()) != S_OK) throw std::bad_alloc();
        STATSTG stat;
        while (elements->Next(1, &stat, nullptr) == S_OK) {
            const std::u16string name = stat.pwcsName == nullptr ? u"" : stat.pwcsName;
            _XCoTaskMemFree(stat.pwcsName);
            ComPtr<IStorage> inner;
            ComPtr<IStream> stream;
            if (stat.type == STGTY_STORAGE) {
                if (storage->OpenStorage(name.c_str(), nullptr, 0, nullptr, 0, inner.Out()) == S_OK) {
                    ++walk.storages;
                    open.push_back(std::move(inner));
                } else {
                    ++walk.damaged;
                }
            } else if (storage->OpenStream(name.c_str(), nullptr, 0, 0, stream.Out()) == S_OK &&
                       ReadsWhole(*stream.Get(), stat.cbSize)) {
                ++walk.streams;
                walk.bytes += stat.cbSize;
            } else {
                ++walk.damaged;
            }
        }
    }
    return walk;
}

inline bool OpensWith(const std::string& bytes) {
    HGBL block = NewBlock(bytes);
    ComPtr<IStorage> storage;
    return _XStgOpenStorageOnHGBL2(&block, 1, storage.Out()) == S_OK;
}

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_RUNTIME_COM_COMPOUNDWALK_H_

// tests/runtime/com/Blocks.h - blocks and streams that hold given bytes.
#ifndef VEXPA_TESTS_RUNTIME_COM_BLOCKS_H_
#define VEXPA_TESTS_RUNTIME_COM_BLOCKS_H_

#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

#include "runtime/memory/GlobalBlock.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/platform/Runtime.h"

namespace vexpa_test {

using tarn::ComPtr;

inline HGBL NewBlock(std::string_view bytes) {
    HGBL block = _XGblAlloc(0, bytes.size());
    if (block == nullptr) throw std::bad_alloc();
    if (!bytes.empty()) std::memcpy(block->bytes, bytes.data(), bytes.size());
    return block;
}

// Owns its block.
inline ComPtr<IStream> StreamOver(std::string_view bytes) {
    ComPtr<IStream> stream;
    if (_XCreateStreamOnHGBL(NewBlock(bytes), 1, stream.Out()) != S_OK) throw std::bad_alloc();
    return stream;
}

inline std::uint64_t Position(IStream& stream) {
    std::uint64_t position = 0;
    if (stream.Seek(0, STREAM_SEEK_CUR, &position) != S_OK) throw std::runtime_error("no position");
    return position;
}

inline std::uint64_t SizeOf(IStream& stream) {
    STATSTG stat;
    if (stream.Stat(&stat, STATFLAG_NONAME) != S_OK) throw std::runtime_error("no stat");
    return stat.cbSize;
}

// From the seek position to the end, in small pieces.
inline std::string ReadRest(IStream& stream) {
    std::string bytes;
    char piece[1000];
    std::uint32_t got = 0;
    do {
        if (stream.Read(piece, sizeof piece, &got) != S_OK) throw std::runtime_error("cannot read");
        bytes.append(piece, got);
    } while (got != 0);
    return bytes;
}

inline std::string ReadAll(IStream& stream) {
    stream.Seek(0, STREAM_SEEK_SET, nullptr);
    return ReadRest(stream);
}

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_RUNTIME_COM_BLOCKS_H_

// fuzz/ReadStream.h - reads all there is in a stream or a storage.
#ifndef VEXPA_FUZZ_READSTREAM_H_
#define VEXPA_FUZZ_READSTREAM_H_

#include <cstddef>
#include <cstdint>

#include "vexpa/platform/Runtime.h"

namespace vexpa_fuzz {

// Reads to the end and again through a clone; answers how many bytes there were before a
// failure or the end.
std::uint64_t ReadStream(IStream& stream);

// Opens every storage and reads every stream below `storage`, which a file of `fileSize`
// bytes holds.
void ReadStorage(IStorage& storage, std::size_t fileSize);

}  // namespace vexpa_fuzz

#endif  // VEXPA_FUZZ_READSTREAM_H_

// fuzz/ReadZip.h - takes a sound archive apart, to be changed and written again.
#ifndef VEXPA_FUZZ_READZIP_H_
#define VEXPA_FUZZ_READZIP_H_

#include <optional>
#include <string_view>

#include "tests/support/ZipFile.h"

namespace vexpa_fuzz {

// The entries with their content unpacked, and packed as they were: packing is what takes the
// time, so only what is changed shall be packed again. Nothing when the archive is damaged, or uses
// more than ZipFile::Bytes writes for plain entries: a reader of its own, so that the
// mutator does not depend on the code it is there to break.
std::optional<vexpa_test::ZipFile> ReadZip(std::string_view bytes);

}  // namespace vexpa_fuzz

#endif  // VEXPA_FUZZ_READZIP_H_

// tests/runtime/zip/ZipClient.h - calls the zip service as its callers do.
#ifndef VEXPA_TESTS_RUNTIME_ZIP_ZIPCLIENT_H_
#define VEXPA_TESTS_RUNTIME_ZIP_ZIPCLIENT_H_

#include <optional>
#include <string>
#include <vector>

#include "tests/support/ZipFile.h"

namespace vexpa_test {

using Names = std::vector<std::u16string>;

// The names that the file at `path` lists; nothing when count or list fails.
std::optional<Names> ListZip(const std::string& path);

// The bytes that a request gives; nothing when it fails.
std::optional<std::string> UnzipEntry(const std::string& path, std::string request);

// The same for the archive in `bytes`.
std::optional<Names> ListBytes(const std::string& bytes);
std::optional<std::string> UnzipBytes(const std::string& bytes, const std::string& request);

// An archive with the entries "a.txt" (deflated) and "b/c.txt" (stored).
ZipFile SmallZip();
extern const char* const kSmallText;  // what is in its a.txt

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_RUNTIME_ZIP_ZIPCLIENT_H_

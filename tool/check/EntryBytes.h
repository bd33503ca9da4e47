// tool/check/EntryBytes.h - the bytes of an entry, by the call that the library makes for them.
#ifndef VEXPA_TOOL_CHECK_ENTRYBYTES_H_
#define VEXPA_TOOL_CHECK_ENTRYBYTES_H_

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "vexpa/base/ComPtr.h"
#include "vexpa/platform/Runtime.h"

namespace vexpa_tool {

class EntryBytes {
public:
    // Asks for the entry by its name as UTF-8, in which a backslash takes the next character
    // literally. Nothing when the library would get nothing.
    static std::optional<EntryBytes> Extract(const std::string& path, std::string_view pattern);

    std::string_view Text() const noexcept { return {bytes_.get(), size_}; }

    // The document in them as the library parses it; null when it does not parse.
    tarn::ComPtr<IDomDocument> Parse() const;
    // The compound file in them as the library opens it; null when there is none.
    tarn::ComPtr<IStorage> OpenStorage() const;

private:
    struct FreeBytes {
        void operator()(char* bytes) const noexcept { std::free(bytes); }
    };

    HGBL MakeBlock() const;  // null for no bytes

    explicit EntryBytes(const UzpBuffer& buffer) : bytes_(buffer.strptr), size_(buffer.strlength) {}

    std::unique_ptr<char, FreeBytes> bytes_;
    std::size_t size_;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_ENTRYBYTES_H_

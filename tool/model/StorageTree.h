// tool/model/StorageTree.h - the storages and streams of a part that is a compound file.
#ifndef VEXPA_TOOL_MODEL_STORAGETREE_H_
#define VEXPA_TOOL_MODEL_STORAGETREE_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vexpa/base/ComPtr.h"
#include "vexpa/platform/Runtime.h"

namespace vexpa_tool {

struct StorageElement {
    std::size_t level;    // 0 for the root
    std::size_t storage;  // the index of the storage that it lies in; its own for the root
    bool isStorage;
    bool isReadable;  // false for a storage that does not open
    std::u16string name;
    std::uint64_t size;  // of a stream
    GUID clsid;          // of a storage
};

// The root first, and the elements of a storage after it, as the library lists them.
class StorageTree {
public:
    explicit StorageTree(tarn::ComPtr<IStorage> root);

    const std::vector<StorageElement>& Elements() const noexcept { return elements_; }

    // The streams that `path` can mean: "ObjectPool/_1/Contents", or the end of one such path.
    // A whole path excludes its ends elsewhere.
    std::vector<std::size_t> FindStreams(std::u16string_view path) const;

    // "ObjectPool/_1/Contents"
    std::u16string PathOf(std::size_t element) const;

    // Null when it does not open.
    tarn::ComPtr<IStream> OpenStream(std::size_t element) const;

private:
    class Reader;
    bool HasTail(std::size_t element, std::u16string_view tail, bool& isWhole) const;

    tarn::ComPtr<IStorage> root_;
    std::vector<StorageElement> elements_;
};

// "{00020820-0000-0000-C000-000000000046}"
std::string ClsidText(const GUID& clsid);

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_MODEL_STORAGETREE_H_

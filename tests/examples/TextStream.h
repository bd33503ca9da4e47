// tests/examples/TextStream.h - a stream that hands out given bytes, as awkwardly as wanted.
#ifndef VEXPA_TESTS_EXAMPLES_TEXTSTREAM_H_
#define VEXPA_TESTS_EXAMPLES_TEXTSTREAM_H_

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

#include "vexpa/base/Result.h"
#include "vexpa/platform/Runtime.h"

namespace vexpa_test {

// Lives on the stack, so references are not counted. What importers do not call fails.
class TextStream final : public IStream {
public:
    // At most `piece` bytes are read at once. At the end reading fails with `atEnd`, if that
    // is a failure.
    explicit TextStream(std::string bytes, std::size_t piece = 1 << 20, HRESULT atEnd = S_OK)
        : bytes_(std::move(bytes)), piece_(piece), atEnd_(atEnd) {}

    HRESULT Read(void* destination, std::uint32_t size, std::uint32_t* read) override {
        const std::size_t count = std::min({std::size_t{size}, piece_, bytes_.size() - position_});
        std::memcpy(destination, bytes_.data() + position_, count);
        position_ += count;
        *read = static_cast<std::uint32_t>(count);
        return count == 0 ? atEnd_ : S_OK;
    }

    HRESULT QueryInterface(const GUID&, void**) override { return E_FAIL; }
    std::uint32_t AddRef() override { return 1; }
    std::uint32_t Release() override { return 1; }
    HRESULT Write(const void*, std::uint32_t, std::uint32_t*) override { return E_FAIL; }
    HRESULT Seek(std::int64_t, std::uint32_t, std::uint64_t*) override { return E_FAIL; }
    HRESULT SetSize(std::uint64_t) override { return E_FAIL; }
    HRESULT CopyTo(IStream*, std::uint64_t, std::uint64_t*, std::uint64_t*) override { return E_FAIL; }
    HRESULT Commit(std::uint32_t) override { return E_FAIL; }
    HRESULT Revert() override { return E_FAIL; }
    HRESULT LockRegion(std::uint64_t, std::uint64_t, std::uint32_t) override { return E_FAIL; }
    HRESULT UnlockRegion(std::uint64_t, std::uint64_t, std::uint32_t) override { return E_FAIL; }
    HRESULT Stat(STATSTG*, std::uint32_t) override { return E_FAIL; }
    HRESULT Clone(IStream**) override { return E_FAIL; }

private:
    std::string bytes_;
    std::size_t piece_;
    HRESULT atEnd_;
    std::size_t position_ = 0;
};

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_EXAMPLES_TEXTSTREAM_H_

// vexpa/xmlfx/ValueList.h - the values of a set, under their tokens.
#ifndef VEXPA_XMLFX_VALUELIST_H_
#define VEXPA_XMLFX_VALUELIST_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

#include "vexpa/base/Noncopyable.h"

namespace tarn::xmlfx {
class XmlRoAttr;

struct TokenAndValue {
    std::uint32_t token;
    XmlRoAttr* value;
};

// In the order of addition. The first few lie in the list itself: most elements have a text or
// a child or two, and for those an allocation costs more than all else.
class ValueList : Noncopyable {
public:
    std::size_t size() const noexcept { return size_; }
    const TokenAndValue* begin() const noexcept { return many_ ? many_.get() : few_; }
    const TokenAndValue* end() const noexcept { return begin() + size_; }
    const TokenAndValue& operator[](std::size_t index) const noexcept { return begin()[index]; }

    // Makes sure that the next Append has room.
    void MakeRoom() {
        if (size_ < capacity_) return;
        std::unique_ptr<TokenAndValue[]> more(new TokenAndValue[2 * capacity_]);
        std::copy_n(begin(), size_, more.get());
        many_ = std::move(more);
        capacity_ *= 2;
    }

    void Append(TokenAndValue item) noexcept { (many_ ? many_.get() : few_)[size_++] = item; }
    void Clear() noexcept { size_ = 0; }

private:
    static constexpr std::size_t kFew = 2;

    std::size_t size_ = 0;
    std::size_t capacity_ = kFew;
    std::unique_ptr<TokenAndValue[]> many_;  // all of them, when they are more than a few
    TokenAndValue few_[kFew];
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_VALUELIST_H_

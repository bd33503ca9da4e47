#include "vexpa/xmlfx/XmlRoAttrImpl.h"

#include <utility>

namespace tarn::xmlfx {

namespace {

constexpr std::size_t kSearchedOneByOne = 16;

// The sets whose last reference went while this thread was ending another one.
//
// A document decides how deep its elements nest. If a set ended its values while it ends
// itself, a deep tree would overflow the stack; so they queue up here, and the outermost
// Release ends them one after the other.
struct Ending {
    bool active = false;
    XmlRoAttrImpl* queue = nullptr;
};
constinit thread_local Ending ending;

}  // namespace

void XmlRoAttrImpl::Release() {
    if (DropReference()) End();
}

void XmlRoAttrImpl::End() noexcept {
    Ending& state = ending;
    if (state.active) {
        nextEnding_ = std::exchange(state.queue, this);
        return;
    }
    state.active = true;
    delete this;
    while (XmlRoAttrImpl* next = state.queue) {
        // The analyzer does not see that what ends here has left the queue.
        state.queue = next->nextEnding_;  // NOLINT(clang-analyzer-cplusplus.NewDelete)
        delete next;
    }
    state.active = false;
}

XmlRoAttrImpl::~XmlRoAttrImpl() {
    DropAttributes();
}

void XmlRoAttrImpl::DropAttributes() noexcept {
    for (const auto& [token, value] : attributes_) value->Release();
    attributes_.Clear();
    byToken_.reset();
}

void XmlRoAttrImpl::AddAttribute(std::uint32_t token, XmlRoAttr* value) {
    Handle<XmlRoAttr> held(value);
    attributes_.MakeRoom();
    FileByToken(token, value);
    attributes_.Append({token, held.Detach()});
}

// Nothing below may fail half-way: a token filed before the set has its value would dangle.
void XmlRoAttrImpl::FileByToken(std::uint32_t token, XmlRoAttr* value) {
    if (attributes_.size() < kSearchedOneByOne) return;
    if (byToken_ == nullptr) {
        auto all = std::make_unique<FirstByToken>();
        for (const TokenAndValue& attribute : attributes_)
            all->try_emplace(attribute.token, attribute.value);
        all->try_emplace(token, value);
        byToken_ = std::move(all);
    } else {
        byToken_->try_emplace(token, value);
    }
}

XmlRoAttr* XmlRoAttrImpl::OwnAt(std::uint32_t index, std::uint32_t* token) const noexcept {
    if (index >= attributes_.size()) return nullptr;
    if (token != nullptr) *token = attributes_[index].token;
    return attributes_[index].value;
}

XmlRoAttr* XmlRoAttrImpl::FindOwn(std::uint32_t token) const noexcept {
    if (byToken_ != nullptr) {
        const auto found = byToken_->find(token);
        return found == byToken_->end() ? nullptr : found->second;
    }
    for (const TokenAndValue& attribute : attributes_) {
        if (attribute.token == token) return attribute.value;
    }
    return nullptr;
}

}  // namespace tarn::xmlfx

#include "vexpa/xmlfx/FlatXmlRoAttrImpl.h"

#include <memory>

namespace tarn::xmlfx {

namespace {

struct FreeMemory {
    void operator()(void* memory) const noexcept { ::operator delete(memory); }
};

}  // namespace

// One of the leaves behind a set.
class FlatXmlRoAttrImpl::Leaf final : public LeafXmlRoAttrImpl {
public:
    Leaf(FlatXmlRoAttrImpl* set, std::uint32_t token, const unsigned short* value)
        : LeafXmlRoAttrImpl(value), token_(token), set_(set) {}

    std::uint32_t token() const noexcept { return token_; }

    // Gives up the set's own reference; whether the leaf goes on without it.
    bool Outlives() noexcept {
        if (!DropReference()) return true;
        this->~Leaf();
        return false;
    }

private:
    ~Leaf() override = default;

    // Others held it longer than the set. They need not know of each other, nor be on one
    // thread.
    static void operator delete(Leaf* leaf, std::destroying_delete_t) noexcept {
        FlatXmlRoAttrImpl* set = leaf->set_;
        leaf->~Leaf();
        if (set->outliving_.fetch_sub(1, std::memory_order_acq_rel) == 1) set->Free();
    }

    std::uint32_t token_;
    FlatXmlRoAttrImpl* set_;
};

FlatXmlRoAttrImpl::FlatXmlRoAttrImpl(const unsigned short* value, std::uint32_t room)
    : ShallowCloneableImpl(value), room_(room), leaves_(reinterpret_cast<Leaf*>(this + 1)) {}

Handle<FlatXmlRoAttrImpl> FlatXmlRoAttrImpl::New(const unsigned short* value, std::uint32_t count) {
    static_assert(alignof(Leaf) <= alignof(FlatXmlRoAttrImpl), "leaves lie right behind their set");
    const std::size_t size = sizeof(FlatXmlRoAttrImpl) + count * sizeof(Leaf);
    std::unique_ptr<void, FreeMemory> memory(::operator new(size));
    Handle<FlatXmlRoAttrImpl> set(::new (memory.get()) FlatXmlRoAttrImpl(value, count));
    static_cast<void>(memory.release());  // the set frees itself
    return set;
}

// The last reference is gone. Until here the release of a leaf is serialised with that of its set, so
// outliving_ is not needed before; from here on leaves may be released by several threads.
void FlatXmlRoAttrImpl::operator delete(FlatXmlRoAttrImpl* set, std::destroying_delete_t) noexcept {
    std::uint32_t outliving = 0;
    for (Leaf& leaf : set->Leaves()) outliving += leaf.Outlives() ? 1 : 0;
    set->more_.Reset();
    if (outliving == 0) return set->Free();
    set->outliving_.store(outliving, std::memory_order_relaxed);
}

void FlatXmlRoAttrImpl::Free() noexcept {
    this->~FlatXmlRoAttrImpl();
    ::operator delete(this);
}

std::span<FlatXmlRoAttrImpl::Leaf> FlatXmlRoAttrImpl::Leaves() const noexcept {
    return {leaves_, count_};
}

void FlatXmlRoAttrImpl::AddLeaf(std::uint32_t token, const unsigned short* value) {
    if (count_ < room_) {
        ::new (static_cast<void*>(leaves_ + count_)) Leaf(this, token, value);
        ++count_;
        return;
    }
    if (!more_) more_ = Handle<XmlRoAttrImpl>(new XmlRoAttrImpl);
    more_->AddAttribute(token, new LeafXmlRoAttrImpl(value));
}

std::uint32_t FlatXmlRoAttrImpl::GetCount() const {
    return more_ ? count_ + more_->GetCount() : count_;
}

XmlRoAttr* FlatXmlRoAttrImpl::GetAt(std::uint32_t index, std::uint32_t* token) const {
    if (index >= count_) return more_ ? more_->GetAt(index - count_, token) : nullptr;
    if (token != nullptr) *token = leaves_[index].token();
    return &leaves_[index];
}

XmlRoAttr* FlatXmlRoAttrImpl::Find(std::uint32_t token) const {
    for (Leaf& leaf : Leaves()) {
        if (leaf.token() == token) return &leaf;
    }
    return more_ ? more_->Find(token) : nullptr;
}

}  // namespace tarn::xmlfx

#include "vexpa/xmlfx/XmlRoAttrDecorator.h"

#include <cstring>

#include "vexpa/base/Utf16.h"

namespace tarn::xmlfx {

namespace {

// The virtual table, at the start of an object, tells its class. typeid would look behind
// the table, where a caller's set compiled without RTTI has nothing.
// (Decorator.TakesASetThatWasCompiledWithoutRtti)
bool AreOfOneClass(const XmlRoAttr& a, const XmlRoAttr& b) {
    const void* const start = &a;
    return std::memcmp(start, static_cast<const void*>(&b), sizeof(void*)) == 0;
}

}  // namespace

XmlRoAttrDecorator::XmlRoAttrDecorator(XmlRoAttr& inner)
    : XmlRoAttrImpl(std::u16string_view(FromUnits(inner.GetValue()), inner.GetValueLength())),
      inner_(inner.Share()),
      innerIsDecorator_(AreOfOneClass(inner, *this)) {}

XmlRoAttrDecorator::~XmlRoAttrDecorator() {
    inner_.Reset();
}

const XmlRoAttrDecorator* XmlRoAttrDecorator::InnerDecorator() const noexcept {
    return innerIsDecorator_ ? static_cast<const XmlRoAttrDecorator*>(inner_.Get()) : nullptr;
}

std::uint32_t XmlRoAttrDecorator::GetCount() const {
    std::uint32_t count = OwnCount();
    const XmlRoAttrDecorator* last = this;
    while (const XmlRoAttrDecorator* inner = last->InnerDecorator()) {
        count += inner->OwnCount();
        last = inner;
    }
    return last->inner_ ? count + last->inner_->GetCount() : count;
}

XmlRoAttr* XmlRoAttrDecorator::GetAt(std::uint32_t index, std::uint32_t* token) const {
    std::uint32_t below = GetCount() - OwnCount();
    const XmlRoAttrDecorator* last = this;
    while (index < below) {
        const XmlRoAttrDecorator* inner = last->InnerDecorator();
        if (inner == nullptr) return last->inner_->GetAt(index, token);
        below -= inner->OwnCount();
        last = inner;
    }
    return last->OwnAt(index - below, token);
}

XmlRoAttr* XmlRoAttrDecorator::Find(std::uint32_t token) const {
    XmlRoAttr* innermost = FindOwn(token);
    const XmlRoAttrDecorator* last = this;
    while (const XmlRoAttrDecorator* inner = last->InnerDecorator()) {
        if (XmlRoAttr* found = inner->FindOwn(token)) innermost = found;
        last = inner;
    }
    XmlRoAttr* found = last->inner_ ? last->inner_->Find(token) : nullptr;
    return found != nullptr ? found : innermost;
}

void XmlRoAttrDecorator::Reset() {
    inner_.Reset();
    innerIsDecorator_ = false;
    DropAttributes();
}

}  // namespace tarn::xmlfx

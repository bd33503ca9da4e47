#include "tests/xmlfx/SetWithoutRtti.h"

#include "vexpa/base/ShallowCloneableImpl.h"

namespace vexpa_test {

namespace {

class SetWithoutRtti final : public tarn::ShallowCloneableImpl<tarn::xmlfx::XmlRoAttr> {
public:
    explicit SetWithoutRtti(std::uint32_t token) : ShallowCloneableImpl(u"caller's"), token_(token) {}

    std::uint32_t GetCount() const override { return 1; }
    XmlRoAttr* GetAt(std::uint32_t index, std::uint32_t* token) const override {
        if (index != 0) return nullptr;
        if (token != nullptr) *token = token_;
        return Find(token_);
    }
    XmlRoAttr* Find(std::uint32_t token) const override {
        return token == token_ ? const_cast<SetWithoutRtti*>(this) : nullptr;
    }

private:
    std::uint32_t token_;
};

}  // namespace

tarn::xmlfx::XmlRoAttr* NewSetWithoutRtti(std::uint32_t token) {
    return new SetWithoutRtti(token);
}

}  // namespace vexpa_test

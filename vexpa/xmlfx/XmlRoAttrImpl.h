// vexpa/xmlfx/XmlRoAttrImpl.h - a value string with attributes.
#ifndef VEXPA_XMLFX_XMLROATTRIMPL_H_
#define VEXPA_XMLFX_XMLROATTRIMPL_H_

#include <map>
#include <memory>

#include "vexpa/base/ShallowCloneableImpl.h"
#include "vexpa/xmlfx/ValueList.h"
#include "vexpa/xmlfx/XmlRoAttr.h"

namespace tarn::xmlfx {

class XmlRoAttrImpl : public ShallowCloneableImpl<XmlRoAttr> {
public:
    explicit XmlRoAttrImpl(std::u16string_view value = {}) : ShallowCloneableImpl(value) {}

    void Release() final;
    std::uint32_t GetCount() const override { return OwnCount(); }
    XmlRoAttr* GetAt(std::uint32_t index, std::uint32_t* token) const override {
        return OwnAt(index, token);
    }
    XmlRoAttr* Find(std::uint32_t token) const override { return FindOwn(token); }

    // Appends an attribute while the set is being built. Takes over the caller's reference
    // on `value`, also when it throws.
    void AddAttribute(std::uint32_t token, XmlRoAttr* value);

protected:
    ~XmlRoAttrImpl() override;

    std::uint32_t OwnCount() const noexcept { return static_cast<std::uint32_t>(attributes_.size()); }
    XmlRoAttr* OwnAt(std::uint32_t index, std::uint32_t* token) const noexcept;
    XmlRoAttr* FindOwn(std::uint32_t token) const noexcept;
    void DropAttributes() noexcept;

private:
    using FirstByToken = std::map<std::uint32_t, XmlRoAttr*>;

    void FileByToken(std::uint32_t token, XmlRoAttr* value);
    void End() noexcept;

    ValueList attributes_;  // with one reference on each value

    // The first value of each token, but only of sets too large to be searched one by one:
    // few are, and for the others it would cost more allocations than all the rest.
    std::unique_ptr<FirstByToken> byToken_;

    XmlRoAttrImpl* nextEnding_ = nullptr;
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_XMLROATTRIMPL_H_

// vexpa/xmlfx/NullXmlRoAttrImpl.h - the empty set, one for the process.
#ifndef VEXPA_XMLFX_NULLXMLROATTRIMPL_H_
#define VEXPA_XMLFX_NULLXMLROATTRIMPL_H_

#include "vexpa/xmlfx/XmlRoAttr.h"

namespace tarn::xmlfx {

// Counts nothing: handles to it come and go freely, on any thread.
class NullXmlRoAttrImpl final : public XmlRoAttr {
public:
    static Handle<XmlRoAttr> Get();

    Handle<Object> ShallowClone() override { return Handle<Object>(this); }
    void Release() override {}
    std::uint32_t GetCount() const override { return 0; }
    XmlRoAttr* GetAt(std::uint32_t, std::uint32_t*) const override { return nullptr; }
    XmlRoAttr* Find(std::uint32_t) const override { return nullptr; }

private:
    NullXmlRoAttrImpl() = default;
    ~NullXmlRoAttrImpl() override = default;
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_NULLXMLROATTRIMPL_H_

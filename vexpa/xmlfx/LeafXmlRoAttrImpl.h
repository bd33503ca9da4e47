// vexpa/xmlfx/LeafXmlRoAttrImpl.h - a value string without attributes.
#ifndef VEXPA_XMLFX_LEAFXMLROATTRIMPL_H_
#define VEXPA_XMLFX_LEAFXMLROATTRIMPL_H_

#include "vexpa/base/ShallowCloneableImpl.h"
#include "vexpa/xmlfx/XmlRoAttr.h"

namespace tarn::xmlfx {

// The value of one attribute, or one run of an element's text.
class LeafXmlRoAttrImpl : public ShallowCloneableImpl<XmlRoAttr> {
public:
    explicit LeafXmlRoAttrImpl(const unsigned short* value) : ShallowCloneableImpl(value) {}

    std::uint32_t GetCount() const final { return 0; }
    XmlRoAttr* GetAt(std::uint32_t, std::uint32_t*) const final { return nullptr; }
    XmlRoAttr* Find(std::uint32_t) const final { return nullptr; }

protected:
    ~LeafXmlRoAttrImpl() override = default;
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_LEAFXMLROATTRIMPL_H_

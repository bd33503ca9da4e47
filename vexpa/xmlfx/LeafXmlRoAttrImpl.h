// vexpa/xmlfx/LeafXmlRoAttrImpl.h - a value string without attributes.
#ifndef VEXPA_XMLFX_LEAFXMLROATTRIMPL_H_
#define VEXPA_XMLFX_LEAFXMLROATTRIMPL_H_

#include "vexpa/base/ShallowCloneableImpl.h"
#include "vexpa/base/Utf16.h"
#include "vexpa/xmlfx/XmlRoAttr.h"

namespace tarn::xmlfx {

// The value of one attribute, or one run of an element's text.
class LeafXmlRoAttrImpl final : public ShallowCloneableImpl<XmlRoAttr> {
public:
    explicit LeafXmlRoAttrImpl(const unsigned short* value) : ShallowCloneableImpl(CopyText(value)) {}

    std::uint32_t GetCount() const override { return 0; }
    XmlRoAttr* GetAt(std::uint32_t, std::uint32_t*) const override { return nullptr; }
    XmlRoAttr* Find(std::uint32_t) const override { return nullptr; }

private:
    ~LeafXmlRoAttrImpl() override = default;
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_LEAFXMLROATTRIMPL_H_

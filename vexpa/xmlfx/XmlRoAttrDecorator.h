// vexpa/xmlfx/XmlRoAttrDecorator.h - more attributes on top of another set.
#ifndef VEXPA_XMLFX_XMLROATTRDECORATOR_H_
#define VEXPA_XMLFX_XMLROATTRDECORATOR_H_

#include "vexpa/xmlfx/XmlRoAttrImpl.h"

namespace tarn::xmlfx {

// Shows the inner set's attributes first, then its own; in a search the inner set wins. Its
// value string is a copy of the inner set's.
//
// The inner set may be a decorator as well, and so on: whoever feeds a builder its own
// results makes such a chain as long as a document. So no operation calls itself.
class XmlRoAttrDecorator final : public XmlRoAttrImpl {
public:
    explicit XmlRoAttrDecorator(XmlRoAttr& inner);

    std::uint32_t GetCount() const override;
    XmlRoAttr* GetAt(std::uint32_t index, std::uint32_t* token) const override;
    XmlRoAttr* Find(std::uint32_t token) const override;

    // Gives up the inner set and all attributes; only the value string stays.
    void Reset();

private:
    ~XmlRoAttrDecorator() override;

    const XmlRoAttrDecorator* InnerDecorator() const noexcept;

    Handle<XmlRoAttr> inner_;  // empty after Reset
    bool innerIsDecorator_;
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_XMLROATTRDECORATOR_H_

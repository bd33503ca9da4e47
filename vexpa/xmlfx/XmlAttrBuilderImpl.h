// vexpa/xmlfx/XmlAttrBuilderImpl.h - the builder.
#ifndef VEXPA_XMLFX_XMLATTRBUILDERIMPL_H_
#define VEXPA_XMLFX_XMLATTRBUILDERIMPL_H_

#include "vexpa/xmlfx/XmlAttrBuilder.h"
#include "vexpa/xmlfx/XmlRoAttrDecorator.h"

namespace tarn::xmlfx {

class XmlAttrBuilderImpl final : public XmlAttrBuilder, public XmlAttrCallback {
public:
    explicit XmlAttrBuilderImpl(XmlAttrCallback* callback) noexcept : callback_(callback) {}

    void Release() override;
    int StartElement(std::uint32_t token, XmlRoAttr* attrs) override;
    void Characters(const unsigned short* text) override;
    void EndElement(std::uint32_t token) override;
    XmlAttrHandler* GetChildHandler() override;
    void Reset() override;
    void AddChild(std::uint32_t token, XmlRoAttr* set) override;

    // A child element's set arrives.
    void OnElement(std::uint32_t token, XmlRoAttr* set) override;

private:
    ~XmlAttrBuilderImpl() override;

    XmlAttrCallback* callback_;           // [borrowed]
    Handle<XmlRoAttrDecorator> current_;  // empty until the first element starts
    Handle<XmlAttrBuilderImpl> child_;    // made on the first request
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_XMLATTRBUILDERIMPL_H_

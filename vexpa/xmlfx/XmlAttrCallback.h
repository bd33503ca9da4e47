// vexpa/xmlfx/XmlAttrCallback.h - where a builder reports its sets.
#ifndef VEXPA_XMLFX_XMLATTRCALLBACK_H_
#define VEXPA_XMLFX_XMLATTRCALLBACK_H_

#include <cstdint>

namespace tarn::xmlfx {
class XmlRoAttr;

// Implemented by the caller. It has one slot: a virtual destructor would shift it.
//
// Lifetime  The caller's; it outlives the builders that report to it.
// Errors    What it throws passes through the builder to whoever fed it.
// Threads   Called by the thread that feeds the builder.
class XmlAttrCallback {
public:
    // [borrowed] The finished set of an element; share it (ShallowClone) to keep it. `token` is the
    // element's, as EndElement was given it.
    virtual void OnElement(std::uint32_t token, XmlRoAttr* set) = 0;

protected:
    ~XmlAttrCallback() = default;
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_XMLATTRCALLBACK_H_

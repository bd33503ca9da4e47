// vexpa/xmlfx/XmlAttrBuilder.h - one tree of attribute sets from the events of a parser.
#ifndef VEXPA_XMLFX_XMLATTRBUILDER_H_
#define VEXPA_XMLFX_XMLATTRBUILDER_H_

#include "vexpa/base/Export.h"
#include "vexpa/base/Handle.h"
#include "vexpa/xmlfx/XmlAttrCallback.h"
#include "vexpa/xmlfx/XmlAttrHandler.h"

namespace tarn::xmlfx {

// Builds the set of each element it is fed: the element's attributes first, then its text
// and its child elements' sets in the order of their events.
//
// Lifetime  Releasing the handle ends the builder, its child handlers and its hold on the
//           last set.
// Errors    Out of memory and what the callback throws pass through.
// Threads   One thread at a time.
class XmlAttrBuilder : public XmlAttrHandler {
public:
    // [owned] A builder that reports to `callback`, never null, which outlives it.
    [[nodiscard]] VEXPA_API static Handle<XmlAttrBuilder> New(XmlAttrCallback* callback);

protected:
    XmlAttrBuilder() noexcept = default;
    ~XmlAttrBuilder() override = default;
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_XMLATTRBUILDER_H_

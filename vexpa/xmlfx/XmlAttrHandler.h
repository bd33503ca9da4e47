// vexpa/xmlfx/XmlAttrHandler.h - the parser events of one element.
#ifndef VEXPA_XMLFX_XMLATTRHANDLER_H_
#define VEXPA_XMLFX_XMLATTRHANDLER_H_

#include <cstdint>

#include "vexpa/base/Noncopyable.h"
#include "vexpa/base/Object.h"
#include "vexpa/xmlfx/XmlRoAttr.h"

namespace tarn::xmlfx {

// The token under which an element's text stands in its set.
inline constexpr std::uint32_t kTextToken = 0xFFFFFFFF;

// Takes the events of an element, then of its next sibling, and so on. For each element:
//
//     handler->StartElement(token, attrs);
//     handler->Characters(text);            // any number of times, between the children
//     XmlAttrHandler* child = handler->GetChildHandler();
//     ...                                   // for each child element, the same on `child`
//     handler->EndElement(token);
//
// Before the first StartElement only GetChildHandler and Reset may be called.
//
// Lifetime  A child handler belongs to its parent. Texts are copied.
// Errors    None but that of the standard library, out of memory.
// Threads   One thread at a time for a handler and those below it.
//
// The order of the virtual members is the binary interface: nothing is inserted,
// moved or removed. tests/xmlfx/SlotOrderTest.cpp fails when it changes.
class XmlAttrHandler : public Object, public Noncopyable {
public:
    // Begins the element's set with its attributes (see Transform; never null), which the set shares;
    // of attributes that cannot be shared only the value string is taken. The token is not used here:
    // that of EndElement counts. Always 1.
    virtual int StartElement(std::uint32_t token, XmlRoAttr* attrs) = 0;
    // Adds a piece of the element's text under kTextToken; null adds nothing.
    virtual void Characters(const unsigned short* text) = 0;
    // Reports the set, with this token. It is valid until the next StartElement; to keep it longer,
    // share it.
    virtual void EndElement(std::uint32_t token) = 0;
    // [borrowed] The handler of the child elements, the same each time. What it reports is
    // added to this handler's set under the child element's token.
    virtual XmlAttrHandler* GetChildHandler() = 0;
    // Empties the set, but for its value string.
    virtual void Reset() = 0;
    // Adds a finished set, never null, sharing it; one that cannot be shared is not added. A
    // set added to itself is freed only after Reset.
    virtual void AddChild(std::uint32_t token, XmlRoAttr* set) = 0;

protected:
    XmlAttrHandler() noexcept = default;
    ~XmlAttrHandler() override = default;
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_XMLATTRHANDLER_H_

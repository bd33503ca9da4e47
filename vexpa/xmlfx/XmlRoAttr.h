// vexpa/xmlfx/XmlRoAttr.h - a read-only set of attributes.
#ifndef VEXPA_XMLFX_XMLROATTR_H_
#define VEXPA_XMLFX_XMLROATTR_H_

#include <cstdint>
#include <string_view>

#include "vexpa/base/Handle.h"
#include "vexpa/base/Object.h"
#include "vexpa/base/ShallowCloneable.h"
#include "vexpa/xmlfx/XmlAttrValue.h"

namespace tarn::xmlfx {

// A parsed element: a value string of its own, and (token, value) pairs in the order in
// which they were added. Each value is such a set again, mostly one with a value string
// only. A token may occur more than once. Transform and XmlAttrBuilder make sets.
//
// Lifetime  Shared by reference count. A set holds its values, so what it hands out stays
//           valid as long as the set does.
// Errors    A position or token that is not there answers null.
// Threads   A finished set is read by any number of threads. Sharing and releasing the same set
//           is serialised by the callers. The last release of a set releases its values, too: so
//           is that with whatever is done to the count of a value that was shared by itself.
//
// The order of the virtual members is the binary interface: nothing is inserted,
// moved or removed. tests/xmlfx/SlotOrderTest.cpp fails when it changes.
class XmlRoAttr : public Object, public ShallowCloneable, public XmlAttrValue {
public:
    // How many (token, value) pairs there are.
    virtual std::uint32_t GetCount() const = 0;
    // [borrowed] The value at a position; its token goes to *token, unless token or the
    // answer is null.
    virtual XmlRoAttr* GetAt(std::uint32_t index, std::uint32_t* token) const = 0;
    // [borrowed] The first value with this token, or null.
    virtual XmlRoAttr* Find(std::uint32_t token) const = 0;

    // [shared] ShallowClone under the set's own type.
    [[nodiscard]] Handle<XmlRoAttr> Share() {
        return Handle<XmlRoAttr>(static_cast<XmlRoAttr*>(ShallowClone().Detach()));
    }

protected:
    XmlRoAttr() noexcept = default;
    explicit XmlRoAttr(std::u16string_view value) : XmlAttrValue(value) {}
    explicit XmlRoAttr(const unsigned short* value) : XmlAttrValue(value) {}
    ~XmlRoAttr() override = default;
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_XMLROATTR_H_

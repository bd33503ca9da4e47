// vexpa/xmlfx/XmlAttrValue.h - the value string of an attribute set.
#ifndef VEXPA_XMLFX_XMLATTRVALUE_H_
#define VEXPA_XMLFX_XMLATTRVALUE_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "vexpa/base/Export.h"
#include "vexpa/base/Utf16.h"

namespace tarn::xmlfx {

// A text that is fixed when the object is made; empty when none was given.
//
// Lifetime  The text lasts as long as the object.
// Errors    None.
// Threads   Read by any number of threads.
class XmlAttrValue {
public:
    // [borrowed] The value, NUL-terminated; never null.
    VEXPA_API const unsigned short* GetValue() const noexcept;
    // Its length in code units.
    VEXPA_API std::size_t GetValueLength() const noexcept;

    XmlAttrValue(const XmlAttrValue&) = delete;
    XmlAttrValue& operator=(const XmlAttrValue&) = delete;

protected:
    XmlAttrValue() noexcept = default;
    explicit XmlAttrValue(std::u16string_view value) : value_(value) {}
    // A copy of a NUL-terminated text; null is the empty one.
    explicit XmlAttrValue(const unsigned short* value) : value_(CopyText(value)) {}

    ~XmlAttrValue() = default;  // for derived classes

private:
    std::u16string value_;
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_XMLATTRVALUE_H_

#include "vexpa/xmlfx/XmlAttrValue.h"

#include "vexpa/base/Utf16.h"

namespace tarn::xmlfx {

const unsigned short* XmlAttrValue::GetValue() const noexcept {
    return ToUnits(value_.c_str());
}

std::size_t XmlAttrValue::GetValueLength() const noexcept {
    return value_.size();
}

}  // namespace tarn::xmlfx

#include "vexpa/xmlfx/XmlAttrValue.h"

namespace tarn::xmlfx {

const unsigned short* XmlAttrValue::GetValue() const noexcept {
    return ToUnits(value_.c_str());
}

std::size_t XmlAttrValue::GetValueLength() const noexcept {
    return value_.size();
}

}  // namespace tarn::xmlfx

#include "vexpa/xmlfx/NullXmlRoAttrImpl.h"

namespace tarn::xmlfx {

Handle<XmlRoAttr> NullXmlRoAttrImpl::Get() {
    static NullXmlRoAttrImpl empty;
    return empty.Share();
}

}  // namespace tarn::xmlfx

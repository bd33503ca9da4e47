#include "vexpa/xmlfx/NullXmlRoAttrImpl.h"

#include <cstddef>
#include <new>

namespace tarn::xmlfx {

Handle<XmlRoAttr> NullXmlRoAttrImpl::Get() {
    // Never ended: it has nothing to free, and when the process ends, a caller's static object
    // may still give up a handle to it. (EmptySet.AHandleToItMayOutliveMain)
    alignas(NullXmlRoAttrImpl) static std::byte memory[sizeof(NullXmlRoAttrImpl)];
    static NullXmlRoAttrImpl& empty = *::new (memory) NullXmlRoAttrImpl;
    return empty.Share();
}

}  // namespace tarn::xmlfx

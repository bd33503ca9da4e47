// A document parsed, and asked for what the package reader asks for.
#include <array>
#include <cstring>

#include "fuzz/FuzzTarget.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/platform/Runtime.h"

namespace {

using vexpa_fuzz::Require;

constexpr std::array kElements = {u"Relationship", u"Override", u"Default", u"a"};
constexpr std::array kAttributes = {u"Id",       u"Type",        u"Target", u"TargetMode",
                                    u"PartName", u"ContentType", u"x:Id",   u"Extension"};

void ReadElement(IDomNode& element) {
    IDomAttributes* attributes = element.GetAttributes();
    if (attributes == nullptr) return;
    for (const char16_t* name : kAttributes) {
        IDomAttribute* attribute = attributes->GetNamedItem(name);
        if (attribute != nullptr && attribute->GetValue() != nullptr) u_strlen(attribute->GetValue());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    HGBL block = _XGblAlloc(0, size);
    if (size != 0) std::memcpy(_XGblLock(block), data, size);
    if (size != 0) _XGblUnlock(block);
    tarn::ComPtr<IStream> stream;
    Require(_XCreateStreamOnHGBL(block, 1, stream.Out()) == S_OK, "a block makes a stream");

    tarn::ComPtr<IDomDocument> document;
    const HRESULT result = _XDOMParse(document.Out(), stream.Get(), 0xFFFFFFFF, 0, 0, 0);
    Require((result == S_OK) == static_cast<bool>(document), "a document comes with S_OK only");
    if (!document) return 0;
    for (const char16_t* name : kElements) {
        IDomNodeList* elements = document->GetElementsByTagName(name);
        const std::uint32_t count = elements->GetLength();
        for (std::uint32_t i = 0; i < count; ++i) ReadElement(*elements->GetItem(i));
        Require(elements->GetItem(count) == nullptr, "a list ends");
    }
    return 0;
}

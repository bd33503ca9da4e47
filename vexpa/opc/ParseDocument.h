// vexpa/opc/ParseDocument.h - the one way in which the package's XML is parsed.
#ifndef VEXPA_OPC_PARSEDOCUMENT_H_
#define VEXPA_OPC_PARSEDOCUMENT_H_

#include "vexpa/platform/Runtime.h"

namespace tarn::opc {

inline HRESULT ParseDocument(IStream* stream, IDomDocument** document) {
    constexpr std::uint32_t kAllParseOptions = 0xFFFFFFFF;
    return _XDOMParse(document, stream, kAllParseOptions, 0, 0, 0);
}

}  // namespace tarn::opc

#endif  // VEXPA_OPC_PARSEDOCUMENT_H_

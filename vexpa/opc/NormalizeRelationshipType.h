// vexpa/opc/NormalizeRelationshipType.h - the form in which relationship types are compared.
#ifndef VEXPA_OPC_NORMALIZERELATIONSHIPTYPE_H_
#define VEXPA_OPC_NORMALIZERELATIONSHIPTYPE_H_

#include <string>
#include <string_view>

namespace tarn::opc {

// `type` in lower case with slashes for backslashes, without blanks before it, cut at the
// first white space. Letters and white space are those of the process locale.
std::u16string NormalizeRelationshipType(std::u16string_view type);

}  // namespace tarn::opc

#endif  // VEXPA_OPC_NORMALIZERELATIONSHIPTYPE_H_

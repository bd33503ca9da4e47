// vexpa/opc/UriParser.h - splits a URI reference into a record of its components.
#ifndef VEXPA_OPC_URIPARSER_H_
#define VEXPA_OPC_URIPARSER_H_

#include <string_view>

#include "vexpa/opc/UriScanner.h"

namespace tarn::opc {

struct UriComponents;

// Fills `components`, whose options say how. Anything but Parsed leaves it without any.
UriStatus ParseUri(std::string_view text, UriComponents& components);

}  // namespace tarn::opc

#endif  // VEXPA_OPC_URIPARSER_H_

// runtime/xml/Encoding.h - encodings that the parser does not know itself.
#ifndef VEXPA_RUNTIME_XML_ENCODING_H_
#define VEXPA_RUNTIME_XML_ENCODING_H_

#include <expat.h>

namespace vexpa_runtime {

// For XML_SetUnknownEncodingHandler: the single-byte code pages of the Windows, ISO 8859,
// IBM and KOI8 families. Everything else is refused.
int XMLCALL FindEncoding(void*, const XML_Char* name, XML_Encoding* encoding) noexcept;

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_XML_ENCODING_H_

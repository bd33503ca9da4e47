// runtime/xml/XmlLimits.h - how large a document may be.
#ifndef VEXPA_RUNTIME_XML_XMLLIMITS_H_
#define VEXPA_RUNTIME_XML_XMLLIMITS_H_

#include <cstdint>

namespace vexpa_runtime {

// Bytes of a document, and elements and attributes in it. Deflate makes a gigabyte of a megabyte,
// and each short element costs many times its bytes. The largest real documents here are the
// relationships of a sheet with as many hyperlinks as it can have, 65,530: some 330,000 nodes, and
// 1,900 bytes may go to each link.
constexpr std::uint64_t kMaxBytes = 128UL * 1024 * 1024;
constexpr std::uint64_t kMaxNodes = 2'000'000;

}  // namespace vexpa_runtime

#endif  // VEXPA_RUNTIME_XML_XMLLIMITS_H_

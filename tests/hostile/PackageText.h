// tests/hostile/PackageText.h - a whole package as text, for a test to compare.
#ifndef VEXPA_TESTS_HOSTILE_PACKAGETEXT_H_
#define VEXPA_TESTS_HOSTILE_PACKAGETEXT_H_

#include <string>
#include <string_view>

#include "vexpa/opc/Package.h"

namespace vexpa_test {

// Everything that is reached from the package, breadth first, a line each:
//
//     package: rId1 officedocument -> word/document.xml
//     word/document.xml: application/xml "<document/>"
//     word/document.xml: rId1 image -> word/media/a.png
//     word/document.xml: rId2 type urn:own -> word/b.xml, no part
//     word/document.xml: rId3 hyperlink => http://example.org/
//     word/media/a.png: (empty) 70000 bytes, crc 1b2c3d4e
//
// A relationship shows its Id, the last segment of its type when that is a known one and else the
// type as written, and the resolved target, with '=>' when it is external. A part shows its
// content type, its bytes or "no stream", and the elements of its storage when it has one:
// {Workbook "text", Data{...}}. Long names and long lists are abridged in the middle.
std::string PackageText(tarn::opc::Package& package);

// Bytes as they are shown: the text when it is short and printable, else size and CRC-32.
std::string BytesText(std::string_view bytes);

// A name as it is shown: "(empty)", what is not printable ASCII as \uXXXX, a long one abridged.
std::string NameText(std::u16string_view name);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_HOSTILE_PACKAGETEXT_H_

// Generated from vexpa/xmlfx/namespaces.tsv. Do not edit: change that, then run
//     python3 vexpa/xmlfx/make_token_table.py
#include "tool/model/NamespacePrefixes.h"

namespace vexpa_tool {

// clang-format off
const std::array<NamespacePrefix, kNamespacePrefixCount> kNamespacePrefixes = {{
    {u"w", 1, u"http://schemas.openxmlformats.org/wordprocessingml/2006/main"},
    {u"pkg", 0, u""},
    {u"p", 2, u"http://schemas.openxmlformats.org/presentationml/2006/main"},
    {u"r", 3, u"http://schemas.openxmlformats.org/officeDocument/2006/relationships"},
    {u"a", 4, u"http://schemas.openxmlformats.org/drawingml/2006/main"},
    {u"v", 6, u"urn:schemas-microsoft-com:vml"},
    {u"o", 5, u"urn:schemas-microsoft-com:office:office"},
    {u"pic", 9, u"http://schemas.openxmlformats.org/drawingml/2006/picture"},
    {u"mc", 10, u"http://schemas.openxmlformats.org/markup-compatibility/2006"},
    {u"wp", 11, u"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing"},
    {u"w10", 8, u"urn:schemas-microsoft-com:office:word"},
    {u"xdr", 7, u"http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing"},
    {u"c", 7, u"http://schemas.openxmlformats.org/drawingml/2006/chart"},
    {u"cp", 12, u"http://schemas.openxmlformats.org/package/2006/metadata/core-properties"},
    {u"dc", 13, u"http://purl.org/dc/elements/1.1/"},
    {u"dcterms", 14, u"http://purl.org/dc/terms/"},
    {u"x", 15, u"urn:schemas-microsoft-com:office:excel"},
    {u"xsi", 16, u"http://www.w3.org/2001/XMLSchema-instance"},
    {u"html", 17, u""},
    {u"wne", 18, u"http://schemas.microsoft.com/office/word/2006/wordml"},
    {u"nons", 19, u""},
    {u"ct", 21, u"http://schemas.openxmlformats.org/package/2006/content-types"},
    {u"vtspace", 22, u"http://schemas.openxmlformats.org/officeDocument/2006/docPropsVTypes"},
    {u"rel", 23, u"http://schemas.openxmlformats.org/package/2006/relationships"},
    {u"m", 24, u"http://schemas.openxmlformats.org/officeDocument/2006/math"},
    {u"sl", 25, u"http://schemas.openxmlformats.org/schemaLibrary/2006/main"},
    {u"dcmitype", 26, u"http://purl.org/dc/dcmitype/"},
    {u"vt", 27, u"http://schemas.openxmlformats.org/officeDocument/2006/docPropsVTypes"},
    {u"ep", 28, u"http://schemas.openxmlformats.org/officeDocument/2006/extended-properties"},
    {u"cust", 29, u"http://schemas.openxmlformats.org/officeDocument/2006/custom-properties"},
    {u"oa", 30, u"urn:schemas-microsoft-com:office:activation"},
    {u"pvml", 31, u"urn:schemas-microsoft-com:office:powerpoint"},
    {u"ax", 33, u"http://schemas.microsoft.com/office/2006/activeX"},
    {u"dgm", 34, u"http://schemas.openxmlformats.org/drawingml/2006/diagram"},
    {u"wps", 35, u"http://schemas.microsoft.com/office/word/2010/wordprocessingShape"},
    {u"wpg", 36, u"http://schemas.microsoft.com/office/word/2010/wordprocessingGroup"},
    {u"dsp", 32, u"http://schemas.microsoft.com/office/drawing/2008/diagram"},
    {u"wp14", 37, u"http://schemas.microsoft.com/office/word/2010/wordprocessingDrawing"},
    {u"wpc", 38, u"http://schemas.microsoft.com/office/word/2010/wordprocessingCanvas"},
    {u"lc", 39, u"http://schemas.openxmlformats.org/drawingml/2006/lockedCanvas"},
    {u"comp", 41, u"http://schemas.openxmlformats.org/drawingml/2006/compatibility"},
    {u"ncd", 42, u"http://schemas.nexo.example/officeDocument/2013/nexoCustomData"},
    {u"ds", 43, u"http://schemas.openxmlformats.org/officeDocument/2006/customXml"},
    {u"w14", 44, u"http://schemas.microsoft.com/office/word/2010/wordml"},
}};
// clang-format on

}  // namespace vexpa_tool

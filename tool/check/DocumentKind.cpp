#include "tool/check/DocumentKind.h"

#include <iterator>
#include <string_view>

#include "tool/check/NameIndex.h"
#include "tool/check/PartNames.h"
#include "tool/model/MainPart.h"
#include "tool/model/PartWalk.h"
#include "tool/model/StrictTypes.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

struct KnownKind {
    std::string_view contentType;
    const char* kind;
};

#define WORD "application/vnd.openxmlformats-officedocument.wordprocessingml."
#define SHEET "application/vnd.openxmlformats-officedocument.spreadsheetml."
#define SLIDE "application/vnd.openxmlformats-officedocument.presentationml."
constexpr KnownKind kKinds[] = {
    {WORD "document.main+xml", "word processing document"},
    {WORD "template.main+xml", "word processing template"},
    {"application/vnd.ms-word.document.macroenabled.main+xml", "word processing document with macros"},
    {"application/vnd.ms-word.template.macroenabledtemplate.main+xml",
     "word processing template with macros"},
    {SHEET "sheet.main+xml", "spreadsheet"},
    {SHEET "template.main+xml", "spreadsheet template"},
    {"application/vnd.ms-excel.sheet.macroenabled.main+xml", "spreadsheet with macros"},
    {"application/vnd.ms-excel.template.macroenabled.main+xml", "spreadsheet template with macros"},
    {"application/vnd.ms-excel.addin.macroenabled.main+xml", "spreadsheet add-in"},
    {"application/vnd.ms-excel.sheet.binary.macroenabled.main", "binary spreadsheet"},
    {SLIDE "presentation.main+xml", "presentation"},
    {SLIDE "slideshow.main+xml", "slide show"},
    {SLIDE "template.main+xml", "presentation template"},
    {"application/vnd.ms-powerpoint.presentation.macroenabled.main+xml", "presentation with macros"},
    {"application/vnd.ms-powerpoint.slideshow.macroenabled.main+xml", "slide show with macros"},
    {"application/vnd.ms-powerpoint.template.macroenabled.main+xml",
     "presentation template with macros"},
    {"application/vnd.ms-powerpoint.addin.macroenabled.main+xml", "presentation add-in"},
    {"application/vnd.ms-visio.drawing.main+xml", "drawing"},
    {"application/vnd.ms-visio.drawing.macroenabled.main+xml", "drawing with macros"},
    {"application/vnd.ms-visio.template.main+xml", "drawing template"},
    {"application/vnd.ms-visio.template.macroenabled.main+xml", "drawing template with macros"},
    {"application/vnd.ms-visio.stencil.main+xml", "drawing stencil"},
    {"application/vnd.ms-visio.stencil.macroenabled.main+xml", "drawing stencil with macros"},
    {"application/vnd.ms-package.xps-fixeddocumentsequence+xml", "fixed-layout document"},
    {"application/vnd.ms-package.3dmanufacturing-3dmodel+xml", "3D model"},
    {"application/vnd.openxmlformats-officedocument.thememanager+xml", "theme"},
    {"application/vnd.openxmlformats-officedocument.theme+xml", "theme"},
};
#undef WORD
#undef SHEET
#undef SLIDE

std::string ConformanceOf(const opc::Relationship& relationship) {
    if (IsStrictType(relationship)) return "Strict";
    const std::string type = FoldedCase(ToUtf8(tarn::CopyText(relationship.GetType())));
    return type.starts_with("http://schemas.openxmlformats.org/officedocument/") ? "Transitional" : "";
}

// Media types do not tell letter case apart, and may have parameters.
std::string KindOfType(std::string_view contentType) {
    const std::string type = FoldedCase(contentType.substr(0, contentType.find(';')));
    for (const KnownKind& known : kKinds) {
        if (known.contentType == type) return known.kind;
    }
    return {};
}

}  // namespace

DocumentKind KindOf(opc::Package& package) {
    DocumentKind kind;
    const opc::Relationship* main = MainRelationship(package);
    if (main == nullptr) return kind;
    kind.conformance = ConformanceOf(*main);
    const opc::Part* part = TargetPart(package, *main);
    if (part == nullptr) return kind;
    kind.mainPart = EntryNameOf(part->GetName());
    kind.contentType = ToUtf8(tarn::CopyText(part->GetContentType()));
    kind.kind = KindOfType(kind.contentType);
    return kind;
}

}  // namespace vexpa_tool

// vexpa/opc/RelationshipTypeId.h - the relationship types that the library knows, by number.
#ifndef VEXPA_OPC_RELATIONSHIPTYPEID_H_
#define VEXPA_OPC_RELATIONSHIPTYPEID_H_

#include <cstdint>

#include "vexpa/base/Export.h"
#include "vexpa/base/Utf16.h"

namespace tarn::opc {

// A known relationship type. Beside each stands its URI in lower case, less its beginning:
//
//   word            http://schemas.openxmlformats.org/officedocument/2006/relationships/, of
//                   ECMA-376 Part 1
//   drawingml/...   http://schemas.openxmlformats.org/, of ECMA-376 Part 1
//   package/...     http://schemas.openxmlformats.org/, of ECMA-376 Part 2
//   microsoft.com/  http://schemas., of the extensions that Microsoft publishes
//
// 41 to 48 are URIs of graphics: numbered, but no relationship has them for its type.
//
// The numbers are part of the binary interface: types are appended, never renumbered.
enum RelationshipTypeId : std::uint32_t {
    // Start of the list that make_relationship_types.py writes.

    RelTypeAfChunk = 0,                 // afchunk
    RelTypeComments = 1,                // comments
    RelTypeSettings = 2,                // settings
    RelTypeEndnotes = 3,                // endnotes
    RelTypeFontTable = 4,               // fonttable
    RelTypeFooter = 5,                  // footer
    RelTypeFootnotes = 6,               // footnotes
    RelTypeGlossaryDocument = 7,        // glossarydocument
    RelTypeHeader = 8,                  // header
    RelTypeOfficeDocument = 9,          // officedocument
    RelTypeNumbering = 10,              // numbering
    RelTypeStyles = 11,                 // styles
    RelTypeWebSettings = 12,            // websettings
    RelTypeAttachedTemplate = 13,       // attachedtemplate
    RelTypeFrame = 14,                  // frame
    RelTypeSubDocument = 15,            // subdocument
    RelTypeMailMergeSource = 16,        // mailmergesource
    RelTypeMailMergeHeaderSource = 17,  // mailmergeheadersource
    RelTypeTransform = 18,              // transform
    RelTypeImage = 19,                  // image
    RelTypeTheme = 20,                  // theme
    RelTypeHyperlink = 21,              // hyperlink
    RelTypeCoreProperties = 22,         // package/2006/relationships/metadata/core-properties
    RelTypeVbaProject = 23,             // microsoft.com/office/2006/relationships/vbaproject
    RelTypeOleObject = 24,              // oleobject
    RelTypeVmlDrawing = 25,             // vmldrawing
    RelTypeSlideMaster = 26,            // slidemaster
    RelTypeSlideLayout = 27,            // slidelayout
    RelTypeViewProps = 28,              // viewprops
    RelTypePresProps = 29,              // presprops
    RelTypeThemeOverride = 30,          // themeoverride
    RelTypeNotesSlide = 31,             // notesslide
    RelTypeExtendedProperties = 32,     // extended-properties
    RelTypeCustomProperties = 33,       // custom-properties
    RelTypeThumbnail = 34,              // package/2006/relationships/metadata/thumbnail
    RelTypeControl = 35,                // control
    RelTypeDiagramDrawing = 36,         // microsoft.com/office/2007/relationships/diagramdrawing
    RelTypeDiagramColors = 37,          // diagramcolors
    RelTypeDiagramQuickStyle = 38,      // diagramquickstyle
    RelTypeDiagramLayout = 39,          // diagramlayout
    RelTypeDiagramData = 40,            // diagramdata
    RelTypeWordprocessingGroup = 41,    // microsoft.com/office/word/2010/wordprocessinggroup
    RelTypeWordprocessingShape = 42,    // microsoft.com/office/word/2010/wordprocessingshape
    RelTypeWordprocessingCanvas = 43,   // microsoft.com/office/word/2010/wordprocessingcanvas
    RelTypePicture = 44,                // drawingml/2006/picture
    RelTypeDiagram = 45,                // drawingml/2006/diagram
    RelTypeChart = 46,                  // drawingml/2006/chart
    RelTypeLockedCanvas = 47,           // drawingml/2006/lockedcanvas
    RelTypeCompatibility = 48,          // drawingml/2006/compatibility
    RelTypePackage = 49,                // package
    RelTypeCommentAuthors = 50,         // commentauthors
    RelTypeTableStyles = 51,            // tablestyles
    RelTypeCustomXml = 52,              // customxml
    RelTypeCustomXmlProps = 53,         // customxmlprops
    RelTypeUserCustomization = 54,      // microsoft.com/office/2006/relationships/ui/usercustomization
    RelTypeExtensibility = 55,          // microsoft.com/office/2006/relationships/ui/extensibility
    RelTypeExtensibility2007 = 56,      // microsoft.com/office/2007/relationships/ui/extensibility
    RelTypeActiveXControlBinary = 57,   // microsoft.com/office/2006/relationships/activexcontrolbinary
    RelTypeKeyMapCustomizations = 58,   // microsoft.com/office/2006/relationships/keymapcustomizations
    RelTypeAttachedToolbars = 59,       // microsoft.com/office/2006/relationships/attachedtoolbars

    // End of the list.

    RelTypeUnknown = 0xFFFFFFFF,  // any other type
};

// The id of a type URI, or RelTypeUnknown. Case does not matter, nor do blanks before the
// URI, nor what follows its first white space; null is the empty text.
//
// The thumbnail type answers RelTypeCustomProperties; RelTypeThumbnail only serves to
// search for thumbnails.
//
// Errors   None but that of the standard library, out of memory.
// Threads  May be called from any thread at any time.
VEXPA_API RelationshipTypeId GetRelationshipTypeId(const unsigned short* type);
inline RelationshipTypeId GetRelationshipTypeId(const char16_t* type) {
    return GetRelationshipTypeId(ToUnits(type));
}

// [borrowed] The type URI of an id, in lower case; it lasts as long as the library is
// loaded. The empty text for RelTypeUnknown and any other value outside the list.
//
// Errors   As above.
// Threads  As above.
VEXPA_API const unsigned short* GetRelationshipTypeUri(RelationshipTypeId id);

}  // namespace tarn::opc

#endif  // VEXPA_OPC_RELATIONSHIPTYPEID_H_

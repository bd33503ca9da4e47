// vexpa/opc/RelationshipTypeId.h - the relationship types that the library knows, by number.
#ifndef VEXPA_OPC_RELATIONSHIPTYPEID_H_
#define VEXPA_OPC_RELATIONSHIPTYPEID_H_

#include <cstdint>

#include "vexpa/base/Export.h"
#include "vexpa/base/Utf16.h"

namespace tarn::opc {

// The numbers are part of the binary interface: types are appended, never renumbered.
enum RelationshipTypeId : std::uint32_t {
    // Begin of the list that make_relationship_types.py writes.
    RelTypeAfChunk = 0,
    RelTypeComments = 1,
    RelTypeSettings = 2,
    RelTypeEndnotes = 3,
    RelTypeFontTable = 4,
    RelTypeFooter = 5,
    RelTypeFootnotes = 6,
    RelTypeGlossaryDocument = 7,
    RelTypeHeader = 8,
    RelTypeOfficeDocument = 9,
    RelTypeNumbering = 10,
    RelTypeStyles = 11,
    RelTypeWebSettings = 12,
    RelTypeAttachedTemplate = 13,
    RelTypeFrame = 14,
    RelTypeSubDocument = 15,
    RelTypeMailMergeSource = 16,
    RelTypeMailMergeHeaderSource = 17,
    RelTypeTransform = 18,
    RelTypeImage = 19,
    RelTypeTheme = 20,
    RelTypeHyperlink = 21,
    RelTypeCoreProperties = 22,
    RelTypeVbaProject = 23,
    RelTypeOleObject = 24,
    RelTypeVmlDrawing = 25,
    RelTypeSlideMaster = 26,
    RelTypeSlideLayout = 27,
    RelTypeViewProps = 28,
    RelTypePresProps = 29,
    RelTypeThemeOverride = 30,
    RelTypeNotesSlide = 31,
    RelTypeExtendedProperties = 32,
    RelTypeCustomProperties = 33,
    RelTypeThumbnail = 34,
    RelTypeControl = 35,
    RelTypeDiagramDrawing = 36,
    RelTypeDiagramColors = 37,
    RelTypeDiagramQuickStyle = 38,
    RelTypeDiagramLayout = 39,
    RelTypeDiagramData = 40,
    RelTypeWordprocessingGroup = 41,
    RelTypeWordprocessingShape = 42,
    RelTypeWordprocessingCanvas = 43,
    RelTypePicture = 44,
    RelTypeDiagram = 45,
    RelTypeChart = 46,
    RelTypeLockedCanvas = 47,
    RelTypeCompatibility = 48,
    RelTypePackage = 49,
    RelTypeCommentAuthors = 50,
    RelTypeTableStyles = 51,
    RelTypeCustomXml = 52,
    RelTypeCustomXmlProps = 53,
    RelTypeUserCustomization = 54,
    RelTypeExtensibility = 55,
    RelTypeExtensibility2007 = 56,
    RelTypeActiveXControlBinary = 57,
    RelTypeKeyMapCustomizations = 58,
    RelTypeAttachedToolbars = 59,
    // End of the list.
    RelTypeUnknown = 0xFFFFFFFF,
};

// The id of a type URI, or RelTypeUnknown. Case does not matter, nor do blanks before the
// URI, nor what follows its first white space; null is the empty text.
//
// The thumbnail type answers RelTypeCustomProperties; RelTypeThumbnail only serves to
// search for thumbnails.
//
// Threads  Both functions may be called from any thread at any time.
VEXPA_API RelationshipTypeId GetRelationshipTypeId(const unsigned short* type);
inline RelationshipTypeId GetRelationshipTypeId(const char16_t* type) {
    return GetRelationshipTypeId(ToUnits(type));
}

// [borrowed] The type URI of an id, in lower case; it lasts as long as the library is
// loaded. The empty text for RelTypeUnknown and any other value outside the list.
VEXPA_API const unsigned short* GetRelationshipTypeUri(RelationshipTypeId id);

}  // namespace tarn::opc

#endif  // VEXPA_OPC_RELATIONSHIPTYPEID_H_

// What compiled callers count on: sizes, offsets and numbers.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <string>
#include <type_traits>

#include "vexpa/base/ComPtr.h"
#include "vexpa/base/Noncopyable.h"
#include "vexpa/opc/Package.h"
#include "vexpa/platform/Runtime.h"
#include "vexpa/xmlfx/XmlMapper.h"
#include "vexpa/zip/UnZipArchive.h"

namespace {

using namespace tarn;

TEST(Layout, OfAName) {
    using opc::PartUri;
    EXPECT_EQ(sizeof(PartUri), 9 * sizeof(std::u16string) + 8);
    EXPECT_EQ(offsetof(PartUri, scheme), 0u);
    EXPECT_EQ(offsetof(PartUri, opaque), 32u);
    EXPECT_EQ(offsetof(PartUri, registryName), 64u);
    EXPECT_EQ(offsetof(PartUri, host), 96u);
    EXPECT_EQ(offsetof(PartUri, userInfo), 128u);
    EXPECT_EQ(offsetof(PartUri, port), 160u);
    EXPECT_EQ(offsetof(PartUri, path), 168u);
    EXPECT_EQ(offsetof(PartUri, query), 200u);
    EXPECT_EQ(offsetof(PartUri, fragment), 232u);
    EXPECT_EQ(offsetof(PartUri, name), 264u);
}

TEST(Layout, OfTheDataOfAPart) {
    EXPECT_EQ(sizeof(opc::PartData), 40u);
    EXPECT_EQ(offsetof(opc::PartData, bytes), 0u);
    EXPECT_EQ(offsetof(opc::PartData, length), 8u);
    EXPECT_EQ(offsetof(opc::PartData, ownsBytes), 12u);
    EXPECT_EQ(offsetof(opc::PartData, dataStream), 16u);
    EXPECT_EQ(offsetof(opc::PartData, position), 24u);
    EXPECT_EQ(offsetof(opc::PartData, end), 32u);
}

TEST(Layout, OfWhatLookUpsOfRelationshipsAnswer) {
    EXPECT_EQ(sizeof(opc::RelationshipCursor), 16u);
    EXPECT_EQ(offsetof(opc::RelationshipCursor, current), 0u);
    EXPECT_EQ(offsetof(opc::RelationshipCursor, position), 8u);
    EXPECT_EQ(sizeof(opc::RelationshipRange), 16u);
    EXPECT_EQ(offsetof(opc::RelationshipRange, first), 0u);
    EXPECT_EQ(offsetof(opc::RelationshipRange, next), 8u);
    EXPECT_TRUE(std::is_trivially_copyable_v<opc::RelationshipRange>) << "returned in registers";
    EXPECT_TRUE((std::is_same_v<opc::RelationshipMap,
                                std::map<std::u16string, opc::Relationship*, std::less<>>>));
}

TEST(Layout, OfHolders) {
    EXPECT_EQ(sizeof(Handle<opc::Package>), 8u);
    EXPECT_FALSE(std::is_trivially_copyable_v<Handle<opc::Package>>) << "returned through memory";
    EXPECT_EQ(sizeof(ComPtr<IStream>), 8u);
}

TEST(Layout, OfInterfaces) {
    EXPECT_EQ(sizeof(Object), 8u);
    EXPECT_EQ(sizeof(ShallowCloneable), 8u);
    EXPECT_EQ(sizeof(opc::Package), 16u);
    EXPECT_EQ(sizeof(opc::Part), 8u);
    EXPECT_EQ(sizeof(opc::Relationship), 8u);
    EXPECT_TRUE(std::is_empty_v<Noncopyable>);
    EXPECT_EQ(sizeof(lumo::Compression::Zip::UnZipArchive), 16u);
}

TEST(Layout, OfTheEntriesOfTheVocabulary) {
    using xmlfx::NameInfo;
    EXPECT_EQ(sizeof(NameInfo), 16u);
    EXPECT_EQ(offsetof(NameInfo, uri), 0u);
    EXPECT_EQ(offsetof(NameInfo, name), 8u);
    EXPECT_EQ(sizeof(xmlfx::NSMap), 56u) << "the next entry stands behind the map in this one";
    EXPECT_EQ(sizeof(xmlfx::NSMapInverse), 56u);
    EXPECT_EQ(sizeof(xmlfx::NSMap::iterator), 8u);
    EXPECT_EQ(sizeof(xmlfx::NSMapInverse::const_iterator), 8u);
}

TEST(Layout, OfTheRelationshipTypes) {
    constexpr opc::RelationshipTypeId kInOrder[] = {
        opc::RelTypeAfChunk,
        opc::RelTypeComments,
        opc::RelTypeSettings,
        opc::RelTypeEndnotes,
        opc::RelTypeFontTable,
        opc::RelTypeFooter,
        opc::RelTypeFootnotes,
        opc::RelTypeGlossaryDocument,
        opc::RelTypeHeader,
        opc::RelTypeOfficeDocument,
        opc::RelTypeNumbering,
        opc::RelTypeStyles,
        opc::RelTypeWebSettings,
        opc::RelTypeAttachedTemplate,
        opc::RelTypeFrame,
        opc::RelTypeSubDocument,
        opc::RelTypeMailMergeSource,
        opc::RelTypeMailMergeHeaderSource,
        opc::RelTypeTransform,
        opc::RelTypeImage,
        opc::RelTypeTheme,
        opc::RelTypeHyperlink,
        opc::RelTypeCoreProperties,
        opc::RelTypeVbaProject,
        opc::RelTypeOleObject,
        opc::RelTypeVmlDrawing,
        opc::RelTypeSlideMaster,
        opc::RelTypeSlideLayout,
        opc::RelTypeViewProps,
        opc::RelTypePresProps,
        opc::RelTypeThemeOverride,
        opc::RelTypeNotesSlide,
        opc::RelTypeExtendedProperties,
        opc::RelTypeCustomProperties,
        opc::RelTypeThumbnail,
        opc::RelTypeControl,
        opc::RelTypeDiagramDrawing,
        opc::RelTypeDiagramColors,
        opc::RelTypeDiagramQuickStyle,
        opc::RelTypeDiagramLayout,
        opc::RelTypeDiagramData,
        opc::RelTypeWordprocessingGroup,
        opc::RelTypeWordprocessingShape,
        opc::RelTypeWordprocessingCanvas,
        opc::RelTypePicture,
        opc::RelTypeDiagram,
        opc::RelTypeChart,
        opc::RelTypeLockedCanvas,
        opc::RelTypeCompatibility,
        opc::RelTypePackage,
        opc::RelTypeCommentAuthors,
        opc::RelTypeTableStyles,
        opc::RelTypeCustomXml,
        opc::RelTypeCustomXmlProps,
        opc::RelTypeUserCustomization,
        opc::RelTypeExtensibility,
        opc::RelTypeExtensibility2007,
        opc::RelTypeActiveXControlBinary,
        opc::RelTypeKeyMapCustomizations,
        opc::RelTypeAttachedToolbars,
    };
    EXPECT_EQ(std::size(kInOrder), 60u);
    for (std::uint32_t i = 0; i < std::size(kInOrder); ++i) EXPECT_EQ(kInOrder[i], i);
    EXPECT_EQ(opc::RelTypeUnknown, 0xFFFFFFFFu);
    EXPECT_EQ(sizeof(opc::RelationshipTypeId), 4u);
}

TEST(Layout, OfTargetModes) {
    EXPECT_EQ(sizeof(opc::TargetMode), 4u);
    EXPECT_EQ(opc::TargetModeInternal, 0u);
    EXPECT_EQ(opc::TargetModeExternal, 1u);
}

TEST(Layout, OfResultCodes) {
    EXPECT_EQ(sizeof(HRESULT), 4u);
    EXPECT_EQ(S_OK, 0);
    EXPECT_EQ(S_FALSE, 1);
    const auto bits = [](HRESULT result) { return static_cast<std::uint32_t>(result); };
    EXPECT_EQ(bits(E_NOTIMPL), 0x80000001u);
    EXPECT_EQ(bits(E_OUTOFMEMORY), 0x80000002u);
    EXPECT_EQ(bits(E_INVALIDARG), 0x80000003u);
    EXPECT_EQ(bits(E_NOINTERFACE), 0x80000004u);
    EXPECT_EQ(bits(E_FAIL), 0x80000008u);
    EXPECT_EQ(bits(E_ACCESSDENIED), 0x80000009u);
    EXPECT_EQ(bits(STG_E_INVALIDFUNCTION), 0x80030001u);
    EXPECT_EQ(bits(STG_E_FILENOTFOUND), 0x80030002u);
}

// As COM numbers its interfaces.
TEST(Layout, OfInterfaceIdentifiers) {
    EXPECT_EQ(sizeof(GUID), 16u);
    EXPECT_EQ(offsetof(GUID, Data2), 4u);
    EXPECT_EQ(offsetof(GUID, Data3), 6u);
    EXPECT_EQ(offsetof(GUID, Data4), 8u);
    const auto com = [](std::uint32_t first) {
        return GUID{first, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    };
    EXPECT_TRUE(IID_IUnknown == com(0));
    EXPECT_TRUE(IID_IStorage == com(11));
    EXPECT_TRUE(IID_IStream == com(12));
    EXPECT_TRUE(IID_IEnumSTATSTG == com(13));
    EXPECT_TRUE((IID_ISequentialStream ==
                 GUID{0x0C733A30, 0x2A1C, 0x11CE, {0xAD, 0xE5, 0x00, 0xAA, 0x00, 0x44, 0x77, 0x3D}}));
}

TEST(Layout, OfWhatStreamsAndStoragesTellOfThemselves) {
    EXPECT_EQ(sizeof(FILETIME), 8u);
    EXPECT_EQ(offsetof(FILETIME, dwHighDateTime), 4u);
    EXPECT_EQ(sizeof(STATSTG), 80u);
    EXPECT_EQ(offsetof(STATSTG, pwcsName), 0u);
    EXPECT_EQ(offsetof(STATSTG, type), 8u);
    EXPECT_EQ(offsetof(STATSTG, cbSize), 16u);
    EXPECT_EQ(offsetof(STATSTG, mtime), 24u);
    EXPECT_EQ(offsetof(STATSTG, ctime), 32u);
    EXPECT_EQ(offsetof(STATSTG, atime), 40u);
    EXPECT_EQ(offsetof(STATSTG, grfMode), 48u);
    EXPECT_EQ(offsetof(STATSTG, grfLocksSupported), 52u);
    EXPECT_EQ(offsetof(STATSTG, clsid), 56u);
    EXPECT_EQ(offsetof(STATSTG, grfStateBits), 72u);
    EXPECT_EQ(offsetof(STATSTG, reserved), 76u);
    EXPECT_EQ(STGTY_STORAGE, 1u);
    EXPECT_EQ(STGTY_STREAM, 2u);
    EXPECT_EQ(STATFLAG_DEFAULT, 0u);
    EXPECT_EQ(STATFLAG_NONAME, 1u);
    EXPECT_EQ(STREAM_SEEK_SET, 0u);
    EXPECT_EQ(STREAM_SEEK_CUR, 1u);
    EXPECT_EQ(STREAM_SEEK_END, 2u);
}

TEST(Layout, OfWhatExtractionTakesAndGives) {
    EXPECT_EQ(kGblZeroInit, 0x40u);
    EXPECT_EQ(sizeof(UzpBuffer), 16u);
    EXPECT_EQ(offsetof(UzpBuffer, strlength), 0u);
    EXPECT_EQ(offsetof(UzpBuffer, strptr), 8u);
    EXPECT_EQ(sizeof(UzpOpts), 264u);
    EXPECT_EQ(offsetof(UzpOpts, exdir), 0u);
    EXPECT_EQ(offsetof(UzpOpts, pwdarg), 8u);
    EXPECT_EQ(offsetof(UzpOpts, zipinfo_mode), 16u);
    EXPECT_EQ(offsetof(UzpOpts, flags), 20u);
    EXPECT_EQ(sizeof(UzpCB), 48u);
    EXPECT_EQ(offsetof(UzpCB, structlen), 0u);
    EXPECT_EQ(offsetof(UzpCB, msgfn), 8u);
    EXPECT_EQ(offsetof(UzpCB, inputfn), 16u);
    EXPECT_EQ(offsetof(UzpCB, pausefn), 24u);
    EXPECT_EQ(offsetof(UzpCB, passwdfn), 32u);
    EXPECT_EQ(offsetof(UzpCB, statrepfn), 40u);
}

}  // namespace

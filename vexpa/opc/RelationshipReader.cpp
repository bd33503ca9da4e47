#include "vexpa/opc/RelationshipReader.h"

namespace tarn::opc {

namespace {

const char16_t* AttributeValue(IDomAttributes& attributes, const char16_t* name) {
    IDomAttribute* attribute = attributes.GetNamedItem(name);
    return attribute == nullptr ? nullptr : attribute->GetValue();
}

std::unique_ptr<RelationshipImpl> MakeRelationship(
    IDomAttributes& attributes, const std::shared_ptr<const RelationshipSource>& source,
    TypeTexts& types) {
    const char16_t* id = AttributeValue(attributes, u"Id");
    const char16_t* type = AttributeValue(attributes, u"Type");
    const char16_t* target = AttributeValue(attributes, u"Target");
    const char16_t* targetMode = AttributeValue(attributes, u"TargetMode");
    return std::make_unique<RelationshipImpl>(id, types.Share(type), source, target, targetMode);
}

}  // namespace

// Kept: an element counts wherever it stands, under any root, and one that lacks its Id, type or
// target has an empty one. (RelationshipStream.CountsElementsUnderAnyRootAndNamespace,
// RelationshipStream.LeavesAMissingAttributeEmpty)
void ReadRelationships(IDomDocument& document, const std::u16string& source, TypeTexts& types,
                       const RelationshipSink& sink) {
    const auto sharedSource = std::make_shared<const RelationshipSource>(source.c_str());
    // The list may be live, so its length is asked for again before every item.
    IDomNodeList* elements = document.GetElementsByTagName(u"Relationship");
    for (std::uint32_t i = 0; i < elements->GetLength(); ++i) {
        // An element without attributes is no relationship; those after it still count.
        IDomAttributes* attributes = elements->GetItem(i)->GetAttributes();
        if (attributes != nullptr && !sink(MakeRelationship(*attributes, sharedSource, types))) return;
    }
}

// Kept: a name that does not fit has no relationships.
// (RelationshipEntryName.IsEmptyForANameThatOverflows)
std::u16string RelationshipEntryName(const std::u16string& source) {
    // Fixed, as compiled platforms know them, in UTF-16 units. Only their first units are set, as
    // there are parts by the thousand.
    constexpr std::size_t kDirectoryUnits = 12288;
    constexpr std::size_t kNameUnits = 12288;
    constexpr std::size_t kExtensionUnits = 768;
    char16_t directory[kDirectoryUnits];
    char16_t name[kNameUnits];
    char16_t extension[kExtensionUnits];
    directory[0] = name[0] = extension[0] = 0;

    if (u_splitpath_s(source.c_str(), nullptr, 0, directory, kDirectoryUnits, name, kNameUnits,
                      extension, kExtensionUnits) != 0) {
        return {};
    }
    for (char16_t* separator = _Xu2_strchr(directory, u'\\'); separator != nullptr;
         separator = _Xu2_strchr(separator, u'\\')) {
        *separator = u'/';
    }
    for (const char16_t* piece : {u"_rels/", static_cast<const char16_t*>(name),
                                  static_cast<const char16_t*>(extension), u".rels"}) {
        if (u_strcat_s(directory, kDirectoryUnits, piece) != 0) return {};
    }
    return directory;
}

}  // namespace tarn::opc

#include "vexpa/opc/ContentTypes.h"

#include "vexpa/base/Utf16.h"
#include "vexpa/opc/PartNameKey.h"
#include "vexpa/platform/Runtime.h"

namespace tarn::opc {

namespace {

// Calls visit(key, content type) for each element of this name that has both attributes.
//
// Kept: wherever it stands, under any root. (ContentTypes.ElementsOfAnyRootAndNamespaceCountAtAnyDepth)
template <class Visit>
void ForEachRule(IDomDocument& document, const char16_t* element, const char16_t* keyName,
                 Visit visit) {
    IDomNodeList* rules = document.GetElementsByTagName(element);
    for (std::uint32_t i = 0; i < rules->GetLength(); ++i) {
        IDomAttributes* attributes = rules->GetItem(i)->GetAttributes();
        if (attributes == nullptr) continue;
        IDomAttribute* key = attributes->GetNamedItem(keyName);
        IDomAttribute* contentType = attributes->GetNamedItem(u"ContentType");
        if (key == nullptr || contentType == nullptr) continue;
        const char16_t* keyText = key->GetValue();
        visit(keyText, contentType->GetValue());
    }
}

}  // namespace

void ContentTypes::Read(IDomDocument& document) {
    ForEachRule(document, u"Override", u"PartName", [this](const char16_t* name, const char16_t* type) {
        const std::u16string_view key = PartNameKey(ViewText(ToUnits(name)));
        // The end of the name, so it has its NUL.
        overrideContentTypes.try_emplace(PartUri(key.data()), CopyText(type));
    });
    ForEachRule(document, u"Default", u"Extension",
                [this](const char16_t* extension, const char16_t* type) {
                    defaultContentTypes.try_emplace(CopyText(extension), CopyText(type));
                });
}

const char16_t* ContentTypes::Find(std::u16string_view key) const {
    const auto override = overrideContentTypes.find(key);
    if (override != overrideContentTypes.end()) return override->second.c_str();

    // Kept: the extension begins at the last dot, be it that of a folder, and a name without a dot
    // is its own. (ContentTypes.TheLastDotCountsEvenWhenItStandsInAFolder,
    // ContentTypes.ANameWithoutADotIsItsOwnExtension)
    const std::u16string_view extension = key.substr(key.rfind(u'.') + 1);  // npos + 1 is 0
    const auto byExtension = defaultContentTypes.find(extension);
    return byExtension == defaultContentTypes.end() ? u"" : byExtension->second.c_str();
}

}  // namespace tarn::opc

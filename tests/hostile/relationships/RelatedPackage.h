// tests/hostile/relationships/RelatedPackage.h - packages whose relationships a case chooses.
#ifndef VEXPA_TESTS_HOSTILE_RELATIONSHIPS_RELATEDPACKAGE_H_
#define VEXPA_TESTS_HOSTILE_RELATIONSHIPS_RELATEDPACKAGE_H_

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "tests/hostile/PackageText.h"
#include "tests/hostile/SmallPackage.h"
#include "tests/opc/PackageFile.h"

namespace vexpa_test {

// For a case: the small package with these Relationship elements for its own, or for those of
// its document.
inline std::function<std::string()> PackageRelated(std::string elements) {
    return [elements = std::move(elements)] {
        return SmallPackageWith(kPackageRelationshipsEntry, RelationshipsXml(elements)).Bytes();
    };
}
inline std::function<std::string()> DocumentRelated(std::string elements) {
    return [elements = std::move(elements)] {
        return SmallPackageWith(kDocumentRelationshipsEntry, RelationshipsXml(elements)).Bytes();
    };
}

// The same with the whole of the stream given.
inline std::function<std::string()> PackageStream(std::string xml) {
    return [xml = std::move(xml)] { return SmallPackageWith(kPackageRelationshipsEntry, xml).Bytes(); };
}
inline std::function<std::string()> DocumentStream(std::string xml) {
    return
        [xml = std::move(xml)] { return SmallPackageWith(kDocumentRelationshipsEntry, xml).Bytes(); };
}

// One relationship to the picture.
inline std::string ToPicture(std::string_view id) {
    return RelationshipXml(id, kImage, "a.png");
}
inline std::string ToDocument(std::string_view id) {
    return RelationshipXml(id, kOfficeDocument, kDocumentEntry);
}

// What a part shows that has the bytes of this entry.
inline std::string StreamText(ZipFile zip, std::string_view entry) {
    return BytesText(EntryOf(zip, entry).content);
}

inline constexpr const char* kPictureLine = "word/a.png: image/png \"pixels\"\n";

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_HOSTILE_RELATIONSHIPS_RELATEDPACKAGE_H_

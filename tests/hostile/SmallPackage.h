// tests/hostile/SmallPackage.h - the sound package that most crafted ones are made from.
#ifndef VEXPA_TESTS_HOSTILE_SMALLPACKAGE_H_
#define VEXPA_TESTS_HOSTILE_SMALLPACKAGE_H_

#include <string>
#include <string_view>

#include "tests/support/ZipFile.h"

namespace vexpa_test {

inline constexpr const char* kContentTypesEntry = "[Content_Types].xml";
inline constexpr const char* kPackageRelationshipsEntry = "_rels/.rels";
inline constexpr const char* kDocumentEntry = "word/document.xml";
inline constexpr const char* kDocumentRelationshipsEntry = "word/_rels/document.xml.rels";
inline constexpr const char* kPictureEntry = "word/a.png";

// The entries in this order: content types, package relationships, a document, its
// relationships, and a picture, which is what a test damages when one part is to suffer.
ZipFile SmallPackage();

// The entry of this name, to be changed; there must be one.
ZipEntry& EntryOf(ZipFile& zip, std::string_view name);

// The small package with other content, or more, under this name.
std::string SmallPackageWith(std::string_view entry, std::string content);

// What reading the small package gives, and what it gives when the picture's line is another.
std::string SmallPackageText();
std::string SmallPackageText(std::string_view picture);
std::string SmallPackageTextWithoutPicture();

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_HOSTILE_SMALLPACKAGE_H_

// tests/hostile/SmallPackage.h - the sound package that most crafted ones are made from.
#ifndef VEXPA_TESTS_HOSTILE_SMALLPACKAGE_H_
#define VEXPA_TESTS_HOSTILE_SMALLPACKAGE_H_

#include <functional>
#include <string>
#include <string_view>

#include "tests/support/ZipFile.h"

namespace vexpa_test {

inline constexpr const char* kContentTypesEntry = "[Content_Types].xml";
inline constexpr const char* kPackageRelationshipsEntry = "_rels/.rels";
inline constexpr const char* kDocumentEntry = "word/document.xml";
inline constexpr const char* kDocumentRelationshipsEntry = "word/_rels/document.xml.rels";
inline constexpr const char* kPictureEntry = "word/a.png";

// The picture's bytes as deflate gives them in eight, whatever the compressor at hand does.
extern const std::string kDeflatedPixels;

// The type of a relationship to a picture.
inline constexpr const char* kImage =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/image";

// The entries in this order: content types, package relationships, a document, its
// relationships, and a picture, which is what a test damages when one part is to suffer.
ZipFile SmallPackage();

// The entry of this name, to be changed; there must be one.
ZipEntry& EntryOf(ZipFile& zip, std::string_view name);

// The same with other content for an entry, which is made when there is none.
ZipFile SmallPackageWith(std::string_view entry, std::string content);

// For a case: the bytes of a small package that was changed, or whose picture was.
std::function<std::string()> PackageWith(std::function<void(ZipFile&)> change);
std::function<std::string()> PictureWith(std::function<void(ZipEntry&)> change);

// What reading the small package gives: the document's lines, and one more for the picture that
// has this content, or cannot be read, or is not there.
extern const std::string kDocumentText;
std::string SmallPackageText(std::string_view picture = "\"pixels\"");
std::string PictureUnreadable();
std::string PictureMissing();

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_HOSTILE_SMALLPACKAGE_H_

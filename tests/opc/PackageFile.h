// tests/opc/PackageFile.h - builds a package, entry by entry, and opens it.
#ifndef VEXPA_TESTS_OPC_PACKAGEFILE_H_
#define VEXPA_TESTS_OPC_PACKAGEFILE_H_

#include <memory>
#include <string>
#include <string_view>

#include "tests/support/ScratchFile.h"
#include "tests/support/ZipFile.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/base/Handle.h"
#include "vexpa/opc/Package.h"

namespace vexpa_test {

inline constexpr const char* kOfficeDocument =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument";
inline constexpr const char* kStyles =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles";

// A package in the making. [Content_Types].xml and _rels/.rels are written from the rules
// and relationships given, unless the test brings an entry of that name itself.
class PackageFile {
public:
    void Default(std::string_view extension, std::string_view contentType);
    void Override(std::string_view partName, std::string_view contentType);
    void Relationship(std::string_view id, std::string_view type, std::string_view target,
                      std::string_view targetMode = {});
    ZipEntry& Entry(std::string name, std::string content) {
        return zip_.Add(std::move(name), std::move(content));
    }

    // Writes the file anew and opens it.
    tarn::Handle<tarn::opc::Package> Open(unsigned int flags = 0);

    // Writes the file; its path. For tests that open it by other means or change it.
    const ScratchFile& Write();

private:
    bool Has(std::string_view entry) const;

    ZipFile zip_;
    std::string contentTypes_;
    std::string relationships_;
    std::unique_ptr<ScratchFile> file_;
};

// One Relationship element; attributes that are empty are left out.
std::string RelationshipXml(std::string_view id, std::string_view type, std::string_view target,
                            std::string_view targetMode = {});
// A whole relationship stream around such elements.
std::string RelationshipsXml(std::string_view elements);

// A package with one part, word/document.xml, related as the office document by rId1.
PackageFile MinimalPackage();

// The text that a public interface hands out.
std::u16string Text(const unsigned short* text);

// What is left from the stream's position on; and that position.
std::string ReadToEnd(IStream& stream);
std::uint64_t Position(IStream& stream);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_OPC_PACKAGEFILE_H_

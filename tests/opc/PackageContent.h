// tests/opc/PackageContent.h - everything that a caller can see of a package, to be compared.
#ifndef VEXPA_TESTS_OPC_PACKAGECONTENT_H_
#define VEXPA_TESTS_OPC_PACKAGECONTENT_H_

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "vexpa/opc/Package.h"
#include "vexpa/platform/Runtime.h"

namespace vexpa_test {

struct PartContent {
    std::string contentType;
    std::string relationships;           // a line for each; none: it has none
    std::optional<std::string> stream;   // nothing: it could not be read
    std::optional<std::string> storage;  // every element, a line for each; nothing: it is none

    bool operator==(const PartContent&) const = default;
};

struct PackageContent {
    std::string relationships;
    std::map<std::string, PartContent> parts;  // by name, all that relationships lead to

    bool operator==(const PackageContent&) const = default;
};

// Nothing when the package at `path` does not open.
std::optional<PackageContent> ReadPackage(const std::u16string& path);
PackageContent ReadContent(tarn::opc::Package& package);

// All elements below a storage that can be read, with their content. A name met twice ends it: where
// two storages have one name, the first would be read in place of the other without end.
std::string DescribeStorage(IStorage& storage);

// What `seen` shows that none of `versions` of the package has; empty when there is no such
// thing. That something is missing is no fault: a part, a stream, a storage or the
// relationships of a part, but those only all at once.
std::string WrongContent(const PackageContent& seen,
                         const std::vector<const PackageContent*>& versions);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_OPC_PACKAGECONTENT_H_

// examples/OpenDocument.h - opens the document that a command line names.
#ifndef VEXPA_EXAMPLES_OPENDOCUMENT_H_
#define VEXPA_EXAMPLES_OPENDOCUMENT_H_

#include <filesystem>

#include "vexpa/opc/Package.h"

// Empty where the file is not readable, or is no package.
inline tarn::Handle<tarn::opc::Package> OpenPackage(const char* file) {
    return tarn::opc::Package::Open(std::filesystem::path(file).u16string().c_str());
}

// The package's own, or null.
inline tarn::opc::Part* FindPart(tarn::opc::Package& package, const char* name) {
    return package.GetPart(tarn::opc::PartUri(std::filesystem::path(name).u16string().c_str()));
}

// The text, the presentation, the workbook: the package's own, or null.
inline tarn::opc::Part* FindMainPart(tarn::opc::Package& package) {
    const tarn::opc::Relationship* main =
        package.GetRelationshipByType(tarn::opc::RelTypeOfficeDocument);
    return main == nullptr ? nullptr : package.GetPart(main->GetResolvedTarget());
}

#endif  // VEXPA_EXAMPLES_OPENDOCUMENT_H_

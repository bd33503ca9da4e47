// examples/OpenDocument.h - opens the document that a command line names.
#ifndef VEXPA_EXAMPLES_OPENDOCUMENT_H_
#define VEXPA_EXAMPLES_OPENDOCUMENT_H_

#include "vexpa/base/Utf8.h"
#include "vexpa/opc/Package.h"

// Empty where the file is not readable, or is no package.
inline tarn::Handle<tarn::opc::Package> OpenPackage(const char* file) {
    return tarn::opc::Package::Open(tarn::FromUtf8(file).c_str());
}

// The package's own, or null.
inline tarn::opc::Part* FindPart(tarn::opc::Package& package, const char* name) {
    return package.GetPart(tarn::FromUtf8(name).c_str());
}

// The text, the presentation, the workbook: the package's own, or null.
inline tarn::opc::Part* FindMainPart(tarn::opc::Package& package) {
    const tarn::opc::Relationship* start =
        package.GetRelationshipByType(tarn::opc::RelTypeOfficeDocument);
    return start == nullptr ? nullptr : package.GetPart(start->GetResolvedTarget());
}

#endif  // VEXPA_EXAMPLES_OPENDOCUMENT_H_

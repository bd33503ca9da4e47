// examples/XercesImporter.h - imports a part by way of Xerces-C++ (SAX2).
#ifndef VEXPA_EXAMPLES_XERCESIMPORTER_H_
#define VEXPA_EXAMPLES_XERCESIMPORTER_H_

#include "examples/importer/Importer.h"

namespace importer {

// Keeps Xerces started while it lives. The process makes and ends such objects one at a
// time, as Xerces counts its users without a lock.
class XercesImporter final : public Importer {
public:
    explicit XercesImporter(const Limits& limits = {});
    ~XercesImporter() override;
    XercesImporter(const XercesImporter&) = delete;
    XercesImporter& operator=(const XercesImporter&) = delete;

    Tree Import(IStream& stream) override;

private:
    Limits limits_;
};

}  // namespace importer

#endif  // VEXPA_EXAMPLES_XERCESIMPORTER_H_

// examples/QtImporter.h - imports a part by way of Qt's QXmlStreamReader.
#ifndef VEXPA_EXAMPLES_QTIMPORTER_H_
#define VEXPA_EXAMPLES_QTIMPORTER_H_

#include "examples/importer/Importer.h"

namespace importer {

// QXmlStreamReader compares every attribute of a start tag with all those before it: 40,000
// in one tag take 3 s, and four times as long for twice as many. An importer that must not be held up
// by a hostile part is the other one.
class QtImporter final : public Importer {
public:
    explicit QtImporter(const Limits& limits = {}) : limits_(limits) {}
    Tree Import(IStream& stream) override;

private:
    Limits limits_;
};

}  // namespace importer

#endif  // VEXPA_EXAMPLES_QTIMPORTER_H_

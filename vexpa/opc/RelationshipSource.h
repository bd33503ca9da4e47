// vexpa/opc/RelationshipSource.h - what the relationships of one stream share.
#ifndef VEXPA_OPC_RELATIONSHIPSOURCE_H_
#define VEXPA_OPC_RELATIONSHIPSOURCE_H_

#include <string>

#include "vexpa/opc/PartUri.h"
#include "vexpa/opc/TargetResolution.h"

namespace tarn::opc {

// The part they start from; without a name, the package. The name may be thousands of units long,
// and a short element each is enough for a million relationships: so they share it, and its
// directory is looked for once.
struct RelationshipSource {
    explicit RelationshipSource(const char16_t* source)
        : uri(source), directory(uri.name.empty() ? u"" : SourceDirectory(uri.name)) {}

    PartUri uri;
    std::u16string directory;
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_RELATIONSHIPSOURCE_H_

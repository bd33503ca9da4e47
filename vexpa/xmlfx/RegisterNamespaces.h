// vexpa/xmlfx/RegisterNamespaces.h - fills the namespace maps from the token table.
#ifndef VEXPA_XMLFX_REGISTERNAMESPACES_H_
#define VEXPA_XMLFX_REGISTERNAMESPACES_H_

#include "vexpa/xmlfx/TokenTable.h"

namespace tarn::xmlfx {

// Registers the whole token table, unless the forward map holds something already.
//
// When memory runs out it throws, and the maps keep what they have; the next call then
// adds the rest.
void RegisterNamespaces();

// Adds one list under `uri`. The first registration wins: a name that the URI has already
// and a token that its namespace has already are passed over. An empty list makes the URI
// known and no more.
void RegisterNamespace(const char16_t* uri, const NameEntry* names, unsigned count);

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_REGISTERNAMESPACES_H_

// vexpa/opc/RelationshipReader.h - the relationships that a .rels document lists.
#ifndef VEXPA_OPC_RELATIONSHIPREADER_H_
#define VEXPA_OPC_RELATIONSHIPREADER_H_

#include <functional>
#include <memory>
#include <string>

#include "vexpa/opc/RelationshipImpl.h"
#include "vexpa/platform/Runtime.h"

namespace tarn::opc {

using RelationshipSink = std::function<bool(std::unique_ptr<RelationshipImpl>)>;

// Gives `sink` a relationship for each Relationship element, in document order, until it answers
// false; the element's namespace and parents do not matter. A missing attribute is an empty text.
void ReadRelationships(IDomDocument& document, const std::u16string& source, TypeTexts& types,
                       const RelationshipSink& sink);

// The entry that holds the relationships of the part `source`: word/_rels/document.xml.rels
// for word/document.xml, with or without a leading '/' as the source has it. Empty when
// the name is too long to have one.
std::u16string RelationshipEntryName(const std::u16string& source);

}  // namespace tarn::opc

#endif  // VEXPA_OPC_RELATIONSHIPREADER_H_

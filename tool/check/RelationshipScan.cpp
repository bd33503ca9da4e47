#include "tool/check/RelationshipScan.h"

#include "tool/check/StartTag.h"

namespace vexpa_tool {

RelationshipScan ScanRelationships(std::string_view document) {
    RelationshipScan scan;
    bool isRoot = true;
    XmlScan xml(XmlScan::Names::AsWritten, [&](const XmlStartTag& tag) {
        if (isRoot) {
            scan.root = LocalName(tag.name);
            scan.rootNamespace = NamespaceOfRoot(tag);
        }
        isRoot = false;
        // An element without attributes is none.
        if (LocalName(tag.name) != "Relationship" || *tag.attributes == nullptr) return;
        scan.relationships.push_back({AttributeOf(tag, "Id"), AttributeOf(tag, "Type"),
                                      AttributeOf(tag, "Target"), AttributeOf(tag, "TargetMode"),
                                      tag.Place()});
    });
    xml.Feed(document);
    scan.fault = xml.Finish();
    scan.hasDocumentType = xml.HasDocumentType();
    return scan;
}

}  // namespace vexpa_tool

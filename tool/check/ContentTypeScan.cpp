#include "tool/check/ContentTypeScan.h"

#include "tool/check/StartTag.h"

namespace vexpa_tool {

ContentTypeScan ScanContentTypes(std::string_view document) {
    ContentTypeScan scan;
    bool isRoot = true;
    XmlScan xml(XmlScan::Names::AsWritten, [&](const XmlStartTag& tag) {
        if (isRoot) {
            scan.root = LocalName(tag.name);
            scan.rootNamespace = NamespaceOfRoot(tag);
        }
        isRoot = false;
        const std::string_view name = LocalName(tag.name);
        const bool isOverride = name == "Override";
        if ((!isOverride && name != "Default") || *tag.attributes == nullptr) return;
        scan.rules.push_back({isOverride, AttributeOf(tag, isOverride ? "PartName" : "Extension"),
                              AttributeOf(tag, "ContentType"), tag.Place()});
    });
    xml.Feed(document);
    scan.fault = xml.Finish();
    scan.hasDocumentType = xml.HasDocumentType();
    return scan;
}

}  // namespace vexpa_tool

#include "tests/worst/ShapeParts.h"

namespace vexpa_test {

std::string Repeated(std::string_view text, std::size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
}

std::string Related(std::string_view id, std::string_view target) {
    return "<Relationship Id='" + std::string(id) + "' Target='" + std::string(target) + "'/>";
}

std::string Root(std::string_view content) {
    return "<R>" + std::string(content) + "</R>";
}

ZipFile PackageOf(std::string_view relationships, std::string_view contentTypes) {
    ZipFile zip;
    zip.Add("[Content_Types].xml", Root(contentTypes));
    zip.Add("_rels/.rels", Root(std::string(relationships) + Related("z", "a.xml")));
    zip.Add("a.xml", "").stored = true;
    return zip;
}

ZipFile PartOf(std::string_view relationships) {
    ZipFile zip = PackageOf("");
    zip.Add("_rels/a.xml.rels", Root(relationships));
    return zip;
}

}  // namespace vexpa_test

#include "tool/text/ShortNames.h"

#include <string_view>

#include "tool/text/Unicode.h"
#include "vexpa/base/Utf16.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

std::string TypeEnd(const opc::Relationship& relationship) {
    const std::u16string type = tarn::CopyText(relationship.GetType());
    const std::size_t slash = type.find_last_of(u"/\\");
    return PrintableOrQuotes(slash == std::u16string::npos ? type : type.substr(slash + 1));
}

std::string ShortType(const opc::Relationship& relationship) {
    const opc::RelationshipTypeId id = relationship.GetTypeId();
    const std::string number = id == opc::RelTypeUnknown ? "-" : std::to_string(id);
    return TypeEnd(relationship) + " [" + number + "]";
}

std::string ShortContentType(const std::string& contentType) {
    for (const std::string_view prefix : {"application/vnd.openxmlformats-officedocument.",
                                          "application/vnd.openxmlformats-package."}) {
        if (contentType.compare(0, prefix.size(), prefix) == 0)
            return contentType.substr(prefix.size());
    }
    return contentType;
}

}  // namespace vexpa_tool

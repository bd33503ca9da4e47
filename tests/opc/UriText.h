// tests/opc/UriText.h - the components of a URI reference, to be compared and printed.
#ifndef VEXPA_TESTS_OPC_URITEXT_H_
#define VEXPA_TESTS_OPC_URITEXT_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "vexpa/opc/UriComponents.h"
#include "vexpa/opc/UriParser.h"

namespace vexpa_test {

// Every component that is there as <letter>(text) in a fixed order: scheme, opaque,
// registry name, user info, host, port when not 0, path, query, fragment.
inline std::string Describe(const tarn::opc::UriComponents& uri) {
    std::string text;
    const auto add = [&text](const char* letter, const char* component) {
        if (component != nullptr) text += std::string(letter) + "(" + component + ")";
    };
    add("s", uri.scheme);
    add("o", uri.opaque);
    add("r", uri.registryName);
    add("u", uri.userInfo);
    add("h", uri.host);
    if (uri.port != 0) text += ":" + std::to_string(uri.port);
    add("p", uri.path);
    add("q", uri.query);
    add("f", uri.fragment);
    return text;
}

// The same for a text; "error" when it does not parse.
inline std::string DescribeParsed(std::string_view text, std::uint32_t options = 0) {
    const tarn::opc::ScratchUriComponents uri(options);
    if (tarn::opc::ParseUri(text, *uri) == tarn::opc::UriStatus::Parsed) return Describe(*uri);
    return Describe(*uri) + "error";
}

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_OPC_URITEXT_H_

// tests/xmlfx/RegistryFixture.h - the library as it is between start and end.
#ifndef VEXPA_TESTS_XMLFX_REGISTRYFIXTURE_H_
#define VEXPA_TESTS_XMLFX_REGISTRYFIXTURE_H_

#include <gtest/gtest.h>

#include <optional>

#include "vexpa/base/Lifecycle.h"
#include "vexpa/xmlfx/XmlMapper.h"

namespace vexpa_test {

class RegistryFixture : public ::testing::Test {
protected:
    RegistryFixture() { _vexpa_Initialize(); }
    ~RegistryFixture() override { _vexpa_Terminate(); }
};

// The token of a name, or nothing.
inline std::optional<std::uint32_t> TokenOf(std::u16string_view uri, std::u16string_view name) {
    const tarn::xmlfx::NSMap& namespaces = tarn::xmlfx::XmlMapper::GetNSMap();
    const auto names = namespaces.find(uri);
    if (names == namespaces.end()) return std::nullopt;
    const auto token = names->second.find(name);
    if (token == names->second.end()) return std::nullopt;
    return token->second;
}

// What a token stands for, or null.
inline const tarn::xmlfx::NameInfo* NameOf(std::uint32_t token) {
    const tarn::xmlfx::NSMapInverse& namespaces = tarn::xmlfx::XmlMapper::GetNSMapInverse();
    const auto names = namespaces.find(tarn::xmlfx::NamespaceOf(token));
    if (names == namespaces.end()) return nullptr;
    const auto name = names->second.find(token);
    return name == names->second.end() ? nullptr : &name->second;
}

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_XMLFX_REGISTRYFIXTURE_H_

// tests/xmlfx/SetText.h - attribute sets as text, so that a test compares them at a glance.
#ifndef VEXPA_TESTS_XMLFX_SETTEXT_H_
#define VEXPA_TESTS_XMLFX_SETTEXT_H_

#include <string>
#include <utility>
#include <vector>

#include "vexpa/base/Utf16.h"
#include "vexpa/xmlfx/XmlRoAttr.h"

namespace vexpa_test {

inline const unsigned short* Units(const char16_t* text) {
    return tarn::ToUnits(text);
}

inline std::u16string ValueOf(const tarn::xmlfx::XmlRoAttr& set) {
    return {tarn::FromUnits(set.GetValue()), set.GetValueLength()};
}

using Pairs = std::vector<std::pair<std::uint32_t, std::u16string>>;

// The tokens and value strings of a set, by position.
inline Pairs PairsOf(const tarn::xmlfx::XmlRoAttr& set) {
    Pairs pairs;
    for (std::uint32_t i = 0; i < set.GetCount(); ++i) {
        std::uint32_t token = 0;
        const tarn::xmlfx::XmlRoAttr* value = set.GetAt(i, &token);
        pairs.emplace_back(token, ValueOf(*value));
    }
    return pairs;
}

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_XMLFX_SETTEXT_H_

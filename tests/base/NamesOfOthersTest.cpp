// The names of a text library that an importer may use as well, declared before our headers: but
// for the header of the platform, none of them declares such a name another way.
#include <cstdint>

extern "C" std::int32_t u_strlen(const char16_t* text);

#include <gtest/gtest.h>

#include <type_traits>

#include "vexpa/base/Lifecycle.h"
#include "vexpa/opc/Package.h"
#include "vexpa/xmlfx/Transform.h"
#include "vexpa/xmlfx/XmlAttrBuilder.h"
#include "vexpa/xmlfx/XmlMapper.h"

namespace {

TEST(PublicHeaders, LeaveTheNamesOfATextLibraryAlone) {
    const bool isTheirs = std::is_same_v<decltype(u_strlen), std::int32_t(const char16_t*)>;
    EXPECT_TRUE(isTheirs);
}

}  // namespace

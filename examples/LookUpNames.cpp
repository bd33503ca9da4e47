// From a name to its token and back: LookUpNames URI NAME

#include <cinttypes>
#include <cstdio>
#include <string_view>

#include "examples/Arguments.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/base/Utf8.h"
#include "vexpa/xmlfx/XmlMapper.h"

using namespace tarn;
using namespace tarn::xmlfx;

namespace {

// The token of a name, or kNullToken. Names are compared exactly, case included.
std::uint32_t TokenOf(std::u16string_view uri, std::u16string_view name) {
    const NSMap& namespaces = XmlMapper::GetNSMap();
    const auto names = namespaces.find(uri);
    if (names == namespaces.end()) return kNullToken;
    const auto found = names->second.find(name);
    return found == names->second.end() ? kNullToken : found->second;
}

// What a token stands for, or null.
const NameInfo* NameOf(std::uint32_t token) {
    const NSMapInverse& namespaces = XmlMapper::GetNSMapInverse();
    const auto tokens = namespaces.find(NamespaceOf(token));
    if (tokens == namespaces.end()) return nullptr;
    const auto found = tokens->second.find(token);
    return found == tokens->second.end() ? nullptr : &found->second;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return Usage("LookUpNames URI NAME");
    const Library library;  // the maps are filled now
    const std::uint32_t token = TokenOf(FromUtf8(argv[1]), FromUtf8(argv[2]));
    const NameInfo* info = token == kNullToken ? nullptr : NameOf(token);
    if (info == nullptr) return 4;  // not in the vocabulary
    std::printf("0x%08" PRIX32 " {%s}%s\n", token, ToUtf8(info->uri).c_str(),
                ToUtf8(info->name).c_str());
}

#include "vexpa/opc/PartUri.h"

#include <algorithm>
#include <limits>

#include "vexpa/base/LocalText.h"
#include "vexpa/opc/UriComponents.h"
#include "vexpa/opc/UriParser.h"

namespace tarn::opc {

namespace {

// Qt counts in int, and an encoding may take several bytes for a unit.
constexpr std::size_t kLongestName = std::numeric_limits<int>::max() / 8;

// True for the characters that stand for themselves in a path, whatever is around them. One that
// may begin something else, like ':' or '?', is not among them, nor is '~', which some encodings
// have elsewhere.
bool IsPlain(char16_t unit) {
    if (unit >= u'a' && unit <= u'z') return true;
    if (unit >= u'-' && unit <= u'9') return true;  // - . / 0 to 9
    return (unit >= u'A' && unit <= u'Z') || unit == u'_';
}

// Nearly every name is a path and nothing else, without need of the parser.
bool IsPlainPath(const std::u16string& name) {
    const bool hasAuthority = name.size() > 1 && name[0] == u'/' && name[1] == u'/';
    return !hasAuthority && std::all_of(name.begin(), name.end(), IsPlain);
}

// Kept: a component is NUL-terminated, so it ends at an escape %00.
// (PartUri.ComponentEndsAtAnEscapedNul)
std::u16string FromLocal(const char* text) {
    return text == nullptr ? std::u16string() : FromLocalText(text);
}

}  // namespace

PartUri::PartUri(const unsigned short* givenName) : name(CopyText(givenName)) {
    if (name.empty() || name.size() > kLongestName) return;
    // Kept: without room for the parser a name has no components, one that needs no parser either.
    // (TaskMemory.APlainPathNeedsTheRecordAsWell)
    const ScratchUriComponents parsed;
    if (!parsed) return;
    if (IsPlainPath(name)) {
        path = name;
        return;
    }
    // Kept: the parser reads 8-bit text and takes ASCII only. A character outside is an error, or a
    // question mark where the locale lacks it. (PartUri.DoesNotParseANameOutsideAscii,
    // PartUri.LosesWhatTheLocaleCannotSayInItsComponentsOnly)
    LocalText local(name);
    if (!local || ParseUri(local.View(), *parsed) != UriStatus::Parsed) return;

    scheme = FromLocal(parsed->scheme);
    opaque = FromLocal(parsed->opaque);
    registryName = FromLocal(parsed->registryName);
    host = FromLocal(parsed->host);
    userInfo = FromLocal(parsed->userInfo);
    port = parsed->port;
    path = FromLocal(parsed->path);
    query = FromLocal(parsed->query);
    fragment = FromLocal(parsed->fragment);
}

}  // namespace tarn::opc

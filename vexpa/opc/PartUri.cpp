#include "vexpa/opc/PartUri.h"

#include <QByteArray>
#include <QString>
#include <algorithm>
#include <limits>
#include <string_view>

#include "vexpa/opc/UriComponents.h"
#include "vexpa/opc/UriParser.h"

namespace tarn::opc {

namespace {

// Qt counts in int, and an encoding may take several bytes for a unit.
constexpr std::size_t kLongestName = std::numeric_limits<int>::max() / 8;

// True for the characters that every encoding of a locale has in the same place. The
// backslash and the tilde are others in some.
template <class Unit>
bool IsInvariant(Unit unit) {
    return unit >= 0x20 && unit < 0x7E && unit != '\\';
}

// Nearly every name is of invariant characters only, and Qt's codecs cost more than the
// parsing; the result is the same.
QByteArray ToLocal(const std::u16string& text) {
    if (!std::all_of(text.begin(), text.end(), IsInvariant<char16_t>)) {
        return QString::fromUtf16(text.c_str()).toLocal8Bit();
    }
    QByteArray local(static_cast<int>(text.size()), Qt::Uninitialized);
    std::transform(text.begin(), text.end(), local.begin(), [](char16_t c) { return char(c); });
    return local;
}

// A component is NUL-terminated, so it ends at an escape %00. (ComponentEndsAtAnEscapedNul)
std::u16string FromLocal(const char* text) {
    if (text == nullptr) return {};
    const std::string_view local = text;
    if (!std::all_of(local.begin(), local.end(), IsInvariant<char>)) {
        return QString::fromLocal8Bit(text).toStdU16String();
    }
    return {local.begin(), local.end()};
}

}  // namespace

PartUri::PartUri(const unsigned short* givenName) : name(CopyText(givenName)) {
    if (name.size() > kLongestName) return;
    const QByteArray local = ToLocal(name);
    if (local.isEmpty()) return;

    const ScratchUriComponents parsed;
    if (!parsed) return;
    const std::string_view text(local.constData(), static_cast<std::size_t>(local.size()));
    if (ParseUri(text, *parsed) != UriStatus::Parsed) return;

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

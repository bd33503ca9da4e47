#include "tool/text/Local.h"

#include <langinfo.h>

#include <QString>
#include <clocale>
#include <cstdio>
#include <cwchar>
#include <string_view>

#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

bool environmentIsUtf8 = false;

QString Decode(const std::string& local) {
    return QString::fromLocal8Bit(local.data(), static_cast<int>(local.size()));
}

// "\xff"
std::string ByteText(char byte) {
    char text[8];
    std::snprintf(text, sizeof text, "\\x%02x",
                  static_cast<unsigned>(static_cast<unsigned char>(byte)));
    return text;
}

}  // namespace

// NOLINTBEGIN(concurrency-mt-unsafe): no thread has begun yet.
void UseEnvironmentLocale() {
    std::setlocale(LC_ALL, "");
    const std::string_view plainAscii = "ANSI_X3.4-1968";
    const std::string_view codeset = nl_langinfo(CODESET);
    environmentIsUtf8 = codeset == "UTF-8";
    if (codeset == plainAscii) std::setlocale(LC_CTYPE, "C.UTF-8");
}
// NOLINTEND(concurrency-mt-unsafe)

bool EnvironmentIsUtf8() {
    return environmentIsUtf8;
}

std::u16string FromLocal(const std::string& local) {
    return Decode(local).toStdU16String();
}

bool IsLocalText(const std::string& local) {
    return Decode(local).toLocal8Bit().toStdString() == local;
}

std::string PrintableLocal(const std::string& local) {
    if (IsLocalText(local)) return PrintableOrQuotes(FromLocal(local));
    std::string printable;
    std::mbstate_t state{};
    for (std::string_view rest = local; !rest.empty();) {
        wchar_t character = 0;
        const std::size_t size = std::mbrtowc(&character, rest.data(), rest.size(), &state);
        const bool isText = size != 0 && size <= rest.size();
        printable +=
            isText ? Printable(FromLocal(std::string(rest.substr(0, size)))) : ByteText(rest[0]);
        rest.remove_prefix(isText ? size : 1);
        if (!isText) state = {};
    }
    return printable;
}

}  // namespace vexpa_tool

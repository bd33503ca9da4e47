#include "tool/text/Local.h"

#include <langinfo.h>

#include <QString>
#include <clocale>
#include <string_view>

#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

bool environmentIsUtf8 = false;

QString Decode(const std::string& local) {
    return QString::fromLocal8Bit(local.data(), static_cast<int>(local.size()));
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
    return PrintableOrQuotes(FromLocal(local));
}

}  // namespace vexpa_tool

#include "runtime/text/LocalText.h"

#include <QByteArray>
#include <QString>

namespace vexpa_runtime {

std::string ToLocal(const char16_t* text) {
    return QString::fromUtf16(text).toLocal8Bit().toStdString();
}

std::u16string FromLocal(std::string_view text) {
    return QString::fromLocal8Bit(text.data(), static_cast<int>(text.size())).toStdU16String();
}

}  // namespace vexpa_runtime

// vexpa/base/LocalText.h - between UTF-16 and the encoding of the process locale.
#ifndef VEXPA_BASE_LOCALTEXT_H_
#define VEXPA_BASE_LOCALTEXT_H_

#include <QByteArray>
#include <string>
#include <string_view>

namespace tarn {

// The answers of QString::toLocal8Bit and fromLocal8Bit. Qt's codecs cost more than what most
// texts are converted for, so those of characters that all encodings agree on go without them.
// The text of the first is at most INT_MAX / 8 units long.
QByteArray ToLocalText(std::u16string_view text);
std::u16string FromLocalText(std::string_view text);

}  // namespace tarn

#endif  // VEXPA_BASE_LOCALTEXT_H_

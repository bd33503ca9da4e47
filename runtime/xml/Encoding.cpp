#include "runtime/xml/Encoding.h"

#include <QByteArray>
#include <QString>
#include <QTextCodec>
#include <algorithm>

namespace vexpa_runtime {

namespace {

constexpr const char* kFamilies[] = {"windows-", "iso-8859-", "cp", "ibm", "koi8-"};
constexpr int kLongestName = 32;

// The name comes from the document, and the codecs may look unknown names up in files.
bool IsKnownFamily(const QByteArray& name) {
    if (name.size() > kLongestName) return false;
    const bool plain = std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-';
    });
    return plain && std::any_of(std::begin(kFamilies), std::end(kFamilies),
                                [&](const char* family) { return name.startsWith(family); });
}

// The character that a byte stands for by itself; -1 for none. False when the byte begins
// a longer sequence.
bool MapByte(const QTextCodec& codec, unsigned char byte, int& code) {
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const char text = static_cast<char>(byte);
    const QString decoded = codec.toUnicode(&text, 1, &state);
    if (state.remainingChars != 0 || decoded.size() != 1) return false;
    const bool valid = state.invalidChars == 0 && decoded.at(0) != QChar(QChar::ReplacementCharacter);
    code = valid ? decoded.at(0).unicode() : -1;
    return true;
}

}  // namespace

int XMLCALL FindEncoding(void*, const XML_Char* name, XML_Encoding* encoding) noexcept {
    try {
        const QByteArray family = QByteArray(name).toLower();
        if (!IsKnownFamily(family)) return XML_STATUS_ERROR;
        const QTextCodec* codec = QTextCodec::codecForName(family);
        if (codec == nullptr) return XML_STATUS_ERROR;
        for (int byte = 0; byte < 256; ++byte) {
            const auto value = static_cast<unsigned char>(byte);
            if (!MapByte(*codec, value, encoding->map[byte])) return XML_STATUS_ERROR;
        }
        encoding->data = nullptr;
        encoding->convert = nullptr;
        encoding->release = nullptr;
        return XML_STATUS_OK;
    } catch (...) {
        return XML_STATUS_ERROR;
    }
}

}  // namespace vexpa_runtime

// Windows-1252 by a table of its upper control range; all else is Latin-1.
#include "platform/CodePage.h"

#include <algorithm>
#include <array>

namespace zv {
namespace {

// Characters of the bytes 0x80 to 0x9F.
constexpr std::array<char16_t, 32> kAltos = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr bool EsAlto(uchar byte) {
    return byte >= 0x80 && byte < 0xA0;
}

char ByteDe(char16_t unidad) {
    if (unidad < 0x80 || (unidad >= 0xA0 && unidad <= 0xFF)) {
        return static_cast<char>(unidad);
    }
    const auto* const sitio = std::find(kAltos.begin(), kAltos.end(), unidad);
    return sitio == kAltos.end() ? '?' : static_cast<char>(0x80 + (sitio - kAltos.begin()));
}

} // namespace

QByteArray ACodePage(QStringView texto) {
    QByteArray bytes(texto.size(), Qt::Uninitialized);
    char* escrito = bytes.data();
    for (qsizetype i = 0; i < texto.size(); ++i) {
        const QChar c = texto[i];
        *escrito++ = ByteDe(c.unicode());
        // A pair of surrogates is one character and gives one mark.
        if (c.isHighSurrogate() && i + 1 < texto.size() && texto[i + 1].isLowSurrogate()) {
            ++i;
        }
    }
    bytes.truncate(escrito - bytes.constData());
    return bytes;
}

QString DeCodePage(QByteArrayView bytes) {
    QString texto(bytes.size(), Qt::Uninitialized);
    QChar* escrito = texto.data();
    for (const char c : bytes) {
        const auto byte = static_cast<uchar>(c);
        *escrito++ = QChar(EsAlto(byte) ? kAltos[byte - 0x80] : char16_t{byte});
    }
    return texto;
}

} // namespace zv

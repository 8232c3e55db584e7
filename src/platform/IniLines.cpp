#include "platform/IniLines.h"

#include "platform/CodePage.h"
#include "platform/Recorte.h"

#include <algorithm>

namespace zv {
namespace {

// The bytes behind the first of a sequence. What a decoder refuses (too long a form, halves of
// pairs, beyond the last character) shows in the second one.
bool Continua(QByteArrayView bytes, qsizetype desde, int cuantos) {
    if (desde + cuantos > bytes.size()) {
        return false;
    }
    const auto primero = static_cast<uchar>(bytes[desde - 1]);
    const auto segundo = static_cast<uchar>(bytes[desde]);
    if ((primero == 0xE0 && segundo < 0xA0) || (primero == 0xED && segundo > 0x9F) ||
        (primero == 0xF0 && segundo < 0x90) || (primero == 0xF4 && segundo > 0x8F)) {
        return false;
    }
    return std::all_of(bytes.begin() + desde, bytes.begin() + desde + cuantos,
                       [](char c) { return (static_cast<uchar>(c) & 0xC0) == 0x80; });
}

// True if there is at least one sequence beyond ASCII and all of them are well formed. Accented
// text of the code page practically never is.
bool EsUtf8(QByteArrayView bytes) {
    bool alguna = false;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<uchar>(bytes[i]);
        if (byte < 0x80) {
            continue;
        }
        const int cola = byte >= 0xC2 && byte <= 0xDF   ? 1
                         : (byte & 0xF0) == 0xE0        ? 2
                         : byte >= 0xF0 && byte <= 0xF4 ? 3
                                                        : 0;
        if (cola == 0 || !Continua(bytes, i + 1, cola)) {
            return false;
        }
        alguna = true;
        i += cola;
    }
    return alguna;
}

bool EsBlanco(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\v' || c == u'\f';
}

} // namespace

IniLines::IniLines(QByteArrayView bytes) : bytes_(bytes) {
    if (bytes.startsWith("\xFF\xFE")) {
        codificacion_ = Codificacion::Utf16Le;
        principio_ = 2;
    } else if (bytes.startsWith("\xFE\xFF")) {
        codificacion_ = Codificacion::Utf16Be;
        principio_ = 2;
    } else if (bytes.startsWith("\xEF\xBB\xBF")) {
        codificacion_ = Codificacion::Utf8;
        principio_ = 3;
    } else if (EsUtf8(bytes)) {
        codificacion_ = Codificacion::Utf8;
    }
    sitio_ = principio_;
}

bool IniLines::Ancha() const {
    return codificacion_ == Codificacion::Utf16Le || codificacion_ == Codificacion::Utf16Be;
}

char16_t IniLines::Unidad(qsizetype sitio) const {
    const auto uno = static_cast<uchar>(bytes_[sitio]);
    if (!Ancha()) {
        return uno;
    }
    const auto dos = static_cast<uchar>(bytes_[sitio + 1]);
    return codificacion_ == Codificacion::Utf16Le ? static_cast<char16_t>(uno | dos << 8)
                                                  : static_cast<char16_t>(uno << 8 | dos);
}

std::optional<IniLines::Linea> IniLines::Siguiente() {
    const qsizetype paso = Ancha() ? 2 : 1;
    // An odd byte at the end of wide text is no character.
    const qsizetype final = bytes_.size() - (bytes_.size() - principio_) % paso;
    if (sitio_ >= final) {
        return std::nullopt;
    }
    Linea linea{sitio_, final, final};
    for (qsizetype i = sitio_; i < final; i += paso) {
        const char16_t unidad = Unidad(i);
        if (unidad == u'\n' || unidad == u'\r') {
            linea.fin = i;
            linea.siguiente = i + paso;
            if (unidad == u'\r' && linea.siguiente < final && Unidad(linea.siguiente) == u'\n') {
                linea.siguiente += paso;
            }
            break;
        }
    }
    sitio_ = linea.siguiente;
    return linea;
}

QString IniLines::Texto(const Linea& linea) const {
    const QByteArrayView trozo = bytes_.sliced(linea.inicio, linea.fin - linea.inicio);
    switch (codificacion_) {
    case Codificacion::CodePage:
        return DeCodePage(trozo);
    case Codificacion::Utf8:
        return QString::fromUtf8(trozo);
    case Codificacion::Utf16Le:
    case Codificacion::Utf16Be:
        break;
    }
    QString texto(trozo.size() / 2, Qt::Uninitialized);
    std::generate(texto.begin(), texto.end(), [this, sitio = linea.inicio]() mutable {
        const QChar c(Unidad(sitio));
        sitio += 2;
        return c;
    });
    return texto;
}

QByteArray IniLines::Codificar(QStringView texto) const {
    if (codificacion_ == Codificacion::CodePage) {
        return ACodePage(texto);
    }
    if (codificacion_ == Codificacion::Utf8) {
        return texto.toUtf8();
    }
    QByteArray bytes;
    bytes.reserve(texto.size() * 2);
    for (const QChar c : texto) {
        const auto bajo = static_cast<char>(c.cell());
        const auto alto = static_cast<char>(c.row());
        if (codificacion_ == Codificacion::Utf16Le) {
            bytes.append(bajo).append(alto);
        } else {
            bytes.append(alto).append(bajo);
        }
    }
    return bytes;
}

QByteArray IniLines::FinDeLinea() const {
    IniLines copia(*this);
    copia.sitio_ = principio_;
    const auto primera = copia.Siguiente();
    if (primera && primera->fin < primera->siguiente) {
        return bytes_.sliced(primera->fin, primera->siguiente - primera->fin).toByteArray();
    }
    return Codificar(u"\r\n");
}

QStringView SinBlancos(QStringView texto) {
    return Recortar(texto, EsBlanco);
}

QStringView SinComillas(QStringView valor) {
    if (valor.size() > 1 && valor.front() == valor.back() &&
        (valor.front() == u'"' || valor.front() == u'\'')) {
        return valor.sliced(1, valor.size() - 2);
    }
    return valor;
}

bool MismoNombreIni(QStringView uno, QStringView otro) {
    return uno.compare(otro, Qt::CaseInsensitive) == 0;
}

EntradaIni AnalizarLineaIni(QStringView linea) {
    const QStringView texto = SinBlancos(linea);
    if (texto.isEmpty() || texto.front() == u';') {
        return {};
    }
    if (texto.front() == u'[') {
        const qsizetype cierre = texto.indexOf(u']');
        if (cierre < 0) {
            return {};
        }
        return {EntradaIni::Kind::Seccion, SinBlancos(texto.sliced(1, cierre - 1)), {}};
    }
    const qsizetype igual = texto.indexOf(u'=');
    if (igual <= 0) {
        return {};
    }
    return {EntradaIni::Kind::Clave, SinBlancos(texto.first(igual)),
            SinBlancos(texto.sliced(igual + 1))};
}

} // namespace zv

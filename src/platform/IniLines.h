// The lines of an INI file as bytes, so that a writer can change one of them and leave the rest
// untouched whatever encoding they are in. Shared by IniDocument and PrivateProfile.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <optional>

namespace zv {

class IniLines {
  public:
    // A UTF-16 or UTF-8 mark decides. Without one, a file that holds well-formed UTF-8 sequences
    // is UTF-8, as editors of this system write it, and any other is in the code page.
    enum class Codificacion { CodePage, Utf8, Utf16Le, Utf16Be };

    // Offsets in bytes: the text is [inicio, fin), the next line begins at siguiente.
    struct Linea {
        qsizetype inicio = 0;
        qsizetype fin = 0;
        qsizetype siguiente = 0;
    };

    // bytes must outlive the object.
    explicit IniLines(QByteArrayView bytes);

    // The next line, the first one at the first call; nothing at the end.
    std::optional<Linea> Siguiente();
    QString Texto(const Linea& linea) const;
    // Text in the file's encoding, without a mark.
    QByteArray Codificar(QStringView texto) const;
    // The line end of the file, that of its first line; CR LF when it has none. In its encoding.
    QByteArray FinDeLinea() const;
    Codificacion Encoding() const { return codificacion_; }
    // Where the text begins, behind the encoding's mark.
    qsizetype Principio() const { return principio_; }

  private:
    bool Ancha() const;
    char16_t Unidad(qsizetype sitio) const;

    QByteArrayView bytes_;
    Codificacion codificacion_ = Codificacion::CodePage;
    qsizetype principio_ = 0; // behind the mark
    qsizetype sitio_ = 0;
};

// What one line says. Blanks around names and values are gone.
struct EntradaIni {
    enum class Kind { Nada, Seccion, Clave };
    Kind kind = Kind::Nada; // Nada: blank, comment, or a line that says nothing
    QStringView nombre;     // of the section or the key
    QStringView valor;      // as written, quotes and all
};

// The views point into linea.
EntradaIni AnalizarLineaIni(QStringView linea);
// Without blanks at the ends.
QStringView SinBlancos(QStringView texto);
// A value as a reader gets it: without one pair of like quotes around it.
QStringView SinComillas(QStringView valor);
// Names compare without case, beyond ASCII too.
bool MismoNombreIni(QStringView uno, QStringView otro);

} // namespace zv

// One text that an operator reads, as data: where a language file may replace it, and the Spanish
// text that is shown without one. Each folder keeps its texts in one array (Claves.h), so that a
// test can compare all of them with a language file; code names the entries.
#pragma once

#include <QString>

#include <cstddef>
#include <string_view>

namespace zv {

// Section of an entry for a control that many screens have: it stands in the section of each.
inline constexpr std::u16string_view kCadaPantalla = u"*";

// Views of literals: they outlive every text that is looked up with them.
struct Clave {
    // A text that code asks for, in the section of all screens.
    constexpr Clave(std::u16string_view suClave, std::u16string_view texto)
        : Clave(u"COMMON", suClave, texto) {}
    // A text of a screen, in the section named by it.
    constexpr Clave(std::u16string_view suSeccion, std::u16string_view suClave,
                    std::u16string_view texto)
        : seccion(suSeccion), clave(suClave), porDefecto(texto) {}

    QString Seccion() const { return SinCopia(seccion); }
    QString Nombre() const { return SinCopia(clave); }
    QString PorDefecto() const { return SinCopia(porDefecto); }

    std::u16string_view seccion;
    std::u16string_view clave;
    std::u16string_view porDefecto;

  private:
    static QString SinCopia(std::u16string_view texto) {
        return QString::fromRawData(reinterpret_cast<const QChar*>(texto.data()),
                                    static_cast<qsizetype>(texto.size()));
    }
};

// The entry of a key in a folder's array: the first one, or a later one (cual from 0) where several
// places give one key different defaults. One that is not there does not compile.
template <std::size_t N>
consteval const Clave& Entrada(const Clave (&claves)[N], std::u16string_view seccion,
                               std::u16string_view clave, int cual = 0) {
    for (const Clave& entrada : claves) {
        if (entrada.seccion == seccion && entrada.clave == clave && cual-- == 0) {
            return entrada;
        }
    }
    throw "the array has no such entry";
}

template <std::size_t N>
consteval const Clave& Entrada(const Clave (&claves)[N], std::u16string_view clave, int cual = 0) {
    return Entrada(claves, u"COMMON", clave, cual);
}

} // namespace zv

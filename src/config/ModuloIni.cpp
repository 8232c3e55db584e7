#include "config/ModuloIni.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

namespace zv {
namespace {

constexpr qsizetype kLargoMaximo = 255;

} // namespace

ModuloIni::ModuloIni(Log& log, Dialogos& dialogos) : log_(log), dialogos_(dialogos) {}

QString ModuloIni::LeerIni(const QString& fichero, const QString& seccion, const QString& clave,
                           const QString& defecto) const {
    try {
        return perfil::Leer(fichero, seccion, clave).value_or(defecto).left(kLargoMaximo);
    } catch (const ErrorEjecucion& e) {
        MostrarFallo(e);
        return {};
    }
}

std::optional<IniDocument> ModuloIni::LeerTodo(const QString& fichero) const {
    try {
        return perfil::LeerTodo(fichero);
    } catch (const ErrorEjecucion& e) {
        MostrarFallo(e);
        return std::nullopt;
    }
}

QString ModuloIni::Valor(const IniDocument& documento, const QString& seccion, const QString& clave,
                         const QString& defecto) {
    return documento.Valor(seccion, clave).value_or(defecto).left(kLargoMaximo);
}

void ModuloIni::MostrarFallo(const ErrorEjecucion& e) const {
    dialogos_.MostrarMensaje(u"Error al leer el fichero de configuración"_s,
                             u"Error nº "_s + QString::number(e.Numero()) + u": "_s +
                                 e.Descripcion());
}

bool ModuloIni::EscribirIni(const QString& fichero, const QString& seccion, const QString& clave,
                            const QString& valor) const {
    try {
        perfil::Escribir(fichero, seccion, clave, valor);
        return true;
    } catch (const ErrorEjecucion& e) {
        ApuntarFallo(e);
        return false;
    }
}

bool ModuloIni::EscribirVarios(const QString& fichero,
                               std::span<const perfil::ValorIni> valores) const {
    qsizetype distintos = 0;
    try {
        perfil::EscribirVarios(fichero, valores, distintos);
        return true;
    } catch (const ErrorEjecucion& e) {
        for (qsizetype i = 0; i < distintos; ++i) {
            ApuntarFallo(e);
        }
        return false;
    }
}

void ModuloIni::ApuntarFallo(const ErrorEjecucion& e) const {
    log_.LogLinea(u"GRABARINI - Error "_s + QString::number(e.Numero()) + u" - "_s +
                  e.Descripcion());
}

} // namespace zv

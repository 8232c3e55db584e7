// INI access of the settings and what is told when it fails.
#include "config/ModuloIni.h"

#include "platform/ErrorEjecucion.h"
#include "platform/PerfilPrivado.h"

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

std::optional<DocumentoIni> ModuloIni::LeerTodo(const QString& fichero) const {
    try {
        return perfil::LeerTodo(fichero);
    } catch (const ErrorEjecucion& e) {
        MostrarFallo(e);
        return std::nullopt;
    }
}

QString ModuloIni::Valor(const DocumentoIni& documento, const QString& seccion,
                         const QString& clave, const QString& defecto) {
    return documento.Valor(seccion, clave).value_or(defecto).left(kLargoMaximo);
}

void ModuloIni::MostrarFallo(const ErrorEjecucion& e) const {
    dialogos_.MostrarMensaje(QStringLiteral("Error al leer el fichero de configuración"),
                             QStringLiteral("Error nº ") + QString::number(e.Numero()) +
                                 QStringLiteral(": ") + e.Descripcion());
}

bool ModuloIni::EscribirIni(const QString& fichero, const QString& seccion, const QString& clave,
                            const QString& valor) const {
    try {
        perfil::Escribir(fichero, seccion, clave, valor);
        return true;
    } catch (const ErrorEjecucion& e) {
        log_.LogLinea(QStringLiteral("GRABARINI - Error ") + QString::number(e.Numero()) +
                      QStringLiteral(" - ") + e.Descripcion());
        return false;
    }
}

} // namespace zv

// INI access of the settings and what is told when it fails.
#include "config/ModuloIni.h"

#include "platform/ErrorEjecucion.h"
#include "platform/PerfilPrivado.h"

namespace zv {

ModuloIni::ModuloIni(Log& log, Dialogos& dialogos) : log_(log), dialogos_(dialogos) {}

QString ModuloIni::LeerIni(const QString& fichero, const QString& seccion, const QString& clave,
                           const QString& defecto) const {
    constexpr qsizetype kLargoMaximo = 255;
    try {
        return perfil::Leer(fichero, seccion, clave).value_or(defecto).left(kLargoMaximo);
    } catch (const ErrorEjecucion& e) {
        dialogos_.MostrarMensaje(QStringLiteral("Error al leer el fichero de configuración"),
                                 QStringLiteral("Error nº ") + QString::number(e.Numero()) +
                                     QStringLiteral(": ") + e.Descripcion());
        return {};
    }
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

#include "app/Conector.h"

#include "app/Claves.h"
#include "platform/Files.h"
#include "platform/StringLiterals.h"

namespace zv {

namespace {

// Position of the last separator of the path. The setting may come from another platform, so both
// kinds separate.
qsizetype UltimoSeparador(const QString& ruta) {
    return qMax(ruta.lastIndexOf(QLatin1Char('\\')), ruta.lastIndexOf(QLatin1Char('/')));
}

QString NombreFichero(const QString& ruta) {
    return ruta.mid(UltimoSeparador(ruta) + 1);
}

} // namespace

Conector::Conector(const ConfiguracioGlobal& configuracio, ProcessList& procesos, Shell& shell,
                   Dialogos& dialogos, const Textos& textos)
    : configuracio_(configuracio), procesos_(procesos), shell_(shell), dialogos_(dialogos),
      textos_(textos) {}

void Conector::ArrancarConector() {
    const QString ruta = configuracio_->ZVConectorPath;
    if (ruta.isEmpty() || !configuracio_->ZVConectorActive) {
        enMarcha_ = false;
        return;
    }
    const QString nombre = NombreFichero(ruta);
    if (procesos_.Contar(nombre) > 0) {
        enMarcha_ = true;
        return;
    }
    if (!ExisteFichero(ruta)) {
        dialogos_.MostrarMensaje(textos_.Traduce(texto::kConectorNoCargado),
                                 textos_.Traduce(texto::kConectorNoDisponible));
    } else {
        shell_.Abrir(ruta, ruta.left(qMax<qsizetype>(0, UltimoSeparador(ruta))));
    }
    enMarcha_ = procesos_.Contar(nombre) > 0;
}

void Conector::PararConector() {
    const QString nombre = NombreFichero(configuracio_->ZVConectorPath);
    if (!nombre.isEmpty() && procesos_.Contar(nombre) > 0) {
        procesos_.Terminar(nombre);
    }
}

} // namespace zv

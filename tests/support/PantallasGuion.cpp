#include "support/PantallasGuion.h"

#include "platform/StringLiterals.h"

#include <gtest/gtest.h>

namespace zv::test {

namespace {

QString Nombre(Pantalla pantalla) {
    switch (pantalla) {
    case Pantalla::Cobros:
        return u"Cobros"_s;
    case Pantalla::Incidencias:
        return u"Incidencias"_s;
    case Pantalla::Caja:
        return u"Caja"_s;
    case Pantalla::Historial:
        return u"Historial"_s;
    case Pantalla::Configuracion:
        return u"Configuracion"_s;
    case Pantalla::CambioContrasena:
        return u"CambioContrasena"_s;
    case Pantalla::Usuarios:
        return u"Usuarios"_s;
    case Pantalla::Accesos:
        return u"Accesos"_s;
    case Pantalla::Balanza:
        return u"Balanza"_s;
    case Pantalla::BotonAcceso:
        return u"BotonAcceso"_s;
    }
    return {};
}

QString LlamadaAbrir(Pantalla pantalla) {
    return u"Abrir(%1)"_s.arg(Nombre(pantalla));
}

QString LlamadaValidar(qint16 nivel, const QString& lugar) {
    return u"ValidarUsuari(%1,%2)"_s.arg(QString::number(nivel), lugar);
}

} // namespace

PantallasGuion::~PantallasGuion() {
    for (const Paso& paso : guion_) {
        ADD_FAILURE() << "nobody asked for this screen: " << paso.llamada.toStdString();
    }
}

void PantallasGuion::EsperaAbrir(Pantalla pantalla, Accion mientras) {
    guion_.push_back({LlamadaAbrir(pantalla), false, std::move(mientras)});
}

void PantallasGuion::EsperaBalanza(AccionCfg mientras) {
    EsperaAbrir(Pantalla::Balanza, [this, mientras = std::move(mientras)] {
        if (mientras) {
            mientras(*balanza_);
        }
    });
}

void PantallasGuion::EsperaValidar(qint16 nivel, const QString& lugar, bool pasa, Accion mientras) {
    guion_.push_back({LlamadaValidar(nivel, lugar), pasa, std::move(mientras)});
}

std::optional<PantallasGuion::Paso> PantallasGuion::Siguiente(const QString& llamada) {
    llamadas_ << llamada;
    // A wrong call leaves the script as it is, so that each mistake is told once.
    if (guion_.empty() || guion_.front().llamada != llamada) {
        ADD_FAILURE() << "unexpected call: " << llamada.toStdString() << "\nwhere the script has "
                      << (guion_.empty() ? "nothing" : guion_.front().llamada.toStdString());
        return std::nullopt;
    }
    Paso paso = std::move(guion_.front());
    guion_.pop_front();
    if (paso.mientras) {
        paso.mientras();
    }
    return paso;
}

void PantallasGuion::Abrir(Pantalla pantalla) {
    Siguiente(LlamadaAbrir(pantalla));
}

void PantallasGuion::AbrirBalanza(Configuracio& cfg) {
    balanza_ = &cfg;
    Siguiente(LlamadaAbrir(Pantalla::Balanza));
}

bool PantallasGuion::ValidarUsuari(qint16 nivel, const QString& lugar) {
    const auto paso = Siguiente(LlamadaValidar(nivel, lugar));
    return paso && paso->pasa;
}

} // namespace zv::test

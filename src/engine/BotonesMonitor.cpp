#include "engine/BotonesMonitor.h"

#include "platform/StringLiterals.h"
#include "till/ResultadoEnvio.h"

#include <QScopedValueRollback>

namespace zv {

BotonesMonitor::BotonesMonitor(Entorno& entorno, Controles& controles, EstadoMonitor& estado,
                               PulsoCola& pulso, CobrosAgrupados& agrupados)
    : entorno_(entorno), controles_(controles), estado_(estado), pulso_(pulso),
      manuales_(entorno, pulso) {
    botones_[BotonPie::Registro] = Puerta(Pantalla::Cobros, 1, u"authRegistro"_s);
    botones_[BotonPie::Caja] = Puerta(Pantalla::Caja, 1, u"authCaja"_s);
    botones_[BotonPie::Incidencias] = Puerta(Pantalla::Incidencias, 0, u"authIncidencias"_s);
    botones_[BotonPie::Contrasena] = Puerta(Pantalla::CambioContrasena);
    botones_[BotonPie::Configurar] = Puerta(Pantalla::Configuracion, 0, u"authConfiguracion"_s);
    botones_[BotonPie::Desconectar].operacion = [this] {
        entorno_.supervision.Desconectar();
        return Salida::Completa;
    };
    botones_[BotonPie::Conectar].operacion = [this] {
        entorno_.supervision.Conectar();
        return Salida::Completa;
    };
    botones_[BotonPie::AgruparCobros].operacion = [&agrupados] {
        agrupados.Pulsar();
        return Salida::Completa;
    };
    PonerManuales();
}

void BotonesMonitor::PonerManuales() {
    botones_[BotonPie::DarCambio].operacion = [this] {
        manuales_.DarCambio();
        return Salida::Completa;
    };
    botones_[BotonPie::AnadirCambio].operacion = [this] {
        manuales_.AñadirCambio();
        return Salida::Completa;
    };
    botones_[BotonPie::Pago].operacion = [this] {
        return manuales_.Pago() ? Salida::Completa : Salida::SoloArrancar;
    };
    botones_[BotonPie::CobroManual].operacion = [this] {
        pulso_.ParaTimer();
        if (entorno_.pantallas.ValidarUsuari(2, u"authCobro"_s)) {
            manuales_.cobroManual({});
        } else {
            pulso_.ArrancaTimer();
        }
        return Salida::Completa;
    };
}

BotonesMonitor::Boton BotonesMonitor::Puerta(Pantalla pantalla, qint16 nivel,
                                             const QString& lugar) {
    return {[this, pantalla, nivel, lugar] {
                AbrirPuerta(pantalla, nivel, lugar);
                return Salida::Completa;
            },
            pantalla};
}

void BotonesMonitor::AbrirPuerta(Pantalla pantalla, qint16 nivel, const QString& lugar) {
    pulso_.ParaTimer();
    if (lugar.isEmpty() || entorno_.pantallas.ValidarUsuari(nivel, lugar)) {
        if (pantalla == Pantalla::Configuracion) {
            AbrirConfiguracion();
        } else {
            entorno_.pantallas.Abrir(pantalla);
        }
        if (pantalla == Pantalla::Caja) {
            // A close or an emptying moves money, and the cash office may have disconnected.
            entorno_.supervision.MostrarNivel();
            estado_.ActualizarBotonesMonitor(entorno_.supervision.Conectado());
        }
    }
    pulso_.ArrancaTimer();
}

void BotonesMonitor::AbrirConfiguracion() {
    const ConfiguracioGlobal& configuracio = entorno_.configuracio;
    const QString puerto = configuracio->ZVFastPort;
    const bool activo = configuracio->zvFastActive;
    const bool conectado = entorno_.supervision.Conectado();
    entorno_.pantallas.Abrir(Pantalla::Configuracion);
    estado_.SeguirConfiguracion();
    if (conectado && !entorno_.supervision.Conectado()) {
        // The address has been tested.
        entorno_.supervision.MostrarNivel();
    }
    if (abrirFast_ &&
        (configuracio->ZVFastPort != puerto || configuracio->zvFastActive != activo)) {
        abrirFast_();
    }
}

bool BotonesMonitor::TieneOperacion(BotonPie boton) const {
    const Boton& este = botones_[boton];
    return este.operacion && (!este.pantalla || entorno_.pantallas.Existe(*este.pantalla));
}

void BotonesMonitor::boton_Click(BotonPie boton) {
    const EstadoControles& estado = controles_.Estado();
    // A click that was under way when the pulse disabled the footer comes too late.
    if (!ocupado_ && TieneOperacion(boton) && estado.framePie && estado.boton[boton]) {
        Envolver(botones_[boton].operacion);
    }
}

void BotonesMonitor::cobroManual(const QString& concepto) {
    // Nothing but another operation holds it back: while the pulse stands stopped without a device,
    // or for the marking of rows, none is under way.
    if (!ocupado_ && pulso_.NadieTrabaja()) {
        const QScopedValueRollback ocupado(ocupado_, true);
        manuales_.cobroManual(concepto);
    }
}

void BotonesMonitor::Envolver(const Operacion& operacion) {
    // The pulse is armed again, and the footer with it, when an operation has ended; what is told
    // of its end may still be up.
    const QScopedValueRollback ocupado(ocupado_, true);
    controles_.Poner(&EstadoControles::framePie, false);
    entorno_.ResultadoEnvio = envio::kBien;
    if (operacion() == Salida::SoloArrancar) {
        pulso_.ArrancaTimer();
        return;
    }
    estado_.ActualizarEstado(true);
    controles_.Poner(&EstadoControles::framePie, true);
}

} // namespace zv

// Logical state of the main screen's controls. It is right at once for every test of it; the
// widgets follow when the event loop next runs with a changed state. The pulse stops and starts
// timer, footer and grid a thousand times a second, for which real widgets are far too slow.
#pragma once

#include "engine/BotonPie.h"

#include <QString>

#include <array>
#include <functional>
#include <type_traits>

namespace zv {

// The line above the footer: what the operator needs to know as long as it holds.
struct LineaAviso {
    enum class Tono {
        Ninguno,     // nothing to say
        Agrupando,   // rows are being marked
        SinConexion, // the device is not connected
        Parada       // nor does the pulse run
    };
    Tono tono = Tono::Ninguno;
    QString texto;
    QString importe; // at its end; empty for none
    bool operator==(const LineaAviso&) const = default;
};

struct EstadoControles {
    bool timerCola = false;
    bool framePie = true;
    bool grdZV = true;
    PorBotonPie<bool> boton = [] {
        PorBotonPie<bool> habilitado;
        for (const BotonPie cada : kBotonesPie) {
            habilitado[cada] = cada != BotonPie::Desconectar;
        }
        return habilitado;
    }();
    std::array<bool, 3> btnModo{false, false, false}; // pressed
    bool btnArriba = false;
    bool btnAbajo = false;
    bool ShapeOK = false;
    bool ShapeAlert = false;
    bool ShapeCritico = false;
    bool punteroEspera = false;
    bool botonAccesoEncima = false; // frmBotonAcceso in the always-on-top level
    QString lbContador;
    QString lbEstado;
    LineaAviso aviso;
    // The columns "Anular" and "Enviar": a touch on them does what they say.
    bool puedeAnular = true;
    bool puedeEnviar = true;
    bool agrupando = false; // boton(9) shows pressed

    bool operator==(const EstadoControles&) const = default;
};

class Controles {
  public:
    const EstadoControles& Estado() const { return estado_; }

    // Assigns one member and tells the screen when that changes it.
    template <typename T, typename V>
    void Poner(T EstadoControles::*miembro, const V& valor) {
        if (estado_.*miembro == valor) {
            return;
        }
        estado_.*miembro = valor;
        if constexpr (std::is_same_v<T, bool>) {
            valor == mostrado_.*miembro ? --distintos_ : ++distintos_;
        } else {
            otraCosa_ = true;
        }
        Avisar();
    }
    void PonerBoton(BotonPie boton, bool habilitado) {
        if (estado_.boton[boton] != habilitado) {
            estado_.boton[boton] = habilitado;
            otraCosa_ = true;
            Avisar();
        }
    }

    // Called at each change; the screen only notes that it has to follow.
    void AlCambiar(std::function<void()> aviso) { aviso_ = std::move(aviso); }

    // What the screen showed when it last followed, and whether there is anything new to show. The
    // pulse turns the same members off and on again at every tick: that is no news.
    const EstadoControles& Mostrado() const { return mostrado_; }
    bool PorMostrar() const { return distintos_ != 0 || otraCosa_; }
    void PonerMostrado() {
        mostrado_ = estado_;
        distintos_ = 0;
        otraCosa_ = false;
    }
    // The widgets show something else than they did when the screen last followed.
    void Repetir() {
        otraCosa_ = true;
        Avisar();
    }
    // A screen whose widgets stand as the defaults have them.
    void PonerPorDefecto() {
        mostrado_ = {};
        Repetir();
    }

    // The screen follows at once and is painted, before something that lets no event loop run.
    void Pintar() const {
        if (pintor_) {
            pintor_();
        }
    }
    void AlPintar(std::function<void()> pintor) { pintor_ = std::move(pintor); }

  private:
    void Avisar() const {
        if (aviso_) {
            aviso_();
        }
    }

    EstadoControles estado_;
    EstadoControles mostrado_;
    int distintos_ = 0;     // members of two states that differ from what is shown
    bool otraCosa_ = false; // any other member may differ
    std::function<void()> aviso_;
    std::function<void()> pintor_;
};

} // namespace zv

// The settings under edit: a private copy of the configuration, what stands in the controls, the
// tests of the fields, and the saving that makes the copy the global configuration.
#pragma once

#include "settings/EstadoCfg.h"
#include "till/Entorno.h"

#include <functional>
#include <memory>

namespace zv {

// What lies beyond the till; whatever is not handed in does nothing.
struct ExteriorCfg {
    // Whether the fast link could listen on that port, or does already.
    std::function<bool(quint16)> puertoLibre = {};
    // Starts the on-screen keyboard; false when there is none.
    std::function<bool()> abrirTeclado = {};
};

class CfgMonitor {
  public:
    // Fills the state from the global configuration.
    CfgMonitor(Entorno& entorno, ExteriorCfg exterior = {});
    CfgMonitor(const CfgMonitor&) = delete;
    CfgMonitor& operator=(const CfgMonitor&) = delete;

    const Entorno& ElEntorno() const { return entorno_; }
    const EstadoCfg& Estado() const { return estado_; }
    // Told whenever the state has changed.
    void AlCambiar(std::function<void()> avisar) { alCambiar_ = std::move(avisar); }
    // Shows the state at once, before a call that blocks.
    void AlPintar(std::function<void()> pintar) { alPintar_ = std::move(pintar); }

    // Something is edited and unsaved.
    bool Cambios() const { return estado_.cambios; }

    // btnModo(indice).
    void ElegirModo(int indice);
    // A click on one of kInterruptoresCfg.
    void Conmutar(std::size_t indice);
    // The text of a tbCfg is another now; what stands behind a line end goes, as in the file.
    void Escribir(CampoCfg campo, const QString& texto);
    // Enter in tbCfg(1).
    void ComprobarRefresco();
    // btnTestZV: tells whether the device answers at the address typed. Afterwards the system is
    // not connected.
    void ProbarConexion();
    // boton(1): asks, tests and saves. True when the screen is to be left; this object is of no
    // further use then. Raises 6 for a number of seconds beyond 16 bits.
    bool Guardar();
    // Before the screen closes: asks when something is unsaved.
    bool PuedeSalir();
    // boton(13): the layout of the barcodes, which works on the copy.
    void AbrirCodigoBarras();
    // boton(2).
    void AbrirTeclado();
    // Users and accesses need the database, which a till without settings has not opened yet.
    bool PuedeAbrir(Pantalla pantalla) const;
    void Abrir(Pantalla pantalla);

  private:
    bool EsNumerico(CampoCfg campo) const;
    void Cargar();
    void Avisar();
    void PonerTexto(CampoCfg campo, const QString& texto);
    // The focus goes to the field.
    void Enfocar(CampoCfg campo);
    Respuesta Mensaje(const Clave& titulo, const QString& texto, EstiloMensaje estilo);
    QString Traduce(const Clave& clave) const { return entorno_.textos.Traduce(clave); }
    // What is wrong with the fields, in the order of the tests; asks or tells it. True when saving
    // may go on.
    bool CamposBien();
    // The controls into the copy.
    void GuardarCfg();
    bool Conectar(const QString& direccion);
    void AnotarCampo(CampoCfg campo);
    QString NotaPuerto() const;
    QString NotaRuta() const;

    Entorno& entorno_;
    ExteriorCfg exterior_;
    std::unique_ptr<Configuracio> cfg_;
    EstadoCfg estado_;
    std::function<void()> alCambiar_;
    std::function<void()> alPintar_;
};

} // namespace zv

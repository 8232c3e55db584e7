// Owns the connected flag and the two balances in the registry: connects, checks at each
// connection that nobody has moved the money, reconnects after a lost link, turns the states of the
// levels into lamps.
#pragma once

#include "device/DeviceClient.h"
#include "device/DeviceJournal.h"
#include "device/Saldos.h"
#include "platform/Currency.h"
#include "platform/RegistryTree.h"
#include "ui/Dialogos.h"
#include "ui/Importes.h"
#include "ui/Textos.h"

#include <functional>

namespace zv {

// What the supervision shows of itself on the main screen.
class VistaConexion {
  public:
    virtual ~VistaConexion() = default;
    // boton(7) "Conectar".
    virtual void HabilitarConectar(bool habilitado) = 0;
    // The wait cursor. true comes before a call that may block for seconds: when it returns, the
    // screen shows all that it has been told, and nothing has happened but painting.
    virtual void MostrarEspera(bool espera) = 0;
    virtual void ActualizarBotonesMonitor(bool habilitado) = 0;
    // ShapeOK, ShapeAlert, ShapeCritico.
    virtual void MostrarLamparas(bool ok, bool alerta, bool critico) = 0;
    // Marking rows for a grouped charge.
    virtual bool Agrupando() const = 0;
};

class SupervisionConexion {
  public:
    // ip: the setting IP, read at each connection.
    SupervisionConexion(DeviceClient& cliente, RegistryTree& registry, Log& log, Dialogos& dialogos,
                        const Textos& textos, const Importes& importes,
                        std::function<QString()> ip);
    SupervisionConexion(const SupervisionConexion&) = delete;
    SupervisionConexion& operator=(const SupervisionConexion&) = delete;

    // The main screen; until it is set nothing is shown.
    void PonerVista(VistaConexion* vista) { vista_ = vista; }

    bool Conectado() const { return conectado_; }
    void Conectar();
    void Desconectar();
    // The disconnection itself, with no question and nothing shown: stores the balance, ends the
    // session, writes the journal line, clears the flag. The cash office disconnects with it.
    void Cortar();
    // Clears the flag alone, after the settings screen has tested another address.
    void MarcarDesconectado() { conectado_ = false; }
    // One attempt; true when the device is connected again.
    bool IntentarReconnectar();
    void MostrarNivel();
    // The balances of the device that this supervision connects.
    Saldos& LosSaldos() { return saldos_; }
    // Stores the device's total in "Saldo_Exit", if connected.
    void GuardarSaldoExit();

    // "Saldo_Inicial", minor units.
    qint32 SaldoInicial() const { return saldoInicial_; }
    // Mirror of "Saldo_Exit" as last written.
    Currency SaldoExit() const { return saldoExit_; }
    // "Saldo_Exit" as found at start or at the last connection.
    Currency UltimoSaldo() const { return ultimoSaldo_; }
    // Start-up: reads both values from the registry, default "0".
    void LeerSaldos();
    // Reads "Saldo_Inicial" again, default "0": another program may have written it. Raises 13 for
    // no number, 6 beyond 32 bits.
    void LeerSaldoInicial();
    // A new period starts with that balance, minor units: "Saldo_Inicial" and its mirror.
    void RenovarSaldoInicial(Currency saldo);
    // The mirror of "Saldo_Exit" alone; the registry keeps what it holds.
    void PonerSaldoExit(Currency saldo) { saldoExit_ = saldo; }

  private:
    // The session with the device, with what the screen shows meanwhile.
    bool AbrirSesion();
    // After a connection: tells a balance that has changed, stores both balances.
    void ComprobarSaldos();
    void MostrarFalloConexion();
    void MostrarLamparas(bool ok, bool alerta, bool critico);

    DeviceClient& cliente_;
    RegistryTree& registry_;
    Log& log_;
    Dialogos& dialogos_;
    const Textos& textos_;
    const Importes& importes_;
    std::function<QString()> ip_;
    DeviceJournal diario_;
    VistaConexion* vista_ = nullptr;
    bool conectado_ = false;
    Saldos saldos_;
    qint32 saldoInicial_ = 0;
    Currency saldoExit_;
    Currency ultimoSaldo_;
};

} // namespace zv

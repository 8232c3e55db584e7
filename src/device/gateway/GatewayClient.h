// DeviceClient over the gateway protocol (docs/gateway-protocol.md). Long operations run a nested
// event loop with the operation's window; queries block for at most the answer's time-out and run
// no event loop, because they are asked inside transactions.
#pragma once

#include "device/DeviceClient.h"
#include "device/VentanaOperacion.h"
#include "device/gateway/GatewayOperation.h"
#include "device/gateway/GatewayOptions.h"
#include "device/gateway/GatewaySession.h"
#include "ui/Log.h"
#include "ui/Textos.h"

#include <QElapsedTimer>
#include <QTimer>

#include <optional>

namespace zv {

class GatewayClient final : public DeviceClient {
  public:
    // ventana may be nullptr. Everything handed in outlives the client.
    GatewayClient(Log& log, const Textos& textos, VentanaOperacion* ventana = nullptr,
                  const GatewayOptions& opciones = {}, FabricaSocket fabrica = {});
    ~GatewayClient() override;
    GatewayClient(const GatewayClient&) = delete;
    GatewayClient& operator=(const GatewayClient&) = delete;

    // Inside a long operation, with its event loop running.
    bool Ocupado() const { return ocupado_; }

    qint16 ErrorCode() const override { return errorCode_; }
    QString ErrorMessage() const override { return errorMessage_; }
    void Address(const QString& direccion) override { address_ = direccion; }
    // Blocks for at most opciones.conexion; when an operation of a former run is still open, it is
    // cancelled, waited for (with the event loop), logged and acknowledged first.
    void Connect(bool& result) override;
    // Nothing happens while an operation runs.
    void Disconnect() override;
    // The long operations, as those below but the queries: the end of each is in the log before the
    // call returns, in a line of its own; a log that cannot be written costs the line alone.
    void Change(qint32& paidIn, qint32& paidOut, bool& result) override;
    void AddChange(qint32& paidIn, bool& result) override;
    void Pay(qint32 valueInCents, qint32& paidOut, bool& result) override;
    void Charge(qint32 valueInCents, qint32& paidIn, qint32& paidOut, bool& result) override;
    void CashBoxControl(qint32 mode, qint32& coinsValueInCB, qint32& notesValueInCB,
                        qint32& remainingChange, bool& result) override;
    void Configuration(bool& result) override;
    void EmptyCB(qint32 device, qint32& value, bool& result) override;
    void GetLevels(qint32 levelType, QString& noms, QString& levels, bool& result) override;
    // The gateway's sessions need no flag.
    void SessionFlag(bool /*valor*/) override {}
    // Of the last session; 2 and 100 before the first.
    quint8 Decimals() const override { return decimals_; }
    quint8 Multiplier() const override { return multiplier_; }

  private:
    EstadoOperacion Ejecutar(const QString& metodo, const QJsonObject& params, OperationKind kind,
                             qint32 importe, bool& result);
    GatewayOperation::Entorno EntornoOperacion();
    void Anotar(const GatewayOperation::Fin& fin);
    void TomarFin(const GatewayOperation::Fin& fin);
    QString MensajeDe(const GatewayOperation::Fin& fin) const;
    GatewayOperation::Fin Correr(GatewayOperation& operacion, OperationKind kind, qint32 importe,
                                 bool cancelable);
    std::optional<QJsonValue> Consultar(const QString& metodo, const QJsonObject& params);
    std::optional<Saludo> AbrirYSaludar(int milisegundos);
    bool Reabrir();
    void SaludoEnMarcha(const Saludo& saludo);
    bool ResolverPendiente(const EstadoOperacion& abierta);
    void Reconocer(const EstadoOperacion& abierta);
    void TomarSaludo(const Saludo& saludo);
    void PingEnReposo();
    void Fallar(qint16 codigo, const QString& mensaje);
    void Fallar(qint16 codigo, const Clave& mensaje);
    void FallarSinConexion();
    void Bien() { Fallar(0, {}); }

    Log& log_;
    const Textos& textos_;
    VentanaOperacion* ventana_;
    const GatewayOptions opciones_;
    GatewaySession sesion_;
    QTimer reposo_;

    QString address_;
    GatewayAddress direccion_;
    QString storeId_;
    QString ultimaEntregada_;  // opId of the last operation whose final amounts went to the caller
    QString opIdActual_;       // the operation that runs
    bool ocupado_ = false;     // inside an operation
    bool conectado_ = false;   // between Connect and Disconnect, or a link given up
    QElapsedTimer reapertura_; // since the last reopening that failed
    qint16 errorCode_ = 0;
    QString errorMessage_;
    quint8 decimals_ = 2;
    quint8 multiplier_ = 100;
};

} // namespace zv

// One long operation of the gateway from its start to its final amounts: progress, pings, cancel,
// and the way back after a lost link. Waits in a nested event loop; ends by itself, whatever the
// other end does.
#pragma once

#include "device/VentanaOperacion.h"
#include "device/gateway/GatewayOptions.h"
#include "device/gateway/GatewaySession.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <functional>

namespace zv {

class GatewayOperation final : private GatewaySession::Oyente {
  public:
    // How it ended. estado holds the final state, or else the last amounts known.
    struct Fin {
        enum class Motivo {
            Terminada,     // estado is final; not acknowledged yet
            Rechazada,     // never started; codigo and mensaje are the gateway's
            EnlacePerdido, // not recovered in time
            OtroAlmacen,   // another device answered after the link was lost
            Protocolo,     // the gateway said something impossible
            Cerrando,      // the program ends
            NoTermina,     // cancelled or ended by the cashier, and no end within the limit
        };
        Motivo motivo = Motivo::EnlacePerdido;
        EstadoOperacion estado;
        qint16 codigo = 0; // 0: the gateway gave none
        QString mensaje;
    };

    // What the operation needs of the client.
    struct Entorno {
        GatewayAddress direccion;
        QString storeId;
        QString avisoReconectando; // shown while the link is being recovered
        // A greeting after a reconnection; another operation than this one may be open in it.
        std::function<void(const Saludo&)> alSaludar;
    };

    // Everything handed in outlives the operation.
    GatewayOperation(GatewaySession& sesion, const GatewayOptions& opciones, Entorno entorno);
    ~GatewayOperation() override;
    GatewayOperation(const GatewayOperation&) = delete;
    GatewayOperation& operator=(const GatewayOperation&) = delete;

    // Puts the start on the wire before it returns; on a lost link it begins with the recovery.
    void Iniciar(const QString& metodo, const QString& opId, const QJsonObject& params);
    // Takes over an operation that runs already, and cancels it; ends within opciones.pendiente.
    void Adoptar(const EstadoOperacion& estado);
    // Shows what has happened so far, and from now on, in a window that stands.
    void MostrarEn(VentanaOperacion* ventana);
    // Runs the event loop until the end.
    Fin Esperar();
    // Asks the gateway to cancel; the operation goes on until the gateway tells its end.
    void Cancelar();
    // Asks the gateway to end it well, with what has moved. A gateway that cannot do so refuses:
    // the window is told, and the operation goes on as if nobody had asked.
    void Terminar();

  private:
    enum class Fase { Iniciando, EnMarcha, Pausa, Conectando, Saludando, Consultando, Acabada };

    void AlConectar() override;
    void AlMensaje(const RpcMessage& mensaje) override;
    void AlCaer() override;

    void AlContestar(const RpcMessage& mensaje);
    void AlSaludo(const RpcMessage& mensaje);
    void AlConsultar(const RpcMessage& mensaje);
    void Notificacion(const QJsonObject& params);
    void Aceptar(const QJsonValue& valor);
    void EnviarInicio();
    void Pedir(Fase fase, const QString& metodo, const QJsonObject& params);
    void PedirFin();
    void AlNegarTermino();
    void PerderEnlace();
    void EnlaceCaido();
    void Tic();
    void VigilarEnlace();
    bool Reanudando() const;
    void Acabar(Fin::Motivo motivo);
    void Rechazar(const RpcMessage& mensaje);
    QJsonObject ParamsOpId() const;

    GatewaySession& sesion_;
    const GatewayOptions& opciones_;
    Entorno entorno_;
    VentanaOperacion* ventana_ = nullptr;
    QEventLoop bucle_;
    QTimer tic_;

    Fase fase_ = Fase::Pausa;
    Fin fin_;
    QString metodo_;
    QString opId_;
    QJsonObject params_;
    bool confirmada_ = false; // the gateway has told a state of it
    bool cancelar_ = false;
    bool terminar_ = false;
    bool avance_ = false; // amounts have moved since the last loss
    qint64 idPeticion_ = 0;
    qint64 idCancelar_ = 0;
    qint64 idTerminar_ = 0;
    QElapsedTimer peticion_;    // since the request that is waited for
    QElapsedTimer ping_;        // since the last ping
    QElapsedTimer intento_;     // since the last attempt to connect
    QElapsedTimer enlaceBueno_; // since the operation was last picked up
    QDeadlineTimer limiteReanudar_{QDeadlineTimer::Forever};
    QDeadlineTimer limiteFin_{QDeadlineTimer::Forever};
};

} // namespace zv

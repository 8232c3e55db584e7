// The gateway's socket: one client at a time on 127.0.0.1, lines in and out, and the faults of the
// link.
#pragma once

#include "platform/LineSplitter.h"
#include "simulator/Protocolo.h"

#include <QByteArrayList>
#include <QDeadlineTimer>
#include <QObject>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <functional>

namespace zv::simulador {

class Servidor : public QObject {
    Q_OBJECT

  public:
    struct Tiempos {
        int ausenteMs = 30'000;  // a running operation without a client is cancelled after this
        int silencioMs = 15'000; // a silent client is dropped after this while an operation runs
    };

    // `matar` is what the fault of that name does to the process.
    Servidor(Aparato& aparato, Fallos& fallos, Tiempos tiempos, std::function<void()> matar,
             QObject* padre = nullptr);
    ~Servidor() override;

    // Port 0 takes any free one. False with a text for people when the port cannot be had.
    bool Escuchar(quint16 puerto, QString& error);
    quint16 Puerto() const { return tcp_.serverPort(); }
    // A client has said hello.
    bool HayCliente() const { return cliente_ != nullptr && saludado_; }
    // Drops the present client, as a link that breaks.
    void CortarEnlace();

  Q_SIGNALS:
    void suceso(const QString& linea);
    void cambiado();

  private:
    void AlConectar();
    void AlLeer();
    void Atender(const QByteArray& linea);
    // Faults of the link before an answer; false when the answer is not to go out.
    bool AntesDeResponder(const Acciones& acciones, bool operacion);
    void AlProgresar(const Operacion& op);
    void AlAcabar(const Operacion& op);
    // The faults of an operation in its middle strike once; true when one has.
    bool FallaEn(Momento momento);
    void Notificar(const QString& metodo, const Operacion& op);
    void Enviar(const QByteArray& linea);
    // The fault: drops the client, and lets nobody in for as long as it says.
    void Cortar(const Accion& corte);
    void Soltar();
    void VigilarAusencia();

    Aparato& aparato_;
    Protocolo protocolo_;
    Fallos& fallos_;
    std::function<void()> matar_;
    QTcpServer tcp_;
    QPointer<QTcpSocket> cliente_;
    LineSplitter cortador_;
    bool saludado_ = false;
    bool mudo_ = false;
    Acciones alConectar_;      // faults of this connection
    Acciones enMarcha_;        // faults of the running operation
    QByteArrayList retenidas_; // what goes out when the stall is over
    QDeadlineTimer fuera_{0};  // until then nobody is let in
    QTimer pausa_;
    QTimer ausente_;
    QTimer silencio_;
};

} // namespace zv::simulador

// One connection to the fast link, and one question at a time on it.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QTcpSocket>

namespace zv::zvpos {

struct Contestacion {
    enum Clase {
        Contestada,
        SinConexion,  // nobody there
        SinTurno,     // connected, but the server answers nothing; the message has not been sent
        SinRespuesta, // sent, and no answer to it in time
        Cortada       // sent, and the connection has gone
    };
    Clase clase = SinConexion;
    QString texto; // the answer, or what the system says about the failure
};

class Enlace {
  public:
    virtual ~Enlace() = default;

    // Sends the message and waits for the answer to it, at most plazoMs milliseconds; connects when
    // there is no connection. One that has not answered is closed, so that a late answer is never
    // taken for the next one.
    virtual Contestacion Preguntar(const QByteArray& mensaje, const QList<QByteArray>& conocidas,
                                   int plazoMs) = 0;
};

// The server puts the questions of all clients in one line and names a connection by its place. A
// client that gave up leaves its questions in the line, and who connects next may get its place,
// and so its answers: the state of another sale. The line is worked off in order, so the first
// message on a connection is one that no server knows; all that comes before the answer to it is
// somebody else's.
class EnlaceTcp final : public Enlace {
  public:
    EnlaceTcp(QString servidor, quint16 puerto, int plazoConexionMs);

    Contestacion Preguntar(const QByteArray& mensaje, const QList<QByteArray>& conocidas,
                           int plazoMs) override;

  private:
    bool Conectar();
    bool PedirTurno(int plazoMs);
    Contestacion Leer(const QList<QByteArray>& conocidas, int plazoMs);
    bool Conectado() const;
    void Enviar(const QByteArray& mensaje);
    void EsperarNovedad(qint64 topeMs);

    QString servidor_;
    quint16 puerto_;
    int plazoConexionMs_;
    QTcpSocket socket_;
    QByteArray recibido_;
    bool turno_ = false; // the connection's first message has been answered
};

} // namespace zv::zvpos

// One connection to the fast link, and one question at a time on it.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QTcpSocket>

namespace zv::zvpos {

struct Contestacion {
    enum Kind {
        Contestada,
        SinConexion,  // nobody there
        SinRespuesta, // sent, and no answer in time
        Cortada       // sent, and the connection has gone
    };
    Kind kind = SinConexion;
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

class EnlaceTcp final : public Enlace {
  public:
    EnlaceTcp(QString servidor, quint16 puerto, int plazoConexionMs);

    Contestacion Preguntar(const QByteArray& mensaje, const QList<QByteArray>& conocidas,
                           int plazoMs) override;

  private:
    bool Conectar();
    Contestacion Leer(const QList<QByteArray>& conocidas, int plazoMs);
    bool Conectado() const;
    void EsperarNovedad(qint64 topeMs);

    QString servidor_;
    quint16 puerto_;
    int plazoConexionMs_;
    QTcpSocket socket_;
};

} // namespace zv::zvpos

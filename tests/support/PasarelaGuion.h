// A gateway for the tests of its client: a TCP server on 127.0.0.1 in a thread of its own, so that
// a client that blocks is answered too. It keeps to the protocol with answers of its own, and does
// what the test says where the test says something. Every wait has a limit.
#pragma once

#include <QJsonObject>
#include <QList>
#include <QMutex>
#include <QStringList>
#include <QThread>
#include <QWaitCondition>

#include <deque>
#include <functional>
#include <map>
#include <memory>

class QTcpServer;
class QTcpSocket;

namespace zv {

// One client's connection, used in the gateway's thread alone.
class EnlaceGuion {
  public:
    explicit EnlaceGuion(QTcpSocket& socket) : socket_(socket) {}

    void Contestar(const QJsonObject& peticion, const QJsonValue& resultado);
    void Rechazar(const QJsonObject& peticion, int codigo, const QString& mensaje,
                  const QJsonObject& datos = {});
    void Notificar(const QString& metodo, const QJsonObject& params);
    // Bytes as they are.
    void Crudo(const QByteArray& bytes);
    // Sends what is waiting and closes.
    void Cortar();

  private:
    QTcpSocket& socket_;
};

class PasarelaGuion {
  public:
    using Reaccion = std::function<void(EnlaceGuion& enlace, const QJsonObject& peticion)>;

    PasarelaGuion();
    ~PasarelaGuion();
    PasarelaGuion(const PasarelaGuion&) = delete;
    PasarelaGuion& operator=(const PasarelaGuion&) = delete;

    QString Direccion() const;
    // The next request of that method meets this instead of the gateway's own answer; several in
    // order. One that is never met fails the test.
    void Al(const QString& metodo, Reaccion reaccion);
    // The same for every request of that method that finds none of the above.
    void Siempre(const QString& metodo, Reaccion reaccion);
    // Members of the answer to hello that differ from the gateway's own.
    void PonerSaludo(const QString& miembro, const QJsonValue& valor);

    // Stops listening and drops the client; a connection is then refused.
    void Apagar();
    // Listens again, on the same port.
    void Encender();
    // Drops the client; listens on.
    void Cortar();
    // To the client that is connected, unasked.
    void Notificar(const QString& metodo, const QJsonObject& params);
    void Crudo(const QByteArray& bytes);

    // Requests received so far, in order, of one method or of all.
    QList<QJsonObject> Recibidas(const QString& metodo = {}) const;
    // Names of the methods received, pings left out.
    QStringList Metodos() const;
    // Waits until so many requests of that method have come. False after 5 s.
    bool Espera(const QString& metodo, int cuantas = 1) const;
    int Conexiones() const;
    // Waits until a client has left by itself or has been dropped. False after 5 s.
    bool EsperaCorte() const;

    // Operation states. Amounts in minor units.
    static QJsonObject EnMarcha(const QString& opId, const QString& metodo, qint64 paidIn,
                                qint64 paidOut);
    static QJsonObject Hecha(const QString& opId, const QString& metodo, qint64 paidIn,
                             qint64 paidOut);
    static QJsonObject Fallida(const QString& opId, const QString& metodo, int codigo,
                               const QString& mensaje, qint64 paidIn, qint64 paidOut);
    static QString OpId(const QJsonObject& peticion);

  private:
    void EnHilo(const std::function<void()>& accion);
    void Escuchar();
    void AlConectar();
    void AlLeer();
    void Atender(const QJsonObject& peticion);
    void Defecto(EnlaceGuion& enlace, const QJsonObject& peticion);

    QThread hilo_;
    std::unique_ptr<QObject> contexto_; // lives in hilo_, as all of the next three
    std::unique_ptr<QTcpServer> servidor_;
    QTcpSocket* cliente_ = nullptr;
    QByteArray pendiente_;
    quint16 puerto_ = 0;

    mutable QMutex cerrojo_; // of all below
    mutable QWaitCondition llegada_;
    QList<QJsonObject> recibidas_;
    std::map<QString, std::deque<Reaccion>> unaVez_;
    std::map<QString, Reaccion> siempre_;
    QJsonObject saludo_;
    int conexiones_ = 0;
    int cortes_ = 0;
};

} // namespace zv

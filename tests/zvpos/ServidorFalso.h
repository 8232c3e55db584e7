// Another end of the link: answers from a list, and can be silent, slow in pieces, or gone.
#pragma once

#include <QByteArray>
#include <QList>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <functional>
#include <memory>

namespace zv::zvpos {

class ServidorFalso {
  public:
    // What to write for a message; each element is one write, and an empty list is silence.
    using Contestador = std::function<QList<QByteArray>(const QByteArray&)>;

    explicit ServidorFalso(Contestador contestador) : contestador_(std::move(contestador)) {
        servidor_.listen(QHostAddress::LocalHost);
        QObject::connect(&servidor_, &QTcpServer::newConnection, &servidor_, [this] { Aceptar(); });
    }

    quint16 Puerto() const { return servidor_.serverPort(); }
    void Cerrar() { servidor_.close(); }
    // To the last client, without being asked.
    void Decir(const QByteArray& bytes) {
        cliente_->write(bytes);
        cliente_->flush();
    }

    bool cuelga = false;        // ends the connection behind its answer
    QList<QByteArray> mensajes; // as they have come in, one for each event
    int conexiones = 0;

  private:
    static constexpr int kEntreTrozosMs = 15;

    void Aceptar() {
        cliente_ = servidor_.nextPendingConnection();
        ++conexiones;
        QTcpSocket* const cliente = cliente_;
        QObject::connect(cliente, &QTcpSocket::readyRead, &servidor_, [this, cliente] {
            const QByteArray mensaje = cliente->readAll();
            mensajes.append(mensaje);
            // Each piece arrives by itself: the client has read the one before.
            int cuando = 0;
            for (const QByteArray& trozo : contestador_(mensaje)) {
                QTimer::singleShot(cuando, cliente, [cliente, trozo] { cliente->write(trozo); });
                cuando += kEntreTrozosMs;
            }
            if (cuelga) {
                QTimer::singleShot(cuando, cliente, [cliente] { cliente->disconnectFromHost(); });
            }
        });
    }

    Contestador contestador_;
    QTcpServer servidor_;
    QTcpSocket* cliente_ = nullptr; // of servidor_
};

} // namespace zv::zvpos

// A gateway made of the input's bytes, and the socket that leads to it: both in memory. The bytes
// go to the client as they are, but for those below, which act or stand for what only the client
// knows:
//   01 what came before is one chunk        10 the opId of the last start or cancel
//   02 the gateway closes the link          11 the id of the last request
//   03 the next connection is refused       12 the id of the last op.cancel
//   04 a second passes                      13 the id of the last start
//   05 the cashier presses cancel           14 the id of the last op.finish
//   06 levels are asked for meanwhile       0e half a megabyte of blanks
//   07 the cashier ends the operation
#pragma once

#include <QByteArray>
#include <QHash>
#include <QJsonObject>
#include <QSet>
#include <QString>
#include <QTcpSocket>

#include <functional>
#include <memory>

namespace zv::fuzz {

class SocketBytes;

class PasarelaBytes {
  public:
    explicit PasarelaBytes(QByteArray guion) : guion_(std::move(guion)) {}

    std::unique_ptr<QTcpSocket> NuevoSocket();
    // The next thing that happens; enBucle: the event loop runs, so people may act too. False when
    // nothing happens but time.
    bool Paso(bool enBucle);
    bool Acabado() const { return sitio_ >= guion_.size(); }

    std::function<void()> alCancelar;
    std::function<void()> alTerminar;
    std::function<void()> alPedirNiveles;

    // What the gateway has told, as far as it is well-formed JSON.
    bool DichaHecha(const QString& opId) const { return hechas_.contains(opId); }
    int Desconocidas() const { return desconocidas_; }
    // What the client has asked for.
    int Inicios(const QString& opId) const { return inicios_.value(opId); }
    QString UltimoOpId() const { return opId_; }
    // Amounts of the operation that runs have been shown; a start after that is a finding.
    void AnotarMovimiento() { movida_ = opId_; }

  private:
    friend class SocketBytes;
    bool Rechaza();
    void Recibir(const QByteArray& bytes);
    void Peticion(const QJsonObject& peticion);
    void Decir(const QByteArray& bytes);
    QByteArray Trozo();

    QByteArray guion_;
    qsizetype sitio_ = 0;
    SocketBytes* socket_ = nullptr; // the one that is open
    QByteArray pendiente_;          // of the client, without its line feed yet
    QByteArray dicho_;              // to the client, the same

    QString opId_;
    QString movida_;
    qint64 ultimoId_ = 0;
    qint64 idCancelar_ = 0;
    qint64 idTerminar_ = 0;
    qint64 idInicio_ = 0;
    bool abierta_ = false; // the last start ends when somebody says so
    int porRechazar_ = 0;
    int blancos_ = 0;
    int desconocidas_ = 0;
    QHash<QString, int> inicios_;
    QSet<QString> hechas_;
};

} // namespace zv::fuzz

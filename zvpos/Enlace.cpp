// The connection, worked by an event loop of its own until the answer is there.
#include "zvpos/Enlace.h"

#include "platform/CodePage.h"
#include "zvpos/Mensajes.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QNetworkProxy>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace zv::zvpos {

namespace {

// After so long without a byte an answer that is not known is taken as whole.
constexpr int kSilencioMs = 300;
// Nothing that the monitor answers comes near it.
constexpr qsizetype kRespuestaMayor = 4096;

} // namespace

EnlaceTcp::EnlaceTcp(QString servidor, quint16 puerto, int plazoConexionMs)
    : servidor_(std::move(servidor)), puerto_(puerto), plazoConexionMs_(plazoConexionMs) {
    socket_.setProxy(QNetworkProxy::NoProxy);
}

Contestacion EnlaceTcp::Preguntar(const QByteArray& mensaje, const QList<QByteArray>& conocidas,
                                  int plazoMs) {
    if (!Conectado() && !Conectar()) {
        Contestacion nadie{Contestacion::SinConexion, socket_.errorString()};
        socket_.abort();
        return nadie;
    }
    // What came without a question answers none.
    socket_.readAll();
    socket_.write(mensaje);
    socket_.flush();
    Contestacion contestacion = Leer(conocidas, plazoMs);
    if (contestacion.kind != Contestacion::Contestada) {
        socket_.abort();
    }
    return contestacion;
}

bool EnlaceTcp::Conectar() {
    socket_.abort();
    const QDeadlineTimer plazo(plazoConexionMs_);
    socket_.connectToHost(servidor_, puerto_);
    while (!Conectado() && socket_.state() != QAbstractSocket::UnconnectedState &&
           !plazo.hasExpired()) {
        EsperarNovedad(plazo.remainingTime());
    }
    // A message goes out at once and in one piece.
    socket_.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    return Conectado();
}

Contestacion EnlaceTcp::Leer(const QList<QByteArray>& conocidas, int plazoMs) {
    const QDeadlineTimer plazo(plazoMs);
    QByteArray recibido;
    for (;;) {
        const QByteArray llegado = socket_.readAll();
        recibido += llegado;
        const Avance avance = MirarRespuesta(recibido, conocidas);
        const bool acabado = !Conectado() || plazo.hasExpired();
        const bool callado = llegado.isEmpty() || recibido.size() > kRespuestaMayor;
        if (avance == Avance::Completa || (avance == Avance::Otra && (acabado || callado))) {
            return {Contestacion::Contestada, DeCodePage(recibido)};
        }
        if (!Conectado()) {
            return {Contestacion::Cortada, {}};
        }
        if (acabado) {
            return {Contestacion::SinRespuesta, {}};
        }
        qint64 tope = plazo.remainingTime();
        if (avance == Avance::Otra) {
            tope = std::min<qint64>(tope, kSilencioMs);
        }
        EsperarNovedad(tope);
    }
}

bool EnlaceTcp::Conectado() const {
    return socket_.state() == QAbstractSocket::ConnectedState;
}

// Until bytes come, the state of the connection changes, or the time is over.
void EnlaceTcp::EsperarNovedad(qint64 topeMs) {
    if (socket_.bytesAvailable() > 0) {
        return;
    }
    QEventLoop bucle;
    QTimer::singleShot(std::max<qint64>(topeMs, 0), &bucle, [&bucle] { bucle.quit(); });
    QObject::connect(&socket_, &QTcpSocket::readyRead, &bucle, &QEventLoop::quit);
    QObject::connect(&socket_, &QTcpSocket::stateChanged, &bucle, &QEventLoop::quit);
    bucle.exec();
}

} // namespace zv::zvpos

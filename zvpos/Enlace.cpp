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
    const QDeadlineTimer plazo(plazoMs);
    if (!turno_ && !PedirTurno(plazoMs)) {
        socket_.abort();
        return {Contestacion::SinTurno, {}};
    }
    recibido_.clear();
    Enviar(mensaje);
    Contestacion contestacion = Leer(conocidas, static_cast<int>(plazo.remainingTime()));
    if (contestacion.clase != Contestacion::Contestada)
        socket_.abort();
    return contestacion;
}

bool EnlaceTcp::Conectar() {
    socket_.abort();
    turno_ = false;
    recibido_.clear();
    const QDeadlineTimer plazo(plazoConexionMs_);
    socket_.connectToHost(servidor_, puerto_);
    while (!Conectado() && socket_.state() != QAbstractSocket::UnconnectedState &&
           !plazo.hasExpired())
        EsperarNovedad(plazo.remainingTime());
    // A message goes out at once and in one piece.
    socket_.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    return Conectado();
}

bool EnlaceTcp::PedirTurno(int plazoMs) {
    const QDeadlineTimer plazo(plazoMs);
    Enviar(MensajeMarca());
    while (!turno_) {
        recibido_ += socket_.readAll();
        turno_ = recibido_.endsWith(RespuestaMarca());
        if (turno_)
            break;
        if (!Conectado() || plazo.hasExpired() || recibido_.size() > kRespuestaMayor)
            return false;
        EsperarNovedad(plazo.remainingTime());
    }
    return true;
}

Contestacion EnlaceTcp::Leer(const QList<QByteArray>& conocidas, int plazoMs) {
    const QDeadlineTimer plazo(plazoMs);
    const QList<QByteArray> posibles = conocidas + QList<QByteArray>{RespuestaMarca()};
    for (;;) {
        const QByteArray llegado = socket_.readAll();
        recibido_ += llegado;
        // Answers to the first messages of others that gave up; none of ours gets such a one.
        while (recibido_.startsWith(RespuestaMarca()))
            recibido_.remove(0, RespuestaMarca().size());
        const Avance avance = MirarRespuesta(recibido_, posibles);
        const bool acabado = !Conectado() || plazo.hasExpired();
        const bool callado = llegado.isEmpty() || recibido_.size() > kRespuestaMayor;
        if (avance == Avance::Completa || (avance == Avance::Otra && (acabado || callado)))
            return {Contestacion::Contestada, DeCodePage(recibido_)};
        if (!Conectado())
            return {Contestacion::Cortada, {}};
        if (acabado)
            return {Contestacion::SinRespuesta, {}};
        qint64 tope = plazo.remainingTime();
        if (avance == Avance::Otra)
            tope = std::min<qint64>(tope, kSilencioMs);
        EsperarNovedad(tope);
    }
}

bool EnlaceTcp::Conectado() const {
    return socket_.state() == QAbstractSocket::ConnectedState;
}

void EnlaceTcp::Enviar(const QByteArray& mensaje) {
    socket_.write(mensaje);
    socket_.flush();
}

// Until bytes come, the state of the connection changes, or the time is over.
void EnlaceTcp::EsperarNovedad(qint64 topeMs) {
    if (socket_.bytesAvailable() > 0)
        return;
    QEventLoop bucle;
    QTimer::singleShot(std::max<qint64>(topeMs, 0), &bucle, [&bucle] { bucle.quit(); });
    QObject::connect(&socket_, &QTcpSocket::readyRead, &bucle, &QEventLoop::quit);
    QObject::connect(&socket_, &QTcpSocket::stateChanged, &bucle, &QEventLoop::quit);
    bucle.exec();
}

} // namespace zv::zvpos

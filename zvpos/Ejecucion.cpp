#include "zvpos/Ejecucion.h"

#include "platform/StringLiterals.h"

#include <QDeadlineTimer>
#include <QThread>

#include <algorithm>
#include <limits>

namespace zv::zvpos {

namespace {

constexpr qint64 kEntrePreguntasMs = 250;

Veredicto SinContestar(const Opciones& opciones, const Contestacion& contestacion) {
    const QString donde = u"%1:%2"_s.arg(opciones.servidor).arg(opciones.puerto);
    const bool cobrar = opciones.orden == Orden::Cobrar;
    QString error;
    switch (contestacion.kind) {
    case Contestacion::SinConexion:
        error = u"no hay conexión con el monitor en %1: %2"_s.arg(donde, contestacion.texto);
        break;
    default:
        error = contestacion.kind == Contestacion::Cortada
                    ? u"el monitor en %1 ha cortado la conexión"_s.arg(donde)
                    : u"el monitor en %1 no ha contestado a tiempo"_s.arg(donde);
        if (cobrar) {
            error += u"; no se sabe si ha tomado la venta: repita la misma orden, "
                     "con el mismo ID"_s;
        }
    }
    return {SinRespuesta, {}, error};
}

Veredicto Cobrar(const Opciones& opciones, Enlace& enlace) {
    const Contestacion contestacion =
        enlace.Preguntar(MensajeCobro(opciones.venta), RespuestasCobro(), opciones.plazoMs);
    return contestacion.kind == Contestacion::Contestada ? JuzgarCobro(contestacion.texto)
                                                         : SinContestar(opciones, contestacion);
}

Veredicto Estado(const Opciones& opciones, Enlace& enlace) {
    const Contestacion contestacion =
        enlace.Preguntar(MensajeEstado(opciones.venta.id), RespuestasEstado(), opciones.plazoMs);
    return contestacion.kind == Contestacion::Contestada ? JuzgarEstado(contestacion.texto)
                                                         : SinContestar(opciones, contestacion);
}

// A row in the queue wins over the records of failed attempts, so that anything but "PENDING" is
// the end: the sale is paid, or it has failed and nobody will try it again. An unknown ID is no
// sale that is still to come either: one that has been accepted is in the queue until it is filed,
// in one step.
Veredicto Esperar(const Opciones& opciones, Enlace& enlace, Tiempo& tiempo) {
    const QByteArray mensaje = MensajeEstado(opciones.venta.id);
    const QList<QByteArray> conocidas = RespuestasEstado();
    const qint64 hasta = tiempo.AhoraMs() + qint64{1000} * opciones.segundos;
    for (bool primera = true;; primera = false) {
        // While an operation of the till's own runs, the monitor may answer nothing for minutes.
        // The same question stays in its line; asking anew would only make the line longer.
        const qint64 plazo = std::max<qint64>(hasta - tiempo.AhoraMs(), opciones.plazoMs);
        const Contestacion contestacion =
            enlace.Preguntar(mensaje, conocidas, static_cast<int>(plazo));
        Veredicto veredicto = contestacion.kind == Contestacion::Contestada
                                  ? JuzgarEstado(contestacion.texto)
                                  : SinContestar(opciones, contestacion);
        const bool otraVez = contestacion.kind == Contestacion::Cortada ||
                             (contestacion.kind == Contestacion::SinConexion && !primera) ||
                             contestacion.texto == QLatin1String("NOK|Failed");
        const qint64 queda = hasta - tiempo.AhoraMs();
        if ((veredicto.codigo != Pendiente && !otraVez) || queda <= 0) {
            if (veredicto.codigo == Pendiente) {
                veredicto.error =
                    u"sigue pendiente después de %1 segundos"_s.arg(opciones.segundos);
            }
            return veredicto;
        }
        tiempo.Dormir(std::min(queda, kEntrePreguntasMs));
    }
}

} // namespace

qint64 TiempoReal::AhoraMs() {
    return QDeadlineTimer::current(Qt::PreciseTimer).deadline();
}

void TiempoReal::Dormir(qint64 ms) {
    QThread::msleep(static_cast<unsigned long>(ms));
}

Veredicto Ejecutar(const Opciones& opciones, Enlace& enlace, Tiempo& tiempo) {
    switch (opciones.orden) {
    case Orden::Cobrar:
        return Cobrar(opciones, enlace);
    case Orden::Estado:
        return Estado(opciones, enlace);
    case Orden::Esperar:
        return Esperar(opciones, enlace, tiempo);
    }
    return {};
}

} // namespace zv::zvpos

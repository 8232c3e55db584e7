// What goes over the fast link and what comes back. The protocol has no terminator in either
// direction: a message is what one send delivers, an answer what the server writes to it.
#pragma once

#include "zvpos/Opciones.h"

#include <QByteArray>
#include <QList>

namespace zv::zvpos {

// "C|id|amount", and behind it the other fields as far as there are any.
QByteArray MensajeCobro(const Venta& venta);
QByteArray MensajeEstado(const QString& id);

// What a server can answer to a message, as far as it is known beforehand.
QList<QByteArray> RespuestasCobro();
QList<QByteArray> RespuestasEstado();

// How an answer that is still coming in stands. Nothing known is the beginning of another known
// answer, so that one that is there is whole. A beginning is never taken for an answer, however
// long nothing follows: "OK|" alone must not pass for a state. What is neither may be a state that
// this program has never heard of; it counts as whole when nothing more comes for a short while.
enum class Avance { Completa, Empezada, Otra };
Avance MirarRespuesta(const QByteArray& recibido, const QList<QByteArray>& conocidas);

// Exit codes, as --help tells them.
enum Codigo {
    Bien = 0,
    NoAceptada = 1,
    MalEscrita = 2,
    SinRespuesta = 3,
    Pendiente = 4,
    Desconocida = 5,
    YaExiste = 6
};

struct Veredicto {
    Codigo codigo = SinRespuesta;
    QString salida; // one line without its end; empty: none
    QString error;  // for people; empty: none
};

Veredicto JuzgarCobro(const QString& respuesta);
// "NOK|Failed" to a question: the monitor could not look; the state is not known.
Veredicto JuzgarEstado(const QString& respuesta);

} // namespace zv::zvpos

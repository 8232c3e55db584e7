// The fast link: sales from the network. A receive event is one message, which only joins the
// queue; the timer Tmr answers one message a tick, in order of arrival across all clients.
#pragma once

#include "config/ConfiguracioGlobal.h"
#include "fastlink/FastListener.h"
#include "platform/FormatoRegional.h"
#include "platform/Metronome.h"
#include "store/dades.h"
#include "ui/Log.h"

#include <deque>

namespace zv {

// What the pump asks before it answers.
struct FastPump {
    // The sales of the store; nullptr while there is none yet: messages wait.
    std::function<dades*()> datos;
    // True while an answer has to wait: a transaction is open, so that a row added now would not
    // be durable when its sender is told so.
    std::function<bool()> esperar;
    // Called before esperar: ends a transaction that somebody has left open.
    std::function<void()> preparar;
};

class ServidorFast {
  public:
    // Everything handed in outlives the server.
    ServidorFast(ConfiguracioGlobal& configuracio, const FormatoRegional& formato, Log& log,
                 FastPump bomba, const QHostAddress& direccion = QHostAddress::Any);

    // (Re)opens the listener by the settings; connections that stand are not touched. Raises 13 or
    // 6 for a port that is no number, and the failures of FastListener::Escuchar.
    void AbrirFast();

    // Whether it could listen on that port; it can on the one that it listens on.
    bool PuertoLibre(quint16 puerto) const;

    // One tick of Tmr; the event loop calls it.
    void Tick();

    const FastListener& WS() const { return ws_; }
    std::size_t MensajesEnCola() const { return ColaMissatges_.size(); }
    bool TmrActivo() const { return Tmr_.Activo(); }

  private:
    struct Entrada {
        Missatge missatge;
        quint64 serie; // of the connection: another one may have taken its index since
    };
    void Llegada(qint16 indice, const QByteArray& datos);
    QString Contestar(dades& datos, const Missatge& missatge);

    ConfiguracioGlobal& configuracio_;
    const FormatoRegional& formato_;
    Log& log_;
    FastPump bomba_;
    QHostAddress direccion_;
    FastListener ws_;
    std::deque<Entrada> ColaMissatges_;
    Metronome Tmr_;
};

} // namespace zv

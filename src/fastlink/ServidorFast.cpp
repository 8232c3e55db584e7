#include "fastlink/ServidorFast.h"

#include "fastlink/LecturaMissatge.h"
#include "fastlink/RespuestaFast.h"
#include "platform/CodePage.h"
#include "platform/Conversions.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

namespace zv {

namespace {

constexpr int kTmrMs = 1;

} // namespace

ServidorFast::ServidorFast(ConfiguracioGlobal& configuracio, const FormatoRegional& formato,
                           Log& log, FastPump bomba, const QHostAddress& direccion)
    : configuracio_(configuracio), formato_(formato), log_(log), bomba_(std::move(bomba)),
      direccion_(direccion),
      ws_(direccion, {[this](qint16 indice, const QByteArray& datos) { Llegada(indice, datos); }}),
      Tmr_(kTmrMs, [this] { Tick(); }) {}

void ServidorFast::AbrirFast() {
    if (ws_.Escuchando()) {
        ws_.DejarDeEscuchar();
    }
    if (configuracio_->zvFastActive) {
        ws_.Escuchar(AEntero32(configuracio_->ZVFastPort, formato_));
    }
}

bool ServidorFast::PuertoLibre(quint16 puerto) const {
    if (ws_.Escuchando() && ws_.Puerto() == puerto) {
        return true;
    }
    // One that this user may not open is refused too, but nobody has it.
    QTcpServer prueba;
    return prueba.listen(direccion_, puerto) ||
           prueba.serverError() != QAbstractSocket::AddressInUseError;
}

void ServidorFast::Llegada(qint16 indice, const QByteArray& datos) {
    const QString texto = DeCodePage(datos);
    log_.LogFast(u"R: "_s + texto);
    std::optional<Missatge> missatge = LeerMissatge(texto, formato_);
    if (!missatge) {
        return;
    }
    missatge->IdxSocket = indice;
    ColaMissatges_.push_back({std::move(*missatge), ws_.Serie(indice)});
    Tmr_.Arrancar();
}

void ServidorFast::Tick() {
    if (ColaMissatges_.empty()) {
        Tmr_.Parar();
        return;
    }
    dades* datos = bomba_.datos();
    if (datos == nullptr) {
        return;
    }
    if (bomba_.preparar) {
        bomba_.preparar();
    }
    if (bomba_.esperar && bomba_.esperar()) {
        return;
    }
    const Entrada entrada = std::move(ColaMissatges_.front());
    ColaMissatges_.pop_front();
    const QString respuesta = Contestar(*datos, entrada.missatge);
    const qint16 indice = entrada.missatge.IdxSocket;
    if (ws_.Conectado(indice) && ws_.Serie(indice) == entrada.serie) {
        ws_.Enviar(indice, ACodePage(respuesta));
        log_.LogFast(u"E: "_s + respuesta);
    }
}

QString ServidorFast::Contestar(dades& datos, const Missatge& missatge) {
    try {
        return ContestarMissatge(datos, missatge);
    } catch (const ErrorEjecucion& e) {
        // A look-up that the database refuses is no reason to end a till: the client is told that
        // it failed, and asks again.
        try {
            log_.LogLinea(u">>> Error nº "_s + QString::number(e.Numero()) +
                          u" en el enlace ZVFast - "_s + e.Descripcion());
        } catch (const ErrorEjecucion&) {
            // Nor does a log that cannot be written end the till.
            return u"NOK|Failed"_s;
        }
        return u"NOK|Failed"_s;
    }
}

} // namespace zv

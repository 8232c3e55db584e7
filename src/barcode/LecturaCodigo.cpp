// Fields of a code by their positions, counted from 1; nothing else of it is looked at.
#include "barcode/LecturaCodigo.h"

#include "barcode/Claves.h"
#include "config/Configuracio.h"
#include "platform/Conversions.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/dades.h"
#include "ui/Importes.h"

namespace zv {

namespace {

// The characters from position desde to position hasta.
QString Campo(const QString& codigo, int desde, int hasta) {
    return codigo.mid(desde - 1, hasta - desde + 1);
}

double Divisor(int decimales) {
    return u"10000000"_s.left(decimales + 1).toDouble();
}

bool LayoutMalo(const LayoutCodigo& l) {
    if (l.importeDesde == 0 || l.importeHasta == 0 ||
        (l.conTicket && (l.ticketDesde == 0 || l.ticketHasta == 0)) || l.largo == 0) {
        return true;
    }
    // A field that ends before it begins has no characters to take.
    return l.importeHasta < l.importeDesde || (l.conTicket && l.ticketHasta < l.ticketDesde);
}

QString Ticket(const QString& codigo, const LayoutCodigo& l, const QDateTime& ahora) {
    // A longer one would be a failure of the store, after which nothing more could be queued.
    return l.conTicket ? Campo(codigo, l.ticketDesde, l.ticketHasta).left(kTextoMissatge)
                       : ahora.toString(u"MM/dd/yyyy-HH:mm:ss"_s);
}

Currency Importe(const QString& texto, int decimales, const Importes& importes) {
    const Currency leido = importes.Formato().LeerCurrency(texto);
    const auto producto = Currency::DeDiezmilesimas(leido.Diezmilesimas() *
                                                    static_cast<qint64>(importes.Multiplicador()));
    return Currency::DeDoble(producto.ADoble() / Divisor(decimales));
}

bool Dentro(int posicion, int desde, int hasta) {
    return desde > 0 && posicion >= desde && posicion <= hasta;
}

} // namespace

LayoutCodigo LayoutDe(const Configuracio& cfg) {
    return {cfg.BCEAN, cfg.BCTPRE, cfg.BCTINI, cfg.BCTFIN, cfg.BCIINI, cfg.BCIFIN, cfg.BCDEC};
}

ZonaCodigo ZonaDe(const LayoutCodigo& layout, int posicion) {
    if (posicion > layout.largo) {
        return ZonaCodigo::Ninguna;
    }
    if (Dentro(posicion, layout.importeDesde, layout.importeHasta)) {
        return ZonaCodigo::Importe;
    }
    return layout.conTicket && Dentro(posicion, layout.ticketDesde, layout.ticketHasta)
               ? ZonaCodigo::Ticket
               : ZonaCodigo::Ninguna;
}

LecturaCodigo LeerCodigo(const QString& codigo, const LayoutCodigo& layout,
                         const Importes& importes, const QDateTime& ahora) {
    LecturaCodigo leido;
    if (codigo.size() != layout.largo) {
        leido.reparo = &texto::kErrorLongitudCodigo;
        return leido;
    }
    if (LayoutMalo(layout)) {
        leido.reparo = &texto::kErrorConfiguracionCodigo;
        return leido;
    }
    leido.ticket = Ticket(codigo, layout, ahora);
    const QString importe = Campo(codigo, layout.importeDesde, layout.importeHasta);
    try {
        AEntero32(importe, importes.Formato());
    } catch (const ErrorEjecucion&) {
        leido.reparo = &texto::kErrorImporteCodigo;
        return leido;
    }
    // From here on a failure ends its own step only.
    try {
        leido.importe = Importe(importe, layout.decimales, importes);
    } catch (const ErrorEjecucion&) {
        leido.importe = {};
    }
    return leido;
}

} // namespace zv

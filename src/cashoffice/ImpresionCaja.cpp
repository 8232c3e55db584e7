#include "cashoffice/ImpresionCaja.h"

#include "cashoffice/Claves.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "till/Claves.h"
#include "till/ImpresionHistorial.h"
#include "ui/Imprimir.h"

#include <QScopeGuard>

namespace zv {
namespace {

// One print of the cash office.
class ImpresionCaja {
  public:
    ImpresionCaja(Caja& caja, const Entorno& entorno, Impresora& impresora)
        : caja_(caja), estado_(caja.Estado()), entorno_(entorno), impresora_(impresora) {}

    void Listado();
    void Resumen();
    void Quebranto();

  private:
    QString Texto(const Clave& clave) const { return entorno_.textos.Traduce(clave); }
    QString Ahora() const { return FechaImpresa(entorno_.reloj.Ahora()); }
    void Linea(const QString& texto) { ImprimirLineaTotales(impresora_, texto); }
    void Importe(const Clave& rotulo, const QString& importe) {
        Linea(Texto(rotulo) + u": "_s + importe);
    }
    void Bloque(const Clave& rotulo, const QString& billetes, const QString& monedas);
    QString Suma(const QString& una, const QString& otra) const;
    Currency Leer(const QString& etiqueta) const;
    double Numero(const QString& etiqueta) const {
        return entorno_.importes.Formato().LeerNumero(etiqueta).value_or(0);
    }

    Caja& caja_;
    const EstadoCaja& estado_;
    const Entorno& entorno_;
    Impresora& impresora_;
};

void ImpresionCaja::Listado() {
    caja_.Completar(); // a long grid fills in steps
    ImprimirRejilla(impresora_, caja_.grdZV(),
                    Texto(texto::kMovimientosHasta) + u' ' + Ahora() + u"\r\n"_s, u"5"_s, 0);
    Linea({});
    ImprimirTotales(impresora_, entorno_.textos,
                    {entorno_.importes.FormatoImporte(caja_.totales.cobros), estado_.lbAbonos,
                     estado_.lbPagos, estado_.lbIngresos, estado_.lbSaldoFinal});
}

// A label as minor units.
Currency ImpresionCaja::Leer(const QString& etiqueta) const {
    const Importes& importes = entorno_.importes;
    qint64 producto = 0;
    if (__builtin_mul_overflow(importes.Formato().LeerCurrency(etiqueta).Diezmilesimas(),
                               qint64{importes.Multiplicador()}, &producto)) {
        throw errores::Desbordamiento();
    }
    return Currency::DeDiezmilesimas(producto);
}

QString ImpresionCaja::Suma(const QString& una, const QString& otra) const {
    return entorno_.importes.FormatoImporte(Leer(una) + Leer(otra));
}

void ImpresionCaja::Bloque(const Clave& rotulo, const QString& billetes, const QString& monedas) {
    Importe(rotulo, Suma(billetes, monedas));
    Linea(Texto(texto::kImpresionMonedas) + monedas);
    Linea(Texto(texto::kImpresionBilletes) + billetes);
}

void ImpresionCaja::Resumen() {
    const bool cerrada = Numero(estado_.lbSaldoCierre) != 0;
    if (cerrada) {
        Linea(Texto(texto::kImpresionCierre) + Ahora() + u')');
    }
    Bloque(texto::kLblCambio, estado_.lbCambioBilletes, estado_.lbCambioMonedas);
    if (cerrada || Numero(estado_.lbCBBilletes) > 0 || Numero(estado_.lbCBMonedas) > 0) {
        Bloque(texto::kLblCB, estado_.lbCBBilletes, estado_.lbCBMonedas);
    }
    if (cerrada) {
        Importe(texto::kLblSaldoCierre, estado_.lbSaldoCierre);
    }
}

void ImpresionCaja::Quebranto() {
    if (entorno_.importes.Formato().EsNumerico(estado_.lbQuebranto)) {
        ImprimirRaya(impresora_);
        Importe(texto::kLblQuebranto, estado_.lbQuebranto);
    }
}

} // namespace

void ImprimirCaja(Caja& caja, Impresora& impresora) {
    const Entorno& entorno = caja.ElEntorno();
    if (entorno.configuracio->SINIMPRESORA == 1) {
        caja.AbrirHistorial();
        return;
    }
    const Impresion eleccion = entorno.dialogos.ElegirImpresion();
    if (eleccion != Impresion::Nada) {
        caja.PonerEspera(true);
        caja.Pintar(); // a long list, or a print server that is slow to answer, takes seconds
    }
    const auto fin = qScopeGuard([&caja] { caja.PonerEspera(false); });
    ImprimirSinAvisar(impresora, entorno.log, [&] {
        ImpresionCaja impresion(caja, entorno, impresora);
        if (eleccion == Impresion::Listado || eleccion == Impresion::Todo) {
            impresion.Listado();
        }
        if (eleccion == Impresion::Resumen || eleccion == Impresion::Todo) {
            impresion.Resumen();
        }
        impresion.Quebranto();
        impresora.TerminarDocumento();
    });
}

} // namespace zv

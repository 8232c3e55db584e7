// What the cash office has to write, worked out a second time: from the records themselves and from
// what the device has answered, by the tables of who counts as what. It knows nothing of how the
// program does it.
#pragma once

#include "ClienteEspia.h"
#include "cashoffice/Caja.h"
#include "platform/StringLiterals.h"
#include "store/DatabaseEngine.h"
#include "support/ImprimeQt.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <vector>

namespace zv::test {

struct TotalesLibro {
    qint64 cobros = 0;
    qint64 abonos = 0;
    qint64 pagos = 0;
    qint64 ingresos = 0;
    qint64 saldo = 0;
    int movimientos = 0;
    bool operator==(const TotalesLibro&) const = default;
};

inline void Contar(TotalesLibro& t, const Row& fila) {
    const auto entero = [&](const QString& columna) {
        return qint64{fila.LeerCurrency(columna).AEntero32()};
    };
    const QString id1 = fila.LeerTexto(u"id1"_s);
    const qint64 cobrado = entero(u"cobrado"_s);
    const qint64 devuelto = entero(u"devuelto"_s);
    const bool sale = devuelto > 0 && cobrado == 0;
    ++t.movimientos;
    t.saldo += cobrado - devuelto;
    if (fila.LeerTexto(u"terminal"_s) != u"ZV"_s) {
        if (entero(u"importeVenta"_s) > 0) {
            t.cobros += cobrado - devuelto;
        } else {
            t.abonos += devuelto;
        }
    } else if (id1 == u"CASHBOXCONTROL"_s) {
        t.ingresos += qMax(cobrado, qint64{0});
        t.pagos += qMax(devuelto, qint64{0});
    } else if (id1 == u"VACIADOCAJONES"_s || id1 == u"ARQUEOCAJA"_s || id1 == u"PAGO_CAMBIO"_s ||
               id1 == u"PAGO"_s || id1 == u"VACIADO"_s) {
        t.pagos += devuelto;
    } else if (id1 == u"METER_CAMBIO"_s) {
        t.ingresos += cobrado - devuelto;
    } else if (id1 != u"DAR_CAMBIO"_s) { // a manual charge, a grouped one, or anything else
        if (sale) {
            t.abonos += devuelto;
        } else {
            t.cobros += cobrado - devuelto;
        }
    }
}

// The open period, row by row.
inline TotalesLibro PeriodoAbierto(DatabaseEngine& motor) {
    TotalesLibro t;
    for (const Row& fila :
         motor.Consultar(u"SELECT * FROM procesados WHERE idCierre=0 ORDER BY idZV"_s)) {
        const QString estado = fila.LeerTexto(u"estado"_s);
        if (estado == u"OK"_s || estado.contains(u"ERROR"_s)) {
            Contar(t, fila);
        }
    }
    return t;
}

struct ParteDinero {
    qint64 monedas = 0;
    qint64 billetes = 0;
    qint64 Suma() const { return monedas + billetes; }
};
struct CuatroPartes {
    ParteDinero reciclador;
    ParteDinero cajones;
    qint64 Monedas() const { return reciclador.monedas + cajones.monedas; }
    qint64 Billetes() const { return reciclador.billetes + cajones.billetes; }
    qint64 Suma() const { return Monedas() + Billetes(); }
};

// The answers in their order; without a connection nothing is asked and every balance is 0.
class Contestaciones {
  public:
    explicit Contestaciones(std::vector<Contestacion> todas) : todas_(std::move(todas)) {}

    bool conectado = true;

    Contestacion Toma(Contestacion::Que que) {
        if (i_ >= todas_.size() || todas_[i_].que != que) {
            ADD_FAILURE() << "call " << i_ << " of " << todas_.size() << " is another one";
            return {};
        }
        return todas_[i_++];
    }
    bool Queda(Contestacion::Que que) const {
        return std::any_of(todas_.begin() + static_cast<std::ptrdiff_t>(i_), todas_.end(),
                           [que](const Contestacion& c) { return c.que == que; });
    }
    bool Acabadas() const { return i_ == todas_.size(); }
    ParteDinero Niveles(qint32 tipo) {
        if (!conectado) {
            return {};
        }
        const Contestacion c = Toma(Contestacion::Que::Niveles);
        EXPECT_EQ(c.cual, tipo);
        return {c.monedas, c.billetes};
    }
    qint64 Todo() {
        const qint64 cajones = Niveles(3).Suma();
        return cajones + Niveles(2).Suma();
    }
    // The session is ended: the exit balance, then nothing more is asked.
    void Desconexion() {
        Todo();
        Toma(Contestacion::Que::Desconexion);
        conectado = false;
    }
    CuatroPartes Antes() {
        CuatroPartes partes;
        partes.reciclador.monedas = Niveles(2).monedas;
        partes.cajones.monedas = Niveles(3).monedas;
        partes.reciclador.billetes = Niveles(2).billetes;
        partes.cajones.billetes = Niveles(3).billetes;
        return partes;
    }
    CuatroPartes Despues() {
        CuatroPartes partes;
        partes.reciclador.billetes = Niveles(2).billetes;
        partes.reciclador.monedas = Niveles(2).monedas;
        partes.cajones.billetes = Niveles(3).billetes;
        partes.cajones.monedas = Niveles(3).monedas;
        return partes;
    }
    CuatroPartes Refresco() {
        CuatroPartes partes;
        partes.reciclador.monedas = Niveles(2).monedas;
        partes.reciclador.billetes = Niveles(2).billetes;
        partes.cajones.monedas = Niveles(3).monedas;
        partes.cajones.billetes = Niveles(3).billetes;
        return partes;
    }

  private:
    std::vector<Contestacion> todas_;
    std::size_t i_ = 0;
};

// A record that ought to have been filed.
struct FilaLibro {
    QString id1;
    qint64 importeVenta = 0;
    qint64 cobrado = 0;
    qint64 devuelto = 0;
    qint64 saldoZV = 0;
    QString formapago = {};
};

// A row of cierres that ought to stand.
struct CierreLibro {
    TotalesLibro totales; // of the last refresh, as the two below
    qint64 saldoInicial = 0;
    qint64 contenido = 0;
    CuatroPartes antes;
    CuatroPartes despues;
};

// What one operation ought to have written.
struct EfectoCaja {
    std::vector<FilaLibro> filas;
    std::optional<CierreLibro> cierre;
    std::optional<qint64> saldoInicial; // of the next period
    bool refresca = false;

    qint64 Neto() const {
        qint64 neto = 0;
        for (const FilaLibro& fila : filas) {
            neto += fila.cobrado - fila.devuelto;
        }
        return neto;
    }
};

// The state that the cash office shows.
struct VistaLibro {
    TotalesLibro totales;
    CuatroPartes dinero;
    qint64 saldoInicial = 0;

    void Comprobar(const Caja& caja) const {
        EXPECT_EQ(caja.totales.cobros, Currency::DeEntero(totales.cobros));
        EXPECT_EQ(caja.totales.abonos, Currency::DeEntero(totales.abonos));
        EXPECT_EQ(caja.totales.pagos, Currency::DeEntero(totales.pagos));
        EXPECT_EQ(caja.totales.ingresos, Currency::DeEntero(totales.ingresos));
        EXPECT_EQ(caja.totales.saldoFinal, Currency::DeEntero(totales.saldo));
        EXPECT_EQ(caja.saldos.contenido, Currency::DeEntero(dinero.Suma()));
        EXPECT_EQ(caja.saldos.cambioMonedas, Currency::DeEntero(dinero.reciclador.monedas));
        EXPECT_EQ(caja.saldos.cambioBilletes, Currency::DeEntero(dinero.reciclador.billetes));
        EXPECT_EQ(caja.saldos.cajonMonedas, Currency::DeEntero(dinero.cajones.monedas));
        EXPECT_EQ(caja.saldos.cajonBilletes, Currency::DeEntero(dinero.cajones.billetes));
    }
};

inline CierreLibro CierreDe(const VistaLibro& vista, const CuatroPartes& antes,
                            const CuatroPartes& despues) {
    return {vista.totales, vista.saldoInicial, vista.dinero.Suma(), antes, despues};
}

// ---- the operations, from the answers of the device

inline EfectoCaja EfectoCierre(Contestaciones& r, const VistaLibro& vista, bool porValor,
                               bool aceptado) {
    EfectoCaja efecto;
    if (porValor) {
        r.Niveles(2); // what is proposed
    }
    if (!aceptado) {
        return efecto;
    }
    efecto.refresca = true;
    const CuatroPartes antes = r.Antes();
    const Contestacion c = r.Toma(Contestacion::Que::Cajones);
    EXPECT_EQ(c.cual, porValor ? 15 : 7);
    if (c.bien) {
        const CuatroPartes despues = r.Despues();
        if (const qint64 movido = c.monedas + c.billetes; movido != 0) {
            efecto.filas.push_back({u"ARQUEOCAJA"_s, -movido, 0, movido, despues.Suma()});
        }
        efecto.cierre = CierreDe(vista, antes, despues);
        efecto.saldoInicial = r.Todo();
    }
    r.Todo(); // the exit balance
    if (r.Queda(Contestacion::Que::Desconexion)) {
        r.Desconexion();
    }
    return efecto;
}

inline EfectoCaja EfectoVaciado(Contestaciones& r, bool billetes) {
    const auto cajon = [&] {
        const ParteDinero p = r.Niveles(3);
        return billetes ? p.billetes : p.monedas;
    };
    EfectoCaja efecto;
    const qint64 antes = cajon();
    if (antes == 0) {
        return efecto;
    }
    const Contestacion c = r.Toma(Contestacion::Que::Vaciado);
    EXPECT_EQ(c.cual, billetes ? 1 : 0);
    if (!c.bien || cajon() == antes) {
        r.Todo(); // the exit balance
        return efecto;
    }
    const qint64 total = r.Todo();
    efecto.filas.push_back(
        {u"VACIADO"_s, -c.monedas, 0, c.monedas, total, billetes ? u"BILLETES"_s : u"MONEDAS"_s});
    efecto.refresca = true;
    return efecto;
}

inline EfectoCaja EfectoCuadre(Contestaciones& r, const VistaLibro& vista, bool acepta) {
    EfectoCaja efecto;
    efecto.refresca = true;
    const qint64 b = r.Todo();
    const CuatroPartes antes = r.Antes();
    const Contestacion cajones = r.Toma(Contestacion::Que::Cajones);
    EXPECT_EQ(cajones.cual, 0);
    if (cajones.codigo == 1) {
        r.Desconexion();
    }
    const qint64 c = r.Todo();
    const qint64 retirado = cajones.monedas + cajones.billetes;
    const qint64 d = b - (c + retirado);
    if (d > 0 && acepta) {
        efecto.filas.push_back({u"VACIADOCAJONES"_s, -d, 0, d, c});
    } else if (d < 0 && acepta) {
        efecto.filas.push_back({u"CASHBOXCONTROL"_s, d, -d, 0, c});
    }
    if (retirado != 0) {
        efecto.filas.push_back({u"VACIADOCAJONES"_s, -retirado, 0, retirado, c});
    }
    if (b != c) {
        const CuatroPartes despues = r.Despues();
        efecto.filas.push_back({u"ARQUEOCAJA"_s, -retirado, 0, retirado, despues.Suma()});
        efecto.cierre = CierreDe(vista, antes, despues);
        efecto.saldoInicial = r.Todo();
    }
    return efecto;
}

// ---- what stands in the file

inline void ComprobarFila(const Row& fila, const FilaLibro& libro) {
    const auto igual = [&](const QString& columna, qint64 valor) {
        EXPECT_EQ(fila.LeerCurrency(columna), Currency::DeEntero(valor)) << columna.toStdString();
    };
    EXPECT_EQ(fila.LeerTexto(u"id1"_s), libro.id1);
    EXPECT_EQ(fila.LeerTexto(u"terminal"_s), u"ZV"_s);
    EXPECT_EQ(fila.LeerTexto(u"estado"_s), u"OK"_s);
    EXPECT_EQ(fila.LeerTexto(u"formapago"_s), libro.formapago);
    igual(u"importeVenta"_s, libro.importeVenta);
    igual(u"cobrado"_s, libro.cobrado);
    igual(u"devuelto"_s, libro.devuelto);
    igual(u"saldoZV"_s, libro.saldoZV);
}

inline void ComprobarCierre(const Row& fila, const CierreLibro& libro) {
    const auto igual = [&](const QString& columna, qint64 valor) {
        EXPECT_EQ(fila.LeerCurrency(columna), Currency::DeEntero(valor)) << columna.toStdString();
    };
    igual(u"saldoInicial"_s, libro.saldoInicial);
    igual(u"cobros"_s, libro.totales.cobros);
    igual(u"abonos"_s, libro.totales.abonos);
    igual(u"ingresos"_s, libro.totales.ingresos);
    igual(u"pagos"_s, libro.totales.pagos);
    igual(u"saldoZV"_s, libro.contenido);
    igual(u"importeCierre"_s, libro.despues.Suma());
    igual(u"cambioBilletes"_s, libro.despues.reciclador.billetes);
    igual(u"cambioMonedas"_s, libro.despues.reciclador.monedas);
    igual(u"cajonBilletes"_s, libro.antes.Billetes() - libro.despues.Billetes());
    igual(u"cajonMonedas"_s, libro.antes.Monedas() - libro.despues.Monedas());
}

} // namespace zv::test

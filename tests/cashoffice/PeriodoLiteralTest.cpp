// The streamed reading of the period against a literal walk over the whole table, with every
// column, row by row, on random tables. The seed of each is told; ZV_SEMILLA runs one alone.
#include "BancoCaja.h"
#include "store/Palabras.h"

#include <random>

namespace zv::test {
namespace {

// What the walk leaves behind; written from the rules of the period, not from the program.
struct Paseo {
    Currency cobros, abonos, pagos, ingresos, saldoFinal;
    std::vector<QStringList> filas;
    int fallo = 0;
};

void Contar(Paseo& p, const Row& r, QString& concepto) {
    const QString id1 = r.LeerTexto(u"id1"_s);
    const QString error = r.LeerTexto(u"error"_s);
    const Currency venta = r.LeerCurrency(u"importeVenta"_s);
    const Currency cobrado = r.LeerCurrency(u"cobrado"_s);
    const Currency devuelto = r.LeerCurrency(u"devuelto"_s);
    const bool soloDevuelto = devuelto > Currency(0) && cobrado == Currency(0);
    if (r.LeerTexto(u"terminal"_s) != u"ZV"_s) {
        if (venta > Currency(0)) {
            concepto = u"Cobro Venta"_s;
            p.cobros += cobrado - devuelto;
        } else {
            concepto = u"Abono Venta"_s;
            p.abonos += devuelto;
        }
    } else if (id1 == u"COBRO_MANUAL"_s && soloDevuelto) {
        concepto = u"Abono Manual -"_s + error;
        p.abonos += devuelto;
    } else if (id1 == u"COBRO_MANUAL"_s) {
        concepto = u"Cobro Manual -"_s + error;
        p.cobros += cobrado - devuelto;
    } else if (id1 == u"CASHBOXCONTROL"_s) {
        concepto = u"Ajuste por descuadre"_s;
        if (cobrado > Currency(0)) {
            p.ingresos += cobrado;
        }
        if (devuelto > Currency(0)) {
            p.pagos += devuelto;
        }
    } else if (id1 == u"VACIADOCAJONES"_s) {
        concepto = u"Vaciado de cajones"_s;
        p.pagos += devuelto;
    } else if (id1 == u"ARQUEOCAJA"_s) {
        concepto = u"Arqueo de caja"_s;
        p.pagos += devuelto;
    } else if (id1 == u"METER_CAMBIO"_s) {
        concepto = u"Cambio añadido"_s;
        p.ingresos += cobrado - devuelto;
    } else if (id1 == u"PAGO_CAMBIO"_s) {
        concepto = u"Cambio cancelado/no autorizado"_s;
        p.pagos += devuelto;
    } else if (id1 == u"DAR_CAMBIO"_s) {
        concepto = u"Cambio"_s;
    } else if (id1 == u"PAGO"_s) {
        concepto = u"Pago -"_s + error;
        p.pagos += devuelto;
    } else if (id1 == u"VACIADO"_s) {
        concepto = u"VACIADO"_s + r.LeerTexto(u"formapago"_s);
        p.pagos += devuelto;
    } else if (soloDevuelto) {
        concepto = u"Abono agrupado"_s;
        p.abonos += devuelto;
    } else {
        concepto = u"Cobro agrupado"_s;
        p.cobros += cobrado - devuelto;
    }
}

Paseo Pasear(DatabaseEngine& motor, const Importes& importes) {
    Paseo p;
    try {
        for (const Row& r : motor.Consultar(u"SELECT * FROM procesados ORDER BY idZV"_s)) {
            const QString estado = r.LeerTexto(u"estado"_s);
            if (r.EsNulo(u"idCierre"_s) || r.LeerLong(u"idCierre"_s) != 0 ||
                (estado != u"OK"_s && !estado.contains(u"ERROR"_s, Qt::CaseSensitive))) {
                continue;
            }
            QString concepto;
            Contar(p, r, concepto);
            if (estado != u"OK"_s) {
                concepto += u" ["_s + estado + u"]"_s;
            }
            p.saldoFinal += r.LeerCurrency(u"cobrado"_s) - r.LeerCurrency(u"devuelto"_s);
            const QDateTime fecha = r.LeerFecha(u"fechaZV"_s);
            p.filas.push_back(
                {fecha.isValid() ? fecha.toString(u"dd/MM/yyyy H:mm:ss"_s) : QString(), concepto,
                 r.LeerTexto(u"terminal"_s), r.LeerTexto(u"vendedor"_s),
                 importes.FormatoImporte(r.LeerCurrency(u"importeVenta"_s)),
                 importes.FormatoImporte(p.saldoFinal)});
        }
        // The labels, behind the walk.
        for (const Currency total : {p.cobros, p.abonos, p.pagos, p.ingresos, p.saldoFinal}) {
            importes.FormatoImporte(total);
        }
    } catch (const ErrorEjecucion& e) {
        p.fallo = e.Numero();
    }
    return p;
}

class Azar {
  public:
    explicit Azar(unsigned semilla) : motor_(semilla) {}

    int Hasta(int n) { return std::uniform_int_distribution<>(0, n - 1)(motor_); }
    template <typename T, std::size_t N>
    const T& De(const T (&lista)[N]) {
        return lista[static_cast<std::size_t>(Hasta(static_cast<int>(N)))];
    }
    // extremos: now and then at the ends of the type, or beyond what the device can count.
    QVariant Importe(bool extremos) {
        static const QVariant kRaros[] = {QVariant(), 0, 1, -1, 0.5, -12.3456};
        static const QVariant kExtremos[] = {2147483647,         -2147483648LL, 922337203685477LL,
                                             -922337203685477LL, 2147483648LL,  922337203685477.5,
                                             -922337203685477.5};
        if (extremos && Hasta(20) == 0) {
            return De(kExtremos);
        }
        return Hasta(8) == 0 ? De(kRaros) : QVariant(Hasta(20000) - 5000);
    }

  private:
    std::mt19937 motor_;
};

class PeriodoLiteralTest : public BancoCaja {
  protected:
    void LlenarTabla(Azar& azar, bool extremos) {
        static const QVariant kEstados[] = {u"OK"_s,    u"OK"_s,      u"OK"_s,        u"OK"_s,
                                            u"ERROR"_s, u"ERROR_7"_s, u"XERRORX"_s,   u"error"_s,
                                            u"ok"_s,    u"CANCEL"_s,  u"REENVIADO"_s, QString(),
                                            QVariant(), u"Error"_s};
        static const QVariant kCierres[] = {0, 0, 0, 0, 0, -1, 1, 7, QVariant()};
        static const QVariant kTerminales[] = {u"ZV"_s,   u"ZV"_s, u"ZV"_s,  u"ZV"_s,   u"TPV1"_s,
                                               u"TPV2"_s, u"zv"_s, u" ZV"_s, QString(), QVariant()};
        static const QVariant kIds[] = {tipo::kDarCambio,
                                        tipo::kMeterCambio,
                                        tipo::kPagoCambio,
                                        tipo::kPago,
                                        tipo::kCobroManual,
                                        tipo::kCobroManual,
                                        tipo::kVaciado,
                                        tipo::kVaciadoCajones,
                                        tipo::kCashBoxControl,
                                        tipo::kArqueoCaja,
                                        u"cobro_manual"_s,
                                        u"Pago"_s,
                                        u"T-77"_s,
                                        QString(),
                                        QVariant()};
        static const QVariant kTextos[] = {u"propina"_s, u"José"_s, QString(), QVariant()};
        static const QVariant kFechas[] = {u"2026-03-14 09:05:03"_s, u"2026-12-31 23:59:59"_s,
                                           46095.5, QVariant()};
        motor.Comenzar();
        for (int i = 0; i < 120; ++i) {
            Poner({azar.De(kFechas), azar.Importe(extremos), azar.Importe(extremos),
                   azar.Importe(extremos), azar.De(kEstados), azar.De(kIds), azar.De(kTerminales),
                   azar.De(kTextos), azar.De(kTextos), azar.De(kTextos), azar.De(kCierres)});
        }
        motor.Confirmar();
    }
    void Comparar(const Paseo& paseo) {
        EXPECT_EQ(caja.totales.cobros, paseo.cobros);
        EXPECT_EQ(caja.totales.abonos, paseo.abonos);
        EXPECT_EQ(caja.totales.pagos, paseo.pagos);
        EXPECT_EQ(caja.totales.ingresos, paseo.ingresos);
        EXPECT_EQ(caja.totales.saldoFinal, paseo.saldoFinal);
        ASSERT_EQ(caja.grdZV().FilasDatos(), static_cast<int>(paseo.filas.size()));
        EXPECT_EQ(caja.totales.movimientos, caja.grdZV().FilasDatos());
        for (std::size_t i = 0; i < paseo.filas.size(); ++i) {
            EXPECT_EQ(FilaDe(static_cast<int>(i) + 1), paseo.filas[i]) << i;
        }
    }
};

TEST_F(PeriodoLiteralTest, RandomTables) {
    Conectar();
    const unsigned sola = qEnvironmentVariableIntValue("ZV_SEMILLA") > 0
                              ? static_cast<unsigned>(qEnvironmentVariableIntValue("ZV_SEMILLA"))
                              : 0;
    int fallidas = 0;
    int enteras = 0;
    for (unsigned semilla = sola != 0 ? sola : 1; semilla <= (sola != 0 ? sola : 40); ++semilla) {
        SCOPED_TRACE(semilla);
        Azar azar(semilla);
        motor.Ejecutar(u"DELETE FROM procesados"_s);
        LlenarTabla(azar, semilla % 2 == 0);
        const Paseo paseo = Pasear(motor, importes);
        EXPECT_EQ(NumeroError([&] { caja.RefrescarCaja(); }), paseo.fallo);
        Comparar(paseo);
        ++(paseo.fallo != 0 ? fallidas : enteras);
        if (HasFatalFailure()) {
            return;
        }
    }
    if (sola == 0) {
        // Both kinds have been seen.
        EXPECT_GT(fallidas, 5);
        EXPECT_GT(enteras, 5);
    }
}

} // namespace
} // namespace zv::test

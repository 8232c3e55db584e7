// A bench for the history of closes: closes and the movements they have taken in.
#pragma once

#include "registers/Historial.h"
#include "support/BancoTill.h"
#include "support/ImpresoraMemoria.h"

namespace zv::test {

// A row of procesados; a column without a value is Null.
struct FilaHistorial {
    QVariant idCierre = 1;
    QVariant cobrado = 0;
    QVariant devuelto = 0;
    QVariant importeVenta = 0;
    QVariant estado = u"OK"_s;
    QVariant terminal = u"TPV1"_s;
    QVariant id1 = u"T1"_s;
    QVariant formapago = QString();
    QVariant error = QString();
    QVariant fechaZV = u"2026-03-14 09:05:03"_s;
    QVariant vendedor = u"Ana"_s;
};

class BancoHistorial : public BancoTill {
  protected:
    // Its amounts are inicial, inicial + 1 and so on, in the order of the columns.
    void PonerCierre(int inicial, const QVariant& fecha = u"2026-03-14 22:00:05"_s) {
        Parametros valores{fecha};
        for (int i = 0; i < 11; ++i) {
            valores.emplace_back(inicial + i);
        }
        motor.Ejecutar(u"INSERT INTO cierres (fecha,saldoInicial,cobros,abonos,ingresos,pagos,"
                       "saldoZV,importeCierre,cambioBilletes,cambioMonedas,cajonBilletes,"
                       "cajonMonedas) VALUES (?,?,?,?,?,?,?,?,?,?,?,?)"_s,
                       valores);
    }
    void PonerCierres(int cuantos) {
        motor.Comenzar();
        for (int i = 1; i <= cuantos; ++i) {
            PonerCierre(1000 * i);
        }
        motor.Confirmar();
    }
    void Poner(const FilaHistorial& f) {
        motor.Ejecutar(u"INSERT INTO procesados (idCierre,cobrado,devuelto,importeVenta,estado,"
                       "terminal,id1,formapago,error,fechaZV,vendedor) VALUES "
                       "(?,?,?,?,?,?,?,?,?,?,?)"_s,
                       {f.idCierre, f.cobrado, f.devuelto, f.importeVenta, f.estado, f.terminal,
                        f.id1, f.formapago, f.error, f.fechaZV, f.vendedor});
    }
    static QStringList FilaDe(const Rejilla& rejilla, int fila) {
        QStringList celdas;
        for (int columna = 0; columna < rejilla.Columnas(); ++columna) {
            celdas << rejilla.Texto(fila, columna);
        }
        return celdas;
    }
    static QStringList ColumnaDe(const Rejilla& rejilla, int columna) {
        QStringList celdas;
        for (int fila = 1; fila < rejilla.Filas(); ++fila) {
            celdas << rejilla.Texto(fila, columna);
        }
        return celdas;
    }
    QStringList Cierres() { return ColumnaDe(historial.grdCierres(), ColumnaCierres::IdCierre); }
    QStringList Conceptos() { return ColumnaDe(historial.grdHis(), ColumnaHis::Concepto); }
    QStringList Saldos() { return ColumnaDe(historial.grdHis(), ColumnaHis::SaldoZV); }
    int CuentaCierres() {
        return motor.Consultar(u"SELECT count(*) FROM cierres"_s).front().LeerLong(0);
    }

    ImpresoraMemoria impresora;
    Historial historial{entorno, impresora};
};

} // namespace zv::test

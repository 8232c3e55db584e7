// A bench for the registers: rows of every kind, whoever has filed them.
#pragma once

#include "registers/OperacionesListado.h"
#include "support/BancoTill.h"

namespace zv::test {

// A row of procesados; a column without a value is Null.
struct FilaRegistro {
    QVariant fechaZV = u"2026-03-14 09:05:03"_s;
    QVariant importeVenta = 1250;
    QVariant cobrado = 0;
    QVariant devuelto = 0;
    QVariant estado = u"OK"_s;
    QVariant id1 = u"1001"_s;
    QVariant id2 = QString();
    QVariant terminal = u"TPV1"_s;
    QVariant vendedor = u"Ana"_s;
    QVariant formapago = u"EFECTIVO"_s;
    QVariant error = QString();
    QVariant idCierre = 0;
    QVariant usuario = u"LUIS"_s;
};

class BancoListado : public BancoTill {
  protected:
    void Poner(const FilaRegistro& f) {
        motor.Ejecutar(u"INSERT INTO procesados (fechaZV,importeVenta,cobrado,devuelto,estado,id1,"
                       "id2,terminal,vendedor,formapago,error,idCierre,usuario) VALUES "
                       "(?,?,?,?,?,?,?,?,?,?,?,?,?)"_s,
                       {f.fechaZV, f.importeVenta, f.cobrado, f.devuelto, f.estado, f.id1, f.id2,
                        f.terminal, f.vendedor, f.formapago, f.error, f.idCierre, f.usuario});
    }
    void PonerIncidencias(int cuantas) {
        motor.Comenzar();
        for (int i = 0; i < cuantas; ++i) {
            Poner({.importeVenta = 100 + i, .estado = u"ERROR"_s, .id1 = QString::number(i + 1)});
        }
        motor.Confirmar();
    }
    void PonerAccesos(int cuantos) {
        motor.Comenzar();
        for (int i = 0; i < cuantos; ++i) {
            motor.Ejecutar(
                u"INSERT INTO Accesos (Fecha,usuario,lugar) VALUES (?,?,?)"_s,
                {u"2026-03-14 18:04:11"_s, u"ANA"_s, i % 2 == 0 ? u"authCaja"_s : u"authPago"_s});
        }
        motor.Confirmar();
    }
    QStringList FilaDe(int fila) const {
        QStringList celdas;
        for (int columna = 0; columna < listado.grdZV().Columnas(); ++columna) {
            celdas << listado.grdZV().Texto(fila, columna);
        }
        return celdas;
    }
    // Texts of a column, the title first.
    QStringList Columna(int columna) const {
        QStringList celdas;
        for (int fila = 0; fila < listado.grdZV().Filas(); ++fila) {
            celdas << listado.grdZV().Texto(fila, columna);
        }
        return celdas;
    }
    const EstadoListado& E() const { return listado.Estado(); }
    // The only value of a query.
    QVariant Valor(const QString& sql) { return motor.Consultar(sql).front().Valor(0); }
    QString EstadosYCierres() {
        QStringList filas;
        for (const Row& fila :
             motor.Consultar(u"SELECT estado,idCierre FROM procesados ORDER BY idZV"_s)) {
            filas << fila.LeerTexto(0) + u' ' + fila.Valor(1).toString();
        }
        return filas.join(u';');
    }

    Listado listado{entorno};
    OperacionesListado operaciones{listado};
};

} // namespace zv::test

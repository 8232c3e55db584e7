// The cash office as a screen sees it: rows of every kind, and the device's content in round sums.
#pragma once

#include "BancoOficina.h"

namespace zv::test {

// A row of procesados; a column without a value is Null.
struct FilaProcesada {
    QVariant fechaZV = u"2026-03-14 09:05:03"_s;
    QVariant importeVenta = 0;
    QVariant cobrado = 0;
    QVariant devuelto = 0;
    QVariant estado = u"OK"_s;
    QVariant id1 = u"T1"_s;
    QVariant terminal = u"TPV1"_s;
    QVariant vendedor = u"Ana"_s;
    QVariant formapago = QString();
    QVariant error = QString();
    QVariant idCierre = 0;
};

class BancoCaja : public BancoOficina {
  protected:
    // With 42,10 in coins and 350,00 in notes in the recycler, 12,00 and 860,00 in the boxes.
    void Conectar() {
        PonerNiveles(42, 7, 12, 43);
        ConectarCon(126410);
        log.Toma();
    }
    // Pieces of 1,00 and 50,00 in the recycler, of 1,00 and 20,00 in the boxes; ten coins of 0,01
    // in the recycler.
    void PonerNiveles(int monedas, int billetes, int cajonMonedas, int cajonBilletes) {
        cliente.PonerNiveles(2, u"1,100,5000"_s, u"10,%1,%2"_s.arg(monedas).arg(billetes));
        cliente.PonerNiveles(3, u"100,2000"_s, u"%1,%2"_s.arg(cajonMonedas).arg(cajonBilletes));
    }
    void Poner(const FilaProcesada& fila) {
        motor.Ejecutar(u"INSERT INTO procesados (fechaZV,importeVenta,cobrado,devuelto,estado,id1,"
                       "terminal,vendedor,formapago,error,idCierre) VALUES "
                       "(?,?,?,?,?,?,?,?,?,?,?)"_s,
                       {fila.fechaZV, fila.importeVenta, fila.cobrado, fila.devuelto, fila.estado,
                        fila.id1, fila.terminal, fila.vendedor, fila.formapago, fila.error,
                        fila.idCierre});
    }
    void PonerVentas(int cuantas) {
        motor.Comenzar();
        for (int i = 0; i < cuantas; ++i) {
            Poner({.importeVenta = 100 + i, .cobrado = 100 + i});
        }
        motor.Confirmar();
    }
    void EsperaSinConexion() {
        dialogos.EsperaMensaje(u"Zorvex"_s, u"No hay conexión con Zorvex"_s, Respuesta::Aceptar,
                               EstiloMensaje::Aceptar);
    }
    QStringList FilaDe(int fila) const {
        QStringList celdas;
        for (int columna = 0; columna < caja.grdZV().Columnas(); ++columna) {
            celdas << caja.grdZV().Texto(fila, columna);
        }
        return celdas;
    }
    const EstadoCaja& E() const { return caja.Estado(); }
};

} // namespace zv::test

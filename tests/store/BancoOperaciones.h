// The record operations on a real database, with a clock that stands still and a signature that
// the test decides.
#pragma once

#include "platform/StringLiterals.h"
#include "store/OperacionesRegistro.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/FixedClock.h"
#include "support/GanchoFallos.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest.h>

namespace zv::test {

struct FirmaFija final : Firma {
    bool UsuarioFast() const override { return fast; }
    QString GetNom() const override { return nombre; }
    bool fast = false;
    QString nombre = u"ana"_s;
};

class BancoOperaciones : public testing::Test {
  protected:
    using Kind = Statement::Kind;

    qint32 PonerFila(const QString& columnas, const QString& valores) {
        motor.Ejecutar(u"INSERT INTO cola (%1) VALUES (%2)"_s.arg(columnas, valores));
        return motor.Consultar(u"SELECT max(idZV) FROM cola"_s).at(0).LeerLong(0);
    }
    // A whole row as a point of sale writes it.
    qint32 PonerVenta() {
        return PonerFila(u"fecha,importe,id1,id2,idcaja,terminal,vendedor,formapago,creditoError"_s,
                         u"'2026-01-02 03:04:05',1000,'T1','R2',3,'term','vend','efec',0"_s);
    }
    Row Unica(const QString& tabla) {
        const auto filas = motor.Consultar(u"SELECT * FROM "_s + tabla);
        EXPECT_EQ(filas.size(), 1u);
        return filas.at(0);
    }
    static RegistroProcesado UnRegistro() {
        RegistroProcesado r;
        r.fechaVenta = QDateTime(QDate(2026, 3, 1), QTime(9, 30));
        r.importeVenta = 1250;
        r.cobrado = 2000;
        r.devuelto = 750;
        r.estado = u"OK"_s;
        r.venta = Venta();
        r.saldoZV = 123456;
        r.error = u"concepto"_s;
        r.idcola = 9;
        return r;
    }
    static DatosVenta Venta() { return {u"T1"_s, u"R2"_s, 3, u"term"_s, u"vend"_s, u"efec"_s}; }
    static QDateTime Fecha() { return {QDate(2026, 3, 1), QTime(9, 30)}; }

    BaseDeDatosTemporal base;
    DatabaseEngine& motor = base.Database();
    LogMemoria log;
    DialogosGuion dialogos;
    FirmaFija firma;
    quint8 multiplicador = 100;
    Importes importes{FormatoRegional(u"es_ES"_s), [this] { return multiplicador; }};
    FixedClock reloj{QDateTime(QDate(2026, 3, 14), QTime(18, 4, 11))};
    OperacionesRegistro ops{motor, log, dialogos, firma, importes, reloj};
};

} // namespace zv::test

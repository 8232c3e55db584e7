// The record operations on a real database, with a clock that stands still and a signature that
// the test decides.
#pragma once

#include "store/OperacionesRegistro.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/GanchoFallos.h"
#include "support/ImprimeQt.h"
#include "support/RelojFijo.h"

#include <gtest/gtest.h>

namespace zv::test {

struct FirmaFija final : Firma {
    bool UsuarioFast() const override { return fast; }
    QString GetNom() const override { return nombre; }
    bool fast = false;
    QString nombre = QStringLiteral("ana");
};

class BancoOperaciones : public testing::Test {
  protected:
    using Clase = Sentencia::Clase;

    qint32 PonerFila(const QString& columnas, const QString& valores) {
        motor.Ejecutar(QStringLiteral("INSERT INTO cola (%1) VALUES (%2)").arg(columnas, valores));
        return motor.Consultar(QStringLiteral("SELECT max(idZV) FROM cola")).at(0).LeerLong(0);
    }
    // A whole row as a point of sale writes it.
    qint32 PonerVenta() {
        return PonerFila(
            QStringLiteral("fecha,importe,id1,id2,idcaja,terminal,vendedor,formapago,creditoError"),
            QStringLiteral("'2026-01-02 03:04:05',1000,'T1','R2',3,'term','vend','efec',0"));
    }
    Fila Unica(const QString& tabla) {
        const auto filas = motor.Consultar(QStringLiteral("SELECT * FROM ") + tabla);
        EXPECT_EQ(filas.size(), 1u);
        return filas.at(0);
    }
    static RegistroProcesado Registro() {
        RegistroProcesado r;
        r.fechaVenta = QDateTime(QDate(2026, 3, 1), QTime(9, 30));
        r.importeVenta = 1250;
        r.cobrado = 2000;
        r.devuelto = 750;
        r.estado = QStringLiteral("OK");
        r.venta = Venta();
        r.saldoZV = 123456;
        r.error = QStringLiteral("concepto");
        r.idcola = 9;
        return r;
    }
    static DatosVenta Venta() {
        return {QStringLiteral("T1"),   QStringLiteral("R2"),   3,
                QStringLiteral("term"), QStringLiteral("vend"), QStringLiteral("efec")};
    }
    static QDateTime Fecha() { return {QDate(2026, 3, 1), QTime(9, 30)}; }

    BaseDeDatosTemporal base;
    MotorBD& motor = base.Motor();
    LogMemoria log;
    DialogosGuion dialogos;
    FirmaFija firma;
    quint8 multiplicador = 100;
    Importes importes{FormatoRegional(QStringLiteral("es_ES")), [this] { return multiplicador; }};
    RelojFijo reloj{QDateTime(QDate(2026, 3, 14), QTime(18, 4, 11))};
    OperacionesRegistro ops{motor, log, dialogos, firma, importes, reloj};
};

} // namespace zv::test

// What the tests of transactions share: a database, and what another program does and sees.
#pragma once

#include "platform/StringLiterals.h"
#include "support/BaseDeDatosTemporal.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace zv::test {

class DosConexiones : public testing::Test {
  protected:
    static void Insertar(DatabaseEngine& motor, int importe) {
        motor.Ejecutar(u"INSERT INTO cola (importe) VALUES (?)"_s, {importe});
    }
    void Insertar(int importe) { Insertar(motor, importe); }
    // Amounts that another program sees.
    QString Guardado() {
        QStringList importes;
        for (const Row& fila : otro->Consultar(u"SELECT importe FROM cola ORDER BY importe"_s)) {
            importes.append(fila.LeerTexto(0));
        }
        return importes.join(QLatin1Char(','));
    }

    BaseDeDatosTemporal base;
    DatabaseEngine& motor = base.Database();
    std::unique_ptr<SqliteEngine> otro = base.Otro();
};

} // namespace zv::test

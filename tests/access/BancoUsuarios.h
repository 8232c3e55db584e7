// A database with users in it, and the object that guards the places of the program.
#pragma once

#include "access/Seguretat.h"
#include "access/Usuarios.h"
#include "platform/StringLiterals.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/FixedClock.h"
#include "support/GanchoFallos.h"
#include "support/ImprimeQt.h"
#include "support/LoginGuion.h"
#include "support/NumeroError.h"

#include <gtest/gtest.h>

namespace zv::test {

class BancoUsuarios : public testing::Test {
  protected:
    using Kind = Statement::Kind;

    // As another program does it: nobody is told.
    void Poner(const QString& nombre, const QString& password, const QVariant& rol) {
        motor.Ejecutar(u"INSERT INTO Usuarios (nombre,password,rol) VALUES (?,?,?)"_s,
                       {nombre, password, rol});
    }
    // Every user as "ANA/1234/0", in the order of their keys.
    QStringList Tabla() {
        QStringList filas;
        for (const Row& fila : motor.Consultar(u"SELECT * FROM Usuarios ORDER BY idUser"_s)) {
            filas << fila.LeerTexto(u"nombre"_s) + u'/' + fila.LeerTexto(u"password"_s) + u'/' +
                         QString::number(fila.LeerLong(u"rol"_s));
        }
        return filas;
    }
    // Every entry as "ANA-authCaja".
    QStringList Accesos() {
        QStringList filas;
        for (const Row& fila : motor.Consultar(u"SELECT * FROM Accesos ORDER BY idAcceso"_s)) {
            filas << fila.LeerTexto(u"usuario"_s) + u'-' + fila.LeerTexto(u"lugar"_s);
        }
        return filas;
    }

    BaseDeDatosTemporal base;
    DatabaseEngine& motor = base.Database();
    LogMemoria log;
    DialogosGuion dialogos;
    Textos textos{base.Carpeta()};
    FixedClock reloj{QDateTime(QDate(2026, 3, 14), QTime(18, 4, 11))};
    LoginGuion login;
    Seguretat seguretat{motor, log, dialogos, textos, reloj};
    Usuarios usuarios{motor, dialogos, textos};
};

} // namespace zv::test

// Opening and creating the file: what is taken, what is refused, and that a refused file keeps
// every byte.
#include "support/BaseDeDatosTemporal.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"
#include "support/NumeroError.h"
#include "support/SinPrivilegios.h"

#include <QFileInfo>
#include <QProcess>

#include <gmock/gmock.h>

namespace zv {
namespace {

using test::BaseDeDatosTemporal;
using test::CarpetaTemporal;
using test::NumeroError;
using test::SinPrivilegios;
using testing::HasSubstr;

QString Cadena(const QString& ruta) {
    return CadenaConexion(QStringLiteral("MDB"), {}, ruta, {}, {});
}

class AperturaTest : public testing::Test {
  protected:
    // Opens a file with these bytes; what is refused must stay as it was, with nothing beside it.
    ErrorEjecucion Rechazo(const QByteArray& bytes) {
        carpeta.Pon(QStringLiteral("a.mdb"), bytes);
        const QDateTime antes = QFileInfo(carpeta.Ruta(QStringLiteral("a.mdb"))).lastModified();
        std::optional<ErrorEjecucion> fallo;
        try {
            MotorSQLite motor;
            motor.Abrir(Cadena(carpeta.Ruta(QStringLiteral("a.mdb"))));
            ADD_FAILURE() << "opened";
        } catch (const ErrorEjecucion& e) {
            fallo = e;
        }
        EXPECT_TRUE(carpeta.Lee(QStringLiteral("a.mdb")) == bytes);
        EXPECT_TRUE(QFileInfo(carpeta.Ruta(QStringLiteral("a.mdb"))).lastModified() == antes);
        EXPECT_EQ(carpeta.Entradas(), QStringList{QStringLiteral("a.mdb")});
        return fallo.value_or(ErrorEjecucion(0, {}));
    }

    CarpetaTemporal carpeta;
};

TEST_F(AperturaTest, AnAccessFileIsNamedForWhatItIs) {
    QByteArray jet("\x00\x01\x00\x00Standard Jet DB\x00", 20);
    jet.append(QByteArray(4076, '\x5a'));
    const ErrorEjecucion fallo = Rechazo(jet);
    EXPECT_EQ(fallo.Numero(), 26);
    EXPECT_THAT(fallo.Descripcion().toStdString(), HasSubstr("Access (Standard Jet DB)"));

    QByteArray ace("\x00\x01\x00\x00Standard ACE DB\x00", 20);
    ace.append(QByteArray(4076, '\x5a'));
    EXPECT_THAT(Rechazo(ace).Descripcion().toStdString(), HasSubstr("Access (Standard ACE DB)"));
}

TEST_F(AperturaTest, GarbageIsNoDatabase) {
    for (const QByteArray& bytes : {QByteArray("x"), QByteArray("SQLite format 2 and more of it"),
                                    QByteArray(9000, '\0'), QByteArray("SQLite format 3")}) {
        const ErrorEjecucion fallo = Rechazo(bytes);
        EXPECT_EQ(fallo.Numero(), 26);
        EXPECT_THAT(fallo.Descripcion().toStdString(), HasSubstr("no es una base de datos SQLite"));
    }
}

TEST_F(AperturaTest, AZeroByteFileIsANewDatabase) {
    carpeta.Pon(QStringLiteral("a.mdb"), {});
    MotorSQLite motor;
    motor.Abrir(Cadena(carpeta.Ruta(QStringLiteral("a.mdb"))));
    EXPECT_TRUE(motor.Tablas().isEmpty());
    motor.Ejecutar(QStringLiteral("CREATE TABLE t (a)"));
    EXPECT_EQ(motor.Tablas(), QStringList{QStringLiteral("t")});
}

TEST_F(AperturaTest, OpeningNeverCreatesAFile) {
    MotorSQLite motor;
    EXPECT_EQ(NumeroError([&] { motor.Abrir(Cadena(carpeta.Ruta(QStringLiteral("no.mdb")))); }),
              14);
    EXPECT_FALSE(motor.Abierta());
    EXPECT_FALSE(carpeta.Esta(QStringLiteral("no.mdb")));
    EXPECT_NE(NumeroError([&] { motor.Abrir(Cadena(carpeta.Ruta())); }), 0); // a folder
}

TEST_F(AperturaTest, CreatingRefusesAFileThatStandsThere) {
    carpeta.Pon(QStringLiteral("a.mdb"), "mine");
    MotorSQLite motor;
    EXPECT_EQ(NumeroError([&] { motor.Crear(Cadena(carpeta.Ruta(QStringLiteral("a.mdb")))); }), 75);
    EXPECT_EQ(carpeta.Lee(QStringLiteral("a.mdb")), QByteArray("mine"));
}

TEST_F(AperturaTest, ATextWithoutAFileIsRefused) {
    MotorSQLite motor;
    EXPECT_EQ(NumeroError([&] { motor.Abrir(QStringLiteral("Provider=x;")); }), 1);
}

TEST_F(AperturaTest, StrangeCharactersInThePathAreItsOwn) {
    const QString nombre = QStringLiteral("caja #1; 100% ¿ñ? & co.mdb");
    MotorSQLite motor;
    motor.Crear(Cadena(carpeta.Ruta(nombre)));
    motor.Ejecutar(QStringLiteral("CREATE TABLE t (a)"));
    motor.Cerrar();
    EXPECT_EQ(carpeta.Entradas(), QStringList{nombre});
    motor.Abrir(Cadena(carpeta.Ruta(nombre)));
    EXPECT_EQ(motor.Tablas(), QStringList{QStringLiteral("t")});
}

TEST_F(AperturaTest, AReadOnlyFileIsRefusedBeforeMoneyIsTaken) {
    BaseDeDatosTemporal base;
    base.Motor().Cerrar();
    ASSERT_TRUE(QFile::setPermissions(base.Ruta(), QFile::ReadOwner | QFile::ReadUser |
                                                       QFile::ReadGroup | QFile::ReadOther));
    ASSERT_TRUE(QFile::setPermissions(base.Carpeta(), QFile::Permissions(0x7777)));
    const SinPrivilegios nadie;
    EXPECT_EQ(NumeroError([&] { base.Motor().Abrir(base.Cadena()); }), 8);
    EXPECT_FALSE(base.Motor().Abierta());
}

TEST_F(AperturaTest, TheFileIsKeptInWalModeWithFullSynchronisation) {
    BaseDeDatosTemporal base;
    EXPECT_EQ(base.Motor().Consultar(QStringLiteral("PRAGMA journal_mode")).at(0).LeerTexto(0),
              QStringLiteral("wal"));
    EXPECT_EQ(base.Motor().Consultar(QStringLiteral("PRAGMA synchronous")).at(0).LeerLong(0), 2);
}

TEST_F(AperturaTest, LookingAtAnOpenFileKeepsTheLocksOfItsOtherConnections) {
    // POSIX drops a process's locks when any descriptor of the file closes. If opening a second
    // time did that, a third program that leaves would think itself the last one and take the
    // journal away.
    BaseDeDatosTemporal base;
    base.Motor().Ejecutar(QStringLiteral("INSERT INTO cola (importe) VALUES (1)"));
    {
        const std::unique_ptr<MotorSQLite> segundo = base.Otro();
        EXPECT_EQ(segundo->Consultar(QStringLiteral("SELECT * FROM cola")).size(), 1u);
    }
    QProcess tercero;
    tercero.start(QStringLiteral("sqlite3"),
                  {base.Ruta(), QStringLiteral("SELECT count(*) FROM cola")});
    ASSERT_TRUE(tercero.waitForFinished());
    ASSERT_EQ(tercero.readAllStandardOutput().trimmed(), QByteArray("1"));
    EXPECT_TRUE(QFile::exists(base.Ruta() + QStringLiteral("-wal")));
    base.Motor().Ejecutar(QStringLiteral("INSERT INTO cola (importe) VALUES (2)"));
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 2);
}

TEST_F(AperturaTest, EveryCallOnAClosedEngineRaises3704) {
    MotorSQLite motor;
    EXPECT_FALSE(motor.Abierta());
    EXPECT_EQ(NumeroError([&] { motor.Consultar(QStringLiteral("SELECT 1")); }), 3704);
    EXPECT_EQ(NumeroError([&] { motor.Ejecutar(QStringLiteral("DELETE FROM cola")); }), 3704);
    EXPECT_EQ(NumeroError([&] { motor.Tablas(); }), 3704);
    EXPECT_EQ(NumeroError([&] { motor.AbrirTabla(QStringLiteral("cola")); }), 3704);
    EXPECT_EQ(NumeroError([&] { motor.Comenzar(); }), 3704);
    EXPECT_EQ(NumeroError([&] { motor.MarcaCambios(); }), 3704);
    motor.Cerrar();
}

TEST_F(AperturaTest, ClosingDropsWhatWasNotCommitted) {
    BaseDeDatosTemporal base;
    base.Motor().Comenzar();
    base.Motor().Ejecutar(QStringLiteral("INSERT INTO cola (importe) VALUES (1)"));
    base.Motor().Cerrar();
    EXPECT_EQ(base.Motor().Nivel(), 0);
    base.Motor().Abrir(base.Cadena());
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
}

TEST(RutaDeCadenaTest, TheFileIsTheDataSource) {
    EXPECT_EQ(RutaDeCadena(QStringLiteral("Provider=x;Data Source=/a/b.mdb;")),
              QStringLiteral("/a/b.mdb"));
    EXPECT_EQ(RutaDeCadena(QStringLiteral("data source=/a/b.mdb")), QStringLiteral("/a/b.mdb"));
    EXPECT_EQ(RutaDeCadena(QStringLiteral("Data Source=/a;b/c.mdb;User Id=u;Password=p;")),
              QStringLiteral("/a;b/c.mdb"));
    EXPECT_EQ(RutaDeCadena(QStringLiteral("Data Source=/c.mdb;Jet OLEDB:Database Password=p;")),
              QStringLiteral("/c.mdb"));
    EXPECT_EQ(RutaDeCadena(QStringLiteral("DSN=x;")), QString());
}

} // namespace
} // namespace zv

// Opening and creating the file: what is taken, what is refused, and that a refused file keeps
// every byte.
#include "platform/StringLiterals.h"
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
    return CadenaConexion(u"MDB"_s, {}, ruta, {}, {});
}

class AperturaTest : public testing::Test {
  protected:
    // Opens a file with these bytes; what is refused must stay as it was, with nothing beside it.
    ErrorEjecucion Rechazo(const QByteArray& bytes) {
        carpeta.Pon(u"a.mdb"_s, bytes);
        const QDateTime antes = QFileInfo(carpeta.Ruta(u"a.mdb"_s)).lastModified();
        std::optional<ErrorEjecucion> fallo;
        try {
            SqliteEngine motor;
            motor.Abrir(Cadena(carpeta.Ruta(u"a.mdb"_s)));
            ADD_FAILURE() << "opened";
        } catch (const ErrorEjecucion& e) {
            fallo = e;
        }
        EXPECT_TRUE(carpeta.Lee(u"a.mdb"_s) == bytes);
        EXPECT_TRUE(QFileInfo(carpeta.Ruta(u"a.mdb"_s)).lastModified() == antes);
        EXPECT_EQ(carpeta.Entradas(), QStringList{u"a.mdb"_s});
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
    carpeta.Pon(u"a.mdb"_s, {});
    SqliteEngine motor;
    motor.Abrir(Cadena(carpeta.Ruta(u"a.mdb"_s)));
    EXPECT_TRUE(motor.Tablas().isEmpty());
    motor.Ejecutar(u"CREATE TABLE t (a)"_s);
    EXPECT_EQ(motor.Tablas(), QStringList{u"t"_s});
}

TEST_F(AperturaTest, OpeningNeverCreatesAFile) {
    SqliteEngine motor;
    EXPECT_EQ(NumeroError([&] { motor.Abrir(Cadena(carpeta.Ruta(u"no.mdb"_s))); }), 14);
    EXPECT_FALSE(motor.Abierta());
    EXPECT_FALSE(carpeta.Esta(u"no.mdb"_s));
    EXPECT_NE(NumeroError([&] { motor.Abrir(Cadena(carpeta.Ruta())); }), 0); // a folder
}

TEST_F(AperturaTest, CreatingRefusesAFileThatStandsThere) {
    carpeta.Pon(u"a.mdb"_s, "mine");
    SqliteEngine motor;
    EXPECT_EQ(NumeroError([&] { motor.Crear(Cadena(carpeta.Ruta(u"a.mdb"_s))); }), 75);
    EXPECT_EQ(carpeta.Lee(u"a.mdb"_s), QByteArray("mine"));
}

TEST_F(AperturaTest, ATextWithoutAFileIsRefused) {
    SqliteEngine motor;
    EXPECT_EQ(NumeroError([&] { motor.Abrir(u"Provider=x;"_s); }), 1);
}

TEST_F(AperturaTest, StrangeCharactersInThePathAreItsOwn) {
    const QString nombre = u"caja #1; 100% ¿ñ? & co.mdb"_s;
    SqliteEngine motor;
    motor.Crear(Cadena(carpeta.Ruta(nombre)));
    motor.Ejecutar(u"CREATE TABLE t (a)"_s);
    motor.Cerrar();
    EXPECT_EQ(carpeta.Entradas(), QStringList{nombre});
    motor.Abrir(Cadena(carpeta.Ruta(nombre)));
    EXPECT_EQ(motor.Tablas(), QStringList{u"t"_s});
}

TEST_F(AperturaTest, AReadOnlyFileIsRefusedBeforeMoneyIsTaken) {
    BaseDeDatosTemporal base;
    base.Database().Cerrar();
    ASSERT_TRUE(QFile::setPermissions(base.Ruta(), QFile::ReadOwner | QFile::ReadUser |
                                                       QFile::ReadGroup | QFile::ReadOther));
    ASSERT_TRUE(QFile::setPermissions(base.Carpeta(), QFile::Permissions(0x7777)));
    const SinPrivilegios nadie;
    EXPECT_EQ(NumeroError([&] { base.Database().Abrir(base.Cadena()); }), 8);
    EXPECT_FALSE(base.Database().Abierta());
}

TEST_F(AperturaTest, TheFileIsKeptInWalModeWithFullSynchronisation) {
    BaseDeDatosTemporal base;
    EXPECT_EQ(base.Database().Consultar(u"PRAGMA journal_mode"_s).at(0).LeerTexto(0), u"wal"_s);
    EXPECT_EQ(base.Database().Consultar(u"PRAGMA synchronous"_s).at(0).LeerLong(0), 2);
}

TEST_F(AperturaTest, LookingAtAnOpenFileKeepsTheLocksOfItsOtherConnections) {
    // POSIX drops a process's locks when any descriptor of the file closes. If opening a second
    // time did that, a third program that leaves would think itself the last one and take the
    // journal away.
    BaseDeDatosTemporal base;
    base.Database().Ejecutar(u"INSERT INTO cola (importe) VALUES (1)"_s);
    {
        const std::unique_ptr<SqliteEngine> segundo = base.Otro();
        EXPECT_EQ(segundo->Consultar(u"SELECT * FROM cola"_s).size(), 1u);
    }
    QProcess tercero;
    tercero.start(u"sqlite3"_s, {base.Ruta(), u"SELECT count(*) FROM cola"_s});
    ASSERT_TRUE(tercero.waitForFinished());
    ASSERT_EQ(tercero.readAllStandardOutput().trimmed(), QByteArray("1"));
    EXPECT_TRUE(QFile::exists(base.Ruta() + u"-wal"_s));
    base.Database().Ejecutar(u"INSERT INTO cola (importe) VALUES (2)"_s);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 2);
}

TEST_F(AperturaTest, EveryCallOnAClosedEngineRaises3704) {
    SqliteEngine motor;
    EXPECT_FALSE(motor.Abierta());
    EXPECT_EQ(NumeroError([&] { motor.Consultar(u"SELECT 1"_s); }), 3704);
    EXPECT_EQ(NumeroError([&] { motor.Ejecutar(u"DELETE FROM cola"_s); }), 3704);
    EXPECT_EQ(NumeroError([&] { motor.Tablas(); }), 3704);
    EXPECT_EQ(NumeroError([&] { motor.AbrirTabla(u"cola"_s); }), 3704);
    EXPECT_EQ(NumeroError([&] { motor.Comenzar(); }), 3704);
    EXPECT_EQ(NumeroError([&] { motor.ChangeStamp(); }), 3704);
    motor.Cerrar();
}

TEST_F(AperturaTest, ClosingDropsWhatWasNotCommitted) {
    BaseDeDatosTemporal base;
    base.Database().Comenzar();
    base.Database().Ejecutar(u"INSERT INTO cola (importe) VALUES (1)"_s);
    base.Database().Cerrar();
    EXPECT_EQ(base.Database().Nivel(), 0);
    base.Database().Abrir(base.Cadena());
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
}

TEST(RutaDeCadenaTest, TheFileIsTheDataSource) {
    EXPECT_EQ(RutaDeCadena(u"Provider=x;Data Source=/a/b.mdb;"_s), u"/a/b.mdb"_s);
    EXPECT_EQ(RutaDeCadena(u"data source=/a/b.mdb"_s), u"/a/b.mdb"_s);
    EXPECT_EQ(RutaDeCadena(u"Data Source=/a;b/c.mdb;User Id=u;Password=p;"_s), u"/a;b/c.mdb"_s);
    EXPECT_EQ(RutaDeCadena(u"Data Source=/c.mdb;Jet OLEDB:Database Password=p;"_s), u"/c.mdb"_s);
    EXPECT_EQ(RutaDeCadena(u"DSN=x;"_s), QString());
}

} // namespace
} // namespace zv

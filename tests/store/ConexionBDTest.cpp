// Connection texts, and the opening of the one connection.
#include "store/ConexionBD.h"

#include "platform/StringLiterals.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/CarpetaTemporal.h"
#include "support/GanchoFallos.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using test::BaseDeDatosTemporal;
using test::CarpetaTemporal;
using test::DialogosGuion;
using test::GanchoFallos;
using test::LogMemoria;

struct CasoCadena {
    const char* tipo;
    const char* ruta;
    const char* base;
    const char* usuario;
    const char* clave;
    const char* texto;
};
void PrintTo(const CasoCadena& caso, std::ostream* salida) {
    *salida << caso.texto;
}

class CadenaConexionTest : public testing::TestWithParam<CasoCadena> {};

TEST_P(CadenaConexionTest, Builds) {
    const CasoCadena& c = GetParam();
    EXPECT_EQ(CadenaConexion(QString::fromUtf8(c.tipo), QString::fromUtf8(c.ruta),
                             QString::fromUtf8(c.base), QString::fromUtf8(c.usuario),
                             QString::fromUtf8(c.clave)),
              QString::fromUtf8(c.texto));
}

INSTANTIATE_TEST_SUITE_P(
    Mdb, CadenaConexionTest,
    testing::Values(CasoCadena{"MDB", "", "/app/ZVMonito2.mdb", "", "",
                               "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=/app/ZVMonito2.mdb;"},
                    CasoCadena{"MDB", "C:\\x", "a.mdb", "u", "p",
                               "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\x\\a.mdb;User "
                               "Id=u;Password=p;"},
                    CasoCadena{"MDB", "C:\\x", "a\\", "", "",
                               "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\xa\\;"},
                    CasoCadena{
                        "MDB", "C:\\x\\", "a.mdb", "u", "",
                        "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\x\\\\a.mdb;User Id=u;"}));

INSTANTIATE_TEST_SUITE_P(
    Accdb, CadenaConexionTest,
    testing::Values(CasoCadena{"ACCDB", "C:\\x", "a.accdb", "", "",
                               "Provider=Microsoft.ACE.OLEDB.12.0;Data Source=C:\\x\\a.accdb;"},
                    CasoCadena{"ACCDB", "C:\\x\\", "a.accdb", "u", "p",
                               "Provider=Microsoft.ACE.OLEDB.12.0;Data Source=C:\\x\\\\a.accdb;Jet "
                               "OLEDB:Database Password=p;"},
                    CasoCadena{"ACCDB", "", "a.accdb", "", "",
                               "Provider=Microsoft.ACE.OLEDB.12.0;Data Source=\\a.accdb;"},
                    CasoCadena{"ACCDB", "C:\\x", "a\\", "", "",
                               "Provider=Microsoft.ACE.OLEDB.12.0;Data Source=C:\\xa\\;"}));

INSTANTIATE_TEST_SUITE_P(
    Otras, CadenaConexionTest,
    testing::Values(
        CasoCadena{"FIREBIRD", "srv:/d", "a.fdb", "u", "p",
                   "DRIVER=Firebird/InterBase(r) driver; UID=u; PWD=p; "
                   "DBNAME=srv:/d\\a.fdb;READONLY=YES;NOWAIT=YES;DIALECT=1"},
        CasoCadena{"FIREBIRD", "srv:/d/", "a.fdb", "u", "p",
                   "DRIVER=Firebird/InterBase(r) driver; UID=u; PWD=p; "
                   "DBNAME=srv:/d/a.fdb;READONLY=YES;NOWAIT=YES;DIALECT=1"},
        CasoCadena{"FIREBIRD", "d\\", "a.fdb", "", "",
                   "DRIVER=Firebird/InterBase(r) driver; UID=; PWD=; "
                   "DBNAME=d\\a.fdb;READONLY=YES;NOWAIT=YES;DIALECT=1"},
        CasoCadena{"FOXPRO", "r", "b", "u", "p",
                   "Provider=vfpoledb;Data Source=r\\b;Collating Sequence=general;"},
        CasoCadena{"PARADOX", "r", "b", "u", "p",
                   "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=r\\b;Extended Properties=Paradox "
                   "5.x;"},
        CasoCadena{"ODBC", "r", "b", "u", "p", "DSN=r;Uid=u;Pwd=p;"},
        CasoCadena{"SQLSERVER", "r", "b", "u", "p",
                   "Provider=sqloledb;Data Source=r;Initial Catalog=b;User ID=u;Password=p;"},
        CasoCadena{"MySQL", "r", "b", "u", "p",
                   "Provider=MySQL;Server=r;Database=b;;Uid=u;Password=p"},
        CasoCadena{"mdb", "r", "b", "", "", "Provider=mdb;Server=r;Database=b;;Uid=;Password="}));

class ConexionBDTest : public testing::Test {
  protected:
    void EsperaFracaso() {
        dialogos.EsperaMensaje(u"Error de configuración"_s,
                               u"Error al crear el fichero MDB, el archivo ya esta en uso"_s);
    }
    void CrearFichero() { CrearBaseDatos(catalogo, carpeta.Ruta(), log, dialogos, textos); }

    CarpetaTemporal carpeta;
    LogMemoria log;
    DialogosGuion dialogos;
    Textos textos{carpeta.Ruta()};
    SqliteEngine catalogo;
    SqliteEngine motor;
    ConexionBD conexion{motor, carpeta.Ruta(), log, dialogos, textos};
};

TEST_F(ConexionBDTest, OpensTheFileOfTheApplicationFolder) {
    CrearFichero();
    EXPECT_TRUE(conexion.ConectarBD());
    EXPECT_TRUE(motor.Abierta());
    EXPECT_EQ(motor.Tablas().size(), 9);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(ConexionBDTest, ASecondCallTouchesNothing) {
    CrearFichero();
    ASSERT_TRUE(conexion.ConectarBD());
    GanchoFallos gancho(motor);
    EXPECT_TRUE(conexion.ConectarBD());
    EXPECT_TRUE(gancho.vistas.empty());
}

TEST_F(ConexionBDTest, WithTheFileRemovedWhileOpenItIsStillOpen) {
    CrearFichero();
    ASSERT_TRUE(conexion.ConectarBD());
    ASSERT_TRUE(QFile::remove(conexion.RutaFichero()));
    EXPECT_TRUE(conexion.ConectarBD());
}

TEST_F(ConexionBDTest, AMissingFileIsToldAndLogged) {
    dialogos.EsperaMensaje(u"Error de configuración"_s,
                           u"No se encuentra la base de datos de ZVMonitor"_s);
    EXPECT_FALSE(conexion.ConectarBD());
    EXPECT_EQ(log.lineas,
              QStringList{u"No se encuentra el fichero de configuración de la aplicación"_s});
    EXPECT_FALSE(carpeta.Esta(u"ZVMonito2.mdb"_s));
    EXPECT_FALSE(motor.Abierta());
}

TEST_F(ConexionBDTest, AFailureToOpenIsToldAndLoggedWithTheConnectionText) {
    CrearFichero();
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Abrir, {}, 1, {5, u"database is locked"_s});
    EsperaFracaso();
    EXPECT_FALSE(conexion.ConectarBD());
    EXPECT_EQ(log.lineas, QStringList{u"ERROR_5 - database is locked: "
                                      "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=%1;"_s.arg(
                                          conexion.RutaFichero())});
    EXPECT_TRUE(conexion.ConectarBD());
}

TEST_F(ConexionBDTest, ForAFileThatIsNoDatabaseTheLogSaysWhatItIs) {
    carpeta.Pon(u"ZVMonito2.mdb"_s,
                QByteArray("\x00\x01\x00\x00Standard ACE DB\x00", 20) + QByteArray(4076, 'x'));
    EsperaFracaso();
    EXPECT_FALSE(conexion.ConectarBD());
    ASSERT_EQ(log.lineas.size(), 1);
    EXPECT_TRUE(log.lineas[0].startsWith(u"ERROR_26 - el fichero "_s));
    EXPECT_TRUE(log.lineas[0].contains(u"Access (Standard ACE DB)"_s));
}

TEST_F(ConexionBDTest, AnUnforeseenFailureIsLoggedAndAnswersNo) {
    log.fallosPendientes = 1;
    dialogos.EsperaMensaje(testing::_, u"No se encuentra la base de datos de ZVMonitor"_s);
    EXPECT_FALSE(conexion.ConectarBD());
    EXPECT_EQ(log.lineas, QStringList{u">>> Error conectarBDZV 75 - Error de acceso a la ruta o al "
                                      "archivo: "_s});
}

TEST_F(ConexionBDTest, TheMessageIsTranslated) {
    carpeta.Pon(u"RWLang.ini"_s, "[COMMON]\r\nerrorDeConfiguracion=Setup\r\nerrorMDB=In use\r\n");
    carpeta.Pon(u"ZVMonito2.mdb"_s, "x");
    dialogos.EsperaMensaje(u"Setup"_s, u"In use"_s);
    EXPECT_FALSE(conexion.ConectarBD());
}

} // namespace
} // namespace zv

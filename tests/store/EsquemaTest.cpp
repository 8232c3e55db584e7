// The walk that makes a new database and brings an old one up to date.
#include "store/Esquema.h"

#include "platform/StringLiterals.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/CarpetaTemporal.h"
#include "support/GanchoFallos.h"
#include "support/ImprimeQt.h"
#include "support/NumeroError.h"

#include <gmock/gmock.h>

namespace zv {
namespace {

using test::CarpetaTemporal;
using test::DialogosGuion;
using test::GanchoFallos;
using test::LogMemoria;
using test::NumeroError;
using testing::StartsWith;
using Kind = Statement::Kind;

class EsquemaTest : public testing::Test {
  protected:
    void Crear() { CrearBaseDatos(catalogo, carpeta.Ruta(), log, dialogos, textos); }
    void EsperaFracaso() {
        dialogos.EsperaMensaje(u"Error de configuración"_s,
                               u"Error al crear el fichero MDB, el archivo ya esta en uso"_s);
    }
    QString Ruta() const { return RutaBaseDatos(carpeta.Ruta()); }
    DatabaseEngine& Abierto() {
        if (!motor.Abierta()) {
            motor.Abrir(CadenaConexion(u"MDB"_s, {}, Ruta(), {}, {}));
        }
        return motor;
    }
    // A file of an older release, or of other hands.
    void Antigua(const QStringList& sentencias) {
        carpeta.Pon(u"ZVMonito2.mdb"_s, {});
        for (const QString& sql : sentencias) {
            Abierto().Ejecutar(sql);
        }
        motor.Cerrar();
    }
    QString SqlDe(const QString& nombre) {
        const auto filas =
            Abierto().Consultar(u"SELECT sql FROM sqlite_master WHERE name=?"_s, {nombre});
        return filas.empty() ? QString() : filas[0].LeerTexto(0);
    }
    QStringList Catalogo() {
        QStringList todo;
        for (const Row& fila : Abierto().Consultar(
                 u"SELECT type||' '||name||' '||coalesce(sql,'') FROM sqlite_master "
                 "ORDER BY 1"_s)) {
            todo.append(fila.LeerTexto(0));
        }
        return todo;
    }

    CarpetaTemporal carpeta;
    LogMemoria log;
    DialogosGuion dialogos;
    Textos textos{carpeta.Ruta()};
    SqliteEngine catalogo{{std::chrono::milliseconds(0)}};
    SqliteEngine motor{{std::chrono::milliseconds(0)}};
};

TEST_F(EsquemaTest, WithNoFileOneStartMakesEverything) {
    Crear();
    EXPECT_FALSE(catalogo.Abierta());
    EXPECT_TRUE(log.lineas.isEmpty());
    EXPECT_EQ(Abierto().Tablas(),
              QStringList({u"Usuarios"_s, u"Accesos"_s, u"Cola"_s, u"Procesados"_s, u"Cierres"_s,
                           u"v_cola_agrupar_id"_s, u"v_cola_grupos_id"_s,
                           u"v_cola_grupos_farmatic"_s, u"historial"_s}));
    const QString clave = u"PrimaryKey"_s;
    const QString id = u"id"_s;
    EXPECT_EQ(motor.Indices(u"usuarios"_s), QStringList({clave, u"nombre"_s}));
    EXPECT_EQ(motor.Indices(u"accesos"_s), QStringList({clave, u"usuario"_s, u"lugar"_s}));
    EXPECT_EQ(motor.Indices(u"cola"_s), QStringList({clave, id, u"idCaja"_s}));
    EXPECT_EQ(motor.Indices(u"procesados"_s), QStringList({clave, id, u"idcaja"_s}));
    EXPECT_EQ(motor.Indices(u"cierres"_s), QStringList({clave}));
    EXPECT_EQ(motor.Indices(u"historial"_s), QStringList({clave, id}));
    for (const QString& tabla : motor.Tablas()) {
        EXPECT_TRUE(motor.Consultar(u"SELECT * FROM "_s + tabla).empty());
    }
}

struct CasoTabla {
    const char* tabla;
    const char* columnas;
    const char* tipos;
};
void PrintTo(const CasoTabla& caso, std::ostream* salida) {
    *salida << caso.tabla;
}

class TablasTest : public EsquemaTest, public testing::WithParamInterface<CasoTabla> {};

TEST_P(TablasTest, ColumnsStandInTheirOrderWithTheirTypes) {
    Crear();
    const QString tabla = QString::fromLatin1(GetParam().tabla);
    EXPECT_EQ(Abierto().Columnas(tabla).join(QLatin1Char(' ')),
              QString::fromLatin1(GetParam().columnas));
    QStringList tipos;
    for (const Row& fila :
         motor.Consultar(u"SELECT type, pk FROM pragma_table_info(?)"_s, {tabla})) {
        tipos.append(fila.LeerTexto(0) + (fila.LeerBooleano(1) ? u"*"_s : QString()));
    }
    EXPECT_EQ(tipos.join(QLatin1Char(' ')), QString::fromLatin1(GetParam().tipos));
}

INSTANTIATE_TEST_SUITE_P(
    Todas, TablasTest,
    testing::Values(
        CasoTabla{"Usuarios", "idUser nombre password rol",
                  "INTEGER* VARCHAR(20) VARCHAR(40) INTEGER"},
        CasoTabla{"Accesos", "idAcceso fecha usuario lugar",
                  "INTEGER* DATETIME VARCHAR(50) VARCHAR(50)"},
        CasoTabla{"cola",
                  "idZV fecha importe id1 id2 idcaja terminal vendedor formapago creditoError "
                  "manual",
                  "INTEGER* DATETIME NUMERIC(19,4) VARCHAR(50) VARCHAR(50) INTEGER VARCHAR(50) "
                  "VARCHAR(50) VARCHAR(50) NUMERIC(19,4) BOOLEAN"},
        CasoTabla{"procesados",
                  "idZV fechaZV fechaVenta importeVenta cobrado devuelto saldoZV estado id1 id2 "
                  "idcaja terminal vendedor formapago error idCierre idcola usuario",
                  "INTEGER* DATETIME DATETIME NUMERIC(19,4) NUMERIC(19,4) NUMERIC(19,4) "
                  "NUMERIC(19,4) VARCHAR(20) VARCHAR(50) VARCHAR(50) INTEGER VARCHAR(50) "
                  "VARCHAR(50) VARCHAR(50) VARCHAR(255) INTEGER INTEGER VARCHAR(50)"},
        CasoTabla{"cierres",
                  "idCierre fecha saldoInicial cobros abonos ingresos pagos saldoZV importeCierre "
                  "cambioBilletes cambioMonedas cajonBilletes cajonMonedas",
                  "INTEGER* DATETIME NUMERIC(19,4) NUMERIC(19,4) NUMERIC(19,4) NUMERIC(19,4) "
                  "NUMERIC(19,4) NUMERIC(19,4) NUMERIC(19,4) NUMERIC(19,4) NUMERIC(19,4) "
                  "NUMERIC(19,4) NUMERIC(19,4)"},
        CasoTabla{"historial", "idHis id fecha", "INTEGER* VARCHAR(255) DATETIME"}));

TEST_F(EsquemaTest, UserNamesAreUniqueWhateverTheirCaseAndOtherIndexesAreNot) {
    Crear();
    const QString sql = u"INSERT INTO Usuarios (nombre) VALUES (?)"_s;
    Abierto().Ejecutar(sql, {u"ana"_s});
    EXPECT_EQ(NumeroError([&] { motor.Ejecutar(sql, {u"ANA"_s}); }), 2067);
    for (int i = 0; i < 2; ++i) {
        motor.Ejecutar(u"INSERT INTO cola (id1,id2,idcaja) VALUES ('a','b',1)"_s);
        motor.Ejecutar(u"INSERT INTO procesados (id1,idcaja) VALUES ('a',1)"_s);
        motor.Ejecutar(u"INSERT INTO Accesos (usuario,lugar) VALUES ('a','b')"_s);
        motor.Ejecutar(u"INSERT INTO historial (id) VALUES ('a')"_s);
    }
}

TEST_F(EsquemaTest, ThePairOfIdentifiersIsIndexedInThatOrder) {
    Crear();
    for (const char* tabla : {"cola", "procesados"}) {
        const auto filas =
            Abierto().Consultar(u"SELECT i.name FROM pragma_index_info(?) AS i ORDER BY i.seqno"_s,
                                {QString::fromLatin1(tabla) + u"__id"_s});
        ASSERT_EQ(filas.size(), 2u);
        EXPECT_EQ(filas[0].LeerTexto(0), u"id1"_s);
        EXPECT_EQ(filas[1].LeerTexto(0), u"id2"_s);
    }
}

TEST_F(EsquemaTest, TheViewsGroupTheQueue) {
    Crear();
    Abierto().Ejecutar(
        u"INSERT INTO cola (fecha,importe,id1,id2,idcaja,vendedor,formapago,terminal) VALUES "
        "('2026-03-14',100,'A','1',1,'v','f','t'),('2026-03-14',250,'a','1',1,'v','f','t'),"
        "('2026-03-15',70,'A','2',1,'v','f','t'),('2026-03-15',5,'B',NULL,1,'w','f','t')"_s);
    EXPECT_EQ(motor.Consultar(u"SELECT * FROM v_cola_agrupar_id"_s).size(), 2u);
    const auto grupos = motor.Consultar(u"SELECT * FROM v_cola_grupos_id"_s);
    ASSERT_EQ(grupos.size(), 1u);
    EXPECT_EQ(grupos[0].LeerLong(u"SumaGrupo"_s), 350);
    const auto farmatic = motor.Consultar(u"SELECT * FROM v_cola_grupos_farmatic"_s);
    ASSERT_EQ(farmatic.size(), 1u);
    EXPECT_EQ(farmatic[0].LeerLong(u"sumaGrupo"_s), 350);
}

TEST_F(EsquemaTest, ACompleteFileIsNotTouched) {
    Crear();
    const QByteArray antes = carpeta.Lee(u"ZVMonito2.mdb"_s);
    const QDateTime fecha = QFileInfo(Ruta()).lastModified();
    Crear();
    EXPECT_TRUE(carpeta.Lee(u"ZVMonito2.mdb"_s) == antes);
    EXPECT_TRUE(QFileInfo(Ruta()).lastModified() == fecha);
    EXPECT_EQ(carpeta.Entradas(), QStringList{u"ZVMonito2.mdb"_s});
}

TEST_F(EsquemaTest, ACompleteFileIsOnlyLookedAt) {
    Crear();
    GanchoFallos gancho(catalogo);
    Crear();
    EXPECT_EQ(gancho.Cuenta(Kind::Escritura, {}), 0);
    EXPECT_GT(gancho.Cuenta(Kind::Catalogo, {}), 0);
}

TEST_F(EsquemaTest, AZeroByteFileIsFilled) {
    carpeta.Pon(u"ZVMonito2.mdb"_s, {});
    Crear();
    EXPECT_EQ(Abierto().Tablas().size(), 9);
}

TEST_F(EsquemaTest, AnOldFileReceivesWhatItLacksAndKeepsItsRows) {
    Antigua({u"CREATE TABLE COLA (idZV INTEGER PRIMARY KEY AUTOINCREMENT, fecha TEXT, "
             "importe NUMERIC, id1 TEXT, id2 TEXT, idcaja INTEGER, terminal TEXT, "
             "vendedor TEXT, formapago TEXT, creditoError NUMERIC, manual INTEGER)"_s,
             u"CREATE TABLE procesados (idZV INTEGER PRIMARY KEY AUTOINCREMENT, "
             "fechaZV TEXT, importeVenta NUMERIC, id1 TEXT, id2 TEXT, idcaja INTEGER)"_s,
             u"INSERT INTO procesados (idZV,id1) VALUES (41,'vieja')"_s,
             u"INSERT INTO COLA (importe) VALUES (7)"_s});
    const QString cola = SqlDe(u"COLA"_s);
    motor.Cerrar();
    Crear();
    EXPECT_EQ(Abierto().Tablas().size(), 9);
    EXPECT_EQ(SqlDe(u"COLA"_s), cola);
    EXPECT_EQ(motor.Columnas(u"procesados"_s).last(), u"usuario"_s);
    // Columns that are missing otherwise are not looked for.
    EXPECT_EQ(motor.Columnas(u"procesados"_s).size(), 7);
    EXPECT_TRUE(motor.Consultar(u"SELECT * FROM procesados"_s).at(0).EsNulo(u"usuario"_s));
    EXPECT_TRUE(ExisteIndice(motor, u"cola"_s, u"id"_s));
    EXPECT_TRUE(ExisteIndice(motor, u"cola"_s, u"IDCAJA"_s));
    EXPECT_TRUE(ExisteIndice(motor, u"procesados"_s, u"idcaja"_s));
    EXPECT_EQ(motor.Consultar(u"SELECT * FROM cola"_s).size(), 1u);
    motor.Ejecutar(u"INSERT INTO procesados (usuario) VALUES ('ana')"_s);
    EXPECT_EQ(motor.Consultar(u"SELECT max(idZV) FROM procesados"_s).at(0).LeerLong(0), 42);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(EsquemaTest, AnIndexOrViewOfAnotherShapeStaysAsItIs) {
    Antigua({u"CREATE TABLE cola (idZV INTEGER PRIMARY KEY, importe, id1, id2, idcaja, "
             "fecha, vendedor, formapago, terminal)"_s,
             u"CREATE INDEX ID ON cola (importe)"_s,
             u"CREATE VIEW V_COLA_GRUPOS_ID AS SELECT 1 AS uno"_s});
    Crear();
    EXPECT_EQ(SqlDe(u"ID"_s), u"CREATE INDEX ID ON cola (importe)"_s);
    EXPECT_EQ(SqlDe(u"cola__id"_s), QString());
    EXPECT_EQ(motor.Columnas(u"v_cola_grupos_id"_s), QStringList{u"uno"_s});
    // The same name on another table is another index.
    EXPECT_TRUE(ExisteIndice(motor, u"procesados"_s, u"id"_s));
    EXPECT_TRUE(ExisteIndice(motor, u"historial"_s, u"id"_s));
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(EsquemaTest, ViewsCountAsTables) {
    Crear();
    EXPECT_TRUE(ExisteTabla(Abierto(), u"V_COLA_GRUPOS_ID"_s));
    EXPECT_TRUE(ExisteTabla(motor, u"usuarios"_s));
    EXPECT_FALSE(ExisteTabla(motor, u"usuario"_s));
    EXPECT_TRUE(ExisteColumna(motor, u"cola"_s, u"CREDITOERROR"_s));
    EXPECT_FALSE(ExisteColumna(motor, u"cola"_s, u"credito"_s));
    EXPECT_FALSE(ExisteIndice(motor, u"cierres"_s, u"id"_s));
}

TEST_F(EsquemaTest, EveryStepThatFailsEndsTheWalkWithOneMessageAndTheNextStartGoesOn) {
    int pasos = 0;
    {
        CarpetaTemporal otra;
        GanchoFallos gancho(catalogo);
        CrearBaseDatos(catalogo, otra.Ruta(), log, dialogos, textos);
        pasos = gancho.Cuenta(Kind::Escritura, u"CREATE"_s) +
                gancho.Cuenta(Kind::Escritura, u"ALTER"_s);
    }
    // 6 tables, 8 indexes, 3 views and a column.
    ASSERT_EQ(pasos, 18);
    for (int hechos = 0; hechos < pasos; ++hechos) {
        SCOPED_TRACE(hechos);
        const CarpetaTemporal otra;
        int cuenta = 0;
        catalogo.PonerGancho([&](const Statement& s) {
            if (s.kind == Kind::Escritura && cuenta++ == hechos) {
                throw ErrorEjecucion(5, u"database is locked"_s);
            }
        });
        EsperaFracaso();
        CrearBaseDatos(catalogo, otra.Ruta(), log, dialogos, textos);
        EXPECT_EQ(dialogos.Pendientes(), 0u);
        EXPECT_EQ(cuenta, hechos + 1);
        EXPECT_FALSE(catalogo.Abierta());
        EXPECT_EQ(log.Toma(), QStringList{u">>> Error CrearBaseDatos 5 - database is locked"_s});
        catalogo.PonerGancho({});
        CrearBaseDatos(catalogo, otra.Ruta(), log, dialogos, textos);
        catalogo.Abrir(CadenaConexion(u"MDB"_s, {}, RutaBaseDatos(otra.Ruta()), {}, {}));
        EXPECT_EQ(catalogo.Tablas().size(), 9);
        EXPECT_TRUE(ExisteIndice(catalogo, u"historial"_s, u"id"_s));
        catalogo.Cerrar();
    }
}

TEST_F(EsquemaTest, AFailureToOpenIsToldOnceAndTheStartGoesOn) {
    GanchoFallos gancho(catalogo);
    gancho.Falla(Kind::Abrir, {}, 1);
    EsperaFracaso();
    Crear();
    EXPECT_EQ(dialogos.Pendientes(), 0u);
    EXPECT_FALSE(carpeta.Esta(u"ZVMonito2.mdb"_s));
}

TEST_F(EsquemaTest, AFileInUseIsToldOnce) {
    Antigua({u"CREATE TABLE x (a)"_s});
    Abierto().Comenzar();
    motor.Ejecutar(u"INSERT INTO x VALUES (1)"_s);
    EsperaFracaso();
    Crear();
    ASSERT_EQ(log.lineas.size(), 1);
    EXPECT_THAT(log.lineas[0].toStdString(), StartsWith(">>> Error CrearBaseDatos 5 - "));
}

TEST_F(EsquemaTest, AFolderThatCannotBeWrittenIsTold) {
    EsperaFracaso();
    CrearBaseDatos(catalogo, carpeta.Ruta(u"no/hay"_s), log, dialogos, textos);
    ASSERT_EQ(log.lineas.size(), 1);
    EXPECT_THAT(log.lineas[0].toStdString(), StartsWith(">>> Error CrearBaseDatos 75 - "));
}

TEST_F(EsquemaTest, ForAFileOfAccessTheLogSaysWhatItIs) {
    QByteArray jet("\x00\x01\x00\x00Standard Jet DB\x00", 20);
    jet.append(QByteArray(4076, '\x01'));
    carpeta.Pon(u"ZVMonito2.mdb"_s, jet);
    EsperaFracaso();
    Crear();
    ASSERT_EQ(log.lineas.size(), 1);
    EXPECT_EQ(log.lineas[0], u">>> Error CrearBaseDatos 26 - el fichero %1 es una base de datos de "
                             "Access (Standard Jet DB) y este programa usa SQLite; conviértalo o "
                             "retírelo"_s.arg(Ruta()));
    EXPECT_TRUE(carpeta.Lee(u"ZVMonito2.mdb"_s) == jet);
}

TEST_F(EsquemaTest, TheMessageComesAlsoWhenTheLogCannotBeWritten) {
    GanchoFallos gancho(catalogo);
    gancho.Falla(Kind::Abrir, {}, 1);
    log.fallosPendientes = 1;
    EsperaFracaso();
    Crear();
    EXPECT_EQ(dialogos.Pendientes(), 0u);
}

TEST_F(EsquemaTest, TheMessageIsTranslated) {
    carpeta.Pon(u"RWLang.ini"_s, "[COMMON]\r\nerrorDeConfiguracion=Setup\r\nerrorMDB=In use\r\n");
    GanchoFallos gancho(catalogo);
    gancho.Falla(Kind::Abrir, {}, 1);
    dialogos.EsperaMensaje(u"Setup"_s, u"In use"_s);
    Crear();
}

} // namespace
} // namespace zv

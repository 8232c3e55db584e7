// The walk that makes a new database and brings an old one up to date.
#include "store/Esquema.h"

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
using Clase = Sentencia::Clase;

class EsquemaTest : public testing::Test {
  protected:
    void Crear() { CrearBaseDatos(catalogo, carpeta.Ruta(), log, dialogos, textos); }
    void EsperaFracaso() {
        dialogos.EsperaMensaje(
            QStringLiteral("Error de configuración"),
            QStringLiteral("Error al crear el fichero MDB, el archivo ya esta en uso"));
    }
    QString Ruta() const { return RutaBaseDatos(carpeta.Ruta()); }
    MotorBD& Abierto() {
        if (!motor.Abierta()) {
            motor.Abrir(CadenaConexion(QStringLiteral("MDB"), {}, Ruta(), {}, {}));
        }
        return motor;
    }
    // A file of an older release, or of other hands.
    void Antigua(const QStringList& sentencias) {
        carpeta.Pon(QStringLiteral("ZVMonito2.mdb"), {});
        for (const QString& sql : sentencias) {
            Abierto().Ejecutar(sql);
        }
        motor.Cerrar();
    }
    QString SqlDe(const QString& nombre) {
        const auto filas = Abierto().Consultar(
            QStringLiteral("SELECT sql FROM sqlite_master WHERE name=?"), {nombre});
        return filas.empty() ? QString() : filas[0].LeerTexto(0);
    }
    QStringList Catalogo() {
        QStringList todo;
        for (const Fila& fila : Abierto().Consultar(
                 QStringLiteral("SELECT type||' '||name||' '||coalesce(sql,'') FROM sqlite_master "
                                "ORDER BY 1"))) {
            todo.append(fila.LeerTexto(0));
        }
        return todo;
    }

    CarpetaTemporal carpeta;
    LogMemoria log;
    DialogosGuion dialogos;
    Textos textos{carpeta.Ruta()};
    MotorSQLite catalogo{{std::chrono::milliseconds(0)}};
    MotorSQLite motor{{std::chrono::milliseconds(0)}};
};

TEST_F(EsquemaTest, WithNoFileOneStartMakesEverything) {
    Crear();
    EXPECT_FALSE(catalogo.Abierta());
    EXPECT_TRUE(log.lineas.isEmpty());
    EXPECT_EQ(
        Abierto().Tablas(),
        QStringList({QStringLiteral("Usuarios"), QStringLiteral("Accesos"), QStringLiteral("Cola"),
                     QStringLiteral("Procesados"), QStringLiteral("Cierres"),
                     QStringLiteral("v_cola_agrupar_id"), QStringLiteral("v_cola_grupos_id"),
                     QStringLiteral("v_cola_grupos_farmatic"), QStringLiteral("historial")}));
    const QString clave = QStringLiteral("PrimaryKey");
    const QString id = QStringLiteral("id");
    EXPECT_EQ(motor.Indices(QStringLiteral("usuarios")),
              QStringList({clave, QStringLiteral("nombre")}));
    EXPECT_EQ(motor.Indices(QStringLiteral("accesos")),
              QStringList({clave, QStringLiteral("usuario"), QStringLiteral("lugar")}));
    EXPECT_EQ(motor.Indices(QStringLiteral("cola")),
              QStringList({clave, id, QStringLiteral("idCaja")}));
    EXPECT_EQ(motor.Indices(QStringLiteral("procesados")),
              QStringList({clave, id, QStringLiteral("idcaja")}));
    EXPECT_EQ(motor.Indices(QStringLiteral("cierres")), QStringList({clave}));
    EXPECT_EQ(motor.Indices(QStringLiteral("historial")), QStringList({clave, id}));
    for (const QString& tabla : motor.Tablas()) {
        EXPECT_TRUE(motor.Consultar(QStringLiteral("SELECT * FROM ") + tabla).empty());
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
    for (const Fila& fila :
         motor.Consultar(QStringLiteral("SELECT type, pk FROM pragma_table_info(?)"), {tabla})) {
        tipos.append(fila.LeerTexto(0) + (fila.LeerBooleano(1) ? QStringLiteral("*") : QString()));
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
    const QString sql = QStringLiteral("INSERT INTO Usuarios (nombre) VALUES (?)");
    Abierto().Ejecutar(sql, {QStringLiteral("ana")});
    EXPECT_EQ(NumeroError([&] { motor.Ejecutar(sql, {QStringLiteral("ANA")}); }), 2067);
    for (int i = 0; i < 2; ++i) {
        motor.Ejecutar(QStringLiteral("INSERT INTO cola (id1,id2,idcaja) VALUES ('a','b',1)"));
        motor.Ejecutar(QStringLiteral("INSERT INTO procesados (id1,idcaja) VALUES ('a',1)"));
        motor.Ejecutar(QStringLiteral("INSERT INTO Accesos (usuario,lugar) VALUES ('a','b')"));
        motor.Ejecutar(QStringLiteral("INSERT INTO historial (id) VALUES ('a')"));
    }
}

TEST_F(EsquemaTest, ThePairOfIdentifiersIsIndexedInThatOrder) {
    Crear();
    for (const char* tabla : {"cola", "procesados"}) {
        const auto filas = Abierto().Consultar(
            QStringLiteral("SELECT i.name FROM pragma_index_info(?) AS i ORDER BY i.seqno"),
            {QString::fromLatin1(tabla) + QStringLiteral("__id")});
        ASSERT_EQ(filas.size(), 2u);
        EXPECT_EQ(filas[0].LeerTexto(0), QStringLiteral("id1"));
        EXPECT_EQ(filas[1].LeerTexto(0), QStringLiteral("id2"));
    }
}

TEST_F(EsquemaTest, TheViewsGroupTheQueue) {
    Crear();
    Abierto().Ejecutar(QStringLiteral(
        "INSERT INTO cola (fecha,importe,id1,id2,idcaja,vendedor,formapago,terminal) VALUES "
        "('2026-03-14',100,'A','1',1,'v','f','t'),('2026-03-14',250,'a','1',1,'v','f','t'),"
        "('2026-03-15',70,'A','2',1,'v','f','t'),('2026-03-15',5,'B',NULL,1,'w','f','t')"));
    EXPECT_EQ(motor.Consultar(QStringLiteral("SELECT * FROM v_cola_agrupar_id")).size(), 2u);
    const auto grupos = motor.Consultar(QStringLiteral("SELECT * FROM v_cola_grupos_id"));
    ASSERT_EQ(grupos.size(), 1u);
    EXPECT_EQ(grupos[0].LeerLong(QStringLiteral("SumaGrupo")), 350);
    const auto farmatic = motor.Consultar(QStringLiteral("SELECT * FROM v_cola_grupos_farmatic"));
    ASSERT_EQ(farmatic.size(), 1u);
    EXPECT_EQ(farmatic[0].LeerLong(QStringLiteral("sumaGrupo")), 350);
}

TEST_F(EsquemaTest, ACompleteFileIsNotTouched) {
    Crear();
    const QByteArray antes = carpeta.Lee(QStringLiteral("ZVMonito2.mdb"));
    const QDateTime fecha = QFileInfo(Ruta()).lastModified();
    Crear();
    EXPECT_TRUE(carpeta.Lee(QStringLiteral("ZVMonito2.mdb")) == antes);
    EXPECT_TRUE(QFileInfo(Ruta()).lastModified() == fecha);
    EXPECT_EQ(carpeta.Entradas(), QStringList{QStringLiteral("ZVMonito2.mdb")});
}

TEST_F(EsquemaTest, ACompleteFileIsOnlyLookedAt) {
    Crear();
    GanchoFallos gancho(catalogo);
    Crear();
    EXPECT_EQ(gancho.Cuenta(Clase::Escritura, {}), 0);
    EXPECT_GT(gancho.Cuenta(Clase::Catalogo, {}), 0);
}

TEST_F(EsquemaTest, AZeroByteFileIsFilled) {
    carpeta.Pon(QStringLiteral("ZVMonito2.mdb"), {});
    Crear();
    EXPECT_EQ(Abierto().Tablas().size(), 9);
}

TEST_F(EsquemaTest, AnOldFileReceivesWhatItLacksAndKeepsItsRows) {
    Antigua(
        {QStringLiteral("CREATE TABLE COLA (idZV INTEGER PRIMARY KEY AUTOINCREMENT, fecha TEXT, "
                        "importe NUMERIC, id1 TEXT, id2 TEXT, idcaja INTEGER, terminal TEXT, "
                        "vendedor TEXT, formapago TEXT, creditoError NUMERIC, manual INTEGER)"),
         QStringLiteral("CREATE TABLE procesados (idZV INTEGER PRIMARY KEY AUTOINCREMENT, "
                        "fechaZV TEXT, importeVenta NUMERIC, id1 TEXT, id2 TEXT, idcaja INTEGER)"),
         QStringLiteral("INSERT INTO procesados (idZV,id1) VALUES (41,'vieja')"),
         QStringLiteral("INSERT INTO COLA (importe) VALUES (7)")});
    const QString cola = SqlDe(QStringLiteral("COLA"));
    motor.Cerrar();
    Crear();
    EXPECT_EQ(Abierto().Tablas().size(), 9);
    EXPECT_EQ(SqlDe(QStringLiteral("COLA")), cola);
    EXPECT_EQ(motor.Columnas(QStringLiteral("procesados")).last(), QStringLiteral("usuario"));
    // Columns that are missing otherwise are not looked for.
    EXPECT_EQ(motor.Columnas(QStringLiteral("procesados")).size(), 7);
    EXPECT_TRUE(motor.Consultar(QStringLiteral("SELECT * FROM procesados"))
                    .at(0)
                    .EsNulo(QStringLiteral("usuario")));
    EXPECT_TRUE(ExisteIndice(motor, QStringLiteral("cola"), QStringLiteral("id")));
    EXPECT_TRUE(ExisteIndice(motor, QStringLiteral("cola"), QStringLiteral("IDCAJA")));
    EXPECT_TRUE(ExisteIndice(motor, QStringLiteral("procesados"), QStringLiteral("idcaja")));
    EXPECT_EQ(motor.Consultar(QStringLiteral("SELECT * FROM cola")).size(), 1u);
    motor.Ejecutar(QStringLiteral("INSERT INTO procesados (usuario) VALUES ('ana')"));
    EXPECT_EQ(motor.Consultar(QStringLiteral("SELECT max(idZV) FROM procesados")).at(0).LeerLong(0),
              42);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(EsquemaTest, AnIndexOrViewOfAnotherShapeStaysAsItIs) {
    Antigua(
        {QStringLiteral("CREATE TABLE cola (idZV INTEGER PRIMARY KEY, importe, id1, id2, idcaja, "
                        "fecha, vendedor, formapago, terminal)"),
         QStringLiteral("CREATE INDEX ID ON cola (importe)"),
         QStringLiteral("CREATE VIEW V_COLA_GRUPOS_ID AS SELECT 1 AS uno")});
    Crear();
    EXPECT_EQ(SqlDe(QStringLiteral("ID")), QStringLiteral("CREATE INDEX ID ON cola (importe)"));
    EXPECT_EQ(SqlDe(QStringLiteral("cola__id")), QString());
    EXPECT_EQ(motor.Columnas(QStringLiteral("v_cola_grupos_id")),
              QStringList{QStringLiteral("uno")});
    // The same name on another table is another index.
    EXPECT_TRUE(ExisteIndice(motor, QStringLiteral("procesados"), QStringLiteral("id")));
    EXPECT_TRUE(ExisteIndice(motor, QStringLiteral("historial"), QStringLiteral("id")));
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(EsquemaTest, ViewsCountAsTables) {
    Crear();
    EXPECT_TRUE(ExisteTabla(Abierto(), QStringLiteral("V_COLA_GRUPOS_ID")));
    EXPECT_TRUE(ExisteTabla(motor, QStringLiteral("usuarios")));
    EXPECT_FALSE(ExisteTabla(motor, QStringLiteral("usuario")));
    EXPECT_TRUE(ExisteColumna(motor, QStringLiteral("cola"), QStringLiteral("CREDITOERROR")));
    EXPECT_FALSE(ExisteColumna(motor, QStringLiteral("cola"), QStringLiteral("credito")));
    EXPECT_FALSE(ExisteIndice(motor, QStringLiteral("cierres"), QStringLiteral("id")));
}

TEST_F(EsquemaTest, EveryStepThatFailsEndsTheWalkWithOneMessageAndTheNextStartGoesOn) {
    int pasos = 0;
    {
        CarpetaTemporal otra;
        GanchoFallos gancho(catalogo);
        CrearBaseDatos(catalogo, otra.Ruta(), log, dialogos, textos);
        pasos = gancho.Cuenta(Clase::Escritura, QStringLiteral("CREATE")) +
                gancho.Cuenta(Clase::Escritura, QStringLiteral("ALTER"));
    }
    // 6 tables, 8 indexes, 3 views and a column.
    ASSERT_EQ(pasos, 18);
    for (int hechos = 0; hechos < pasos; ++hechos) {
        SCOPED_TRACE(hechos);
        const CarpetaTemporal otra;
        int cuenta = 0;
        catalogo.PonerGancho([&](const Sentencia& s) {
            if (s.clase == Clase::Escritura && cuenta++ == hechos) {
                throw ErrorEjecucion(5, QStringLiteral("database is locked"));
            }
        });
        EsperaFracaso();
        CrearBaseDatos(catalogo, otra.Ruta(), log, dialogos, textos);
        EXPECT_EQ(dialogos.Pendientes(), 0u);
        EXPECT_EQ(cuenta, hechos + 1);
        EXPECT_FALSE(catalogo.Abierta());
        EXPECT_EQ(log.Toma(),
                  QStringList{QStringLiteral(">>> Error CrearBaseDatos 5 - database is locked")});
        catalogo.PonerGancho({});
        CrearBaseDatos(catalogo, otra.Ruta(), log, dialogos, textos);
        catalogo.Abrir(
            CadenaConexion(QStringLiteral("MDB"), {}, RutaBaseDatos(otra.Ruta()), {}, {}));
        EXPECT_EQ(catalogo.Tablas().size(), 9);
        EXPECT_TRUE(ExisteIndice(catalogo, QStringLiteral("historial"), QStringLiteral("id")));
        catalogo.Cerrar();
    }
}

TEST_F(EsquemaTest, AFailureToOpenIsToldOnceAndTheStartGoesOn) {
    GanchoFallos gancho(catalogo);
    gancho.Falla(Clase::Abrir, {}, 1);
    EsperaFracaso();
    Crear();
    EXPECT_EQ(dialogos.Pendientes(), 0u);
    EXPECT_FALSE(carpeta.Esta(QStringLiteral("ZVMonito2.mdb")));
}

TEST_F(EsquemaTest, AFileInUseIsToldOnce) {
    Antigua({QStringLiteral("CREATE TABLE x (a)")});
    Abierto().Comenzar();
    motor.Ejecutar(QStringLiteral("INSERT INTO x VALUES (1)"));
    EsperaFracaso();
    Crear();
    ASSERT_EQ(log.lineas.size(), 1);
    EXPECT_THAT(log.lineas[0].toStdString(), StartsWith(">>> Error CrearBaseDatos 5 - "));
}

TEST_F(EsquemaTest, AFolderThatCannotBeWrittenIsTold) {
    EsperaFracaso();
    CrearBaseDatos(catalogo, carpeta.Ruta(QStringLiteral("no/hay")), log, dialogos, textos);
    ASSERT_EQ(log.lineas.size(), 1);
    EXPECT_THAT(log.lineas[0].toStdString(), StartsWith(">>> Error CrearBaseDatos 75 - "));
}

TEST_F(EsquemaTest, ForAFileOfAccessTheLogSaysWhatItIs) {
    QByteArray jet("\x00\x01\x00\x00Standard Jet DB\x00", 20);
    jet.append(QByteArray(4076, '\x01'));
    carpeta.Pon(QStringLiteral("ZVMonito2.mdb"), jet);
    EsperaFracaso();
    Crear();
    ASSERT_EQ(log.lineas.size(), 1);
    EXPECT_EQ(log.lineas[0],
              QStringLiteral(">>> Error CrearBaseDatos 26 - el fichero %1 es una base de datos de "
                             "Access (Standard Jet DB) y este programa usa SQLite; conviértalo o "
                             "retírelo")
                  .arg(Ruta()));
    EXPECT_TRUE(carpeta.Lee(QStringLiteral("ZVMonito2.mdb")) == jet);
}

TEST_F(EsquemaTest, TheMessageComesAlsoWhenTheLogCannotBeWritten) {
    GanchoFallos gancho(catalogo);
    gancho.Falla(Clase::Abrir, {}, 1);
    log.fallosPendientes = 1;
    EsperaFracaso();
    Crear();
    EXPECT_EQ(dialogos.Pendientes(), 0u);
}

TEST_F(EsquemaTest, TheMessageIsTranslated) {
    carpeta.Pon(QStringLiteral("RWLang.ini"),
                "[COMMON]\r\nerrorDeConfiguracion=Setup\r\nerrorMDB=In use\r\n");
    GanchoFallos gancho(catalogo);
    gancho.Falla(Clase::Abrir, {}, 1);
    dialogos.EsperaMensaje(QStringLiteral("Setup"), QStringLiteral("In use"));
    Crear();
}

} // namespace
} // namespace zv

// Starts on bad settings, balances, devices and logs: what is told, and that queue and books stay.
#include "BancoMonitor.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/Esquema.h"

namespace zv::test {

class ArranqueDatosMalosTest : public BancoMonitor {
  protected:
    // A sale in the queue and one in the books, before the start.
    void PonerLibros() {
        SqliteEngine catalogo;
        CrearBaseDatos(catalogo, carpeta.path(), servicios->log, dialogos, servicios->textos);
        Abrir().Ejecutar(u"INSERT INTO cola (importe,id1) VALUES (900,'POS')"_s);
        Abrir().Ejecutar(u"INSERT INTO procesados (importeVenta,id1) VALUES (100,'ANTES')"_s);
        libros = Libros();
        QDir(carpeta.filePath(u"Debug"_s)).removeRecursively();
    }
    QStringList Libros() {
        QStringList filas;
        for (const QString& tabla : {u"cola"_s, u"procesados"_s}) {
            for (const Row& fila : Abrir().Consultar(u"SELECT * FROM "_s + tabla)) {
                filas << tabla + fila.LeerTexto(u"id1"_s) + fila.LeerTexto(u"idZV"_s);
            }
        }
        return filas;
    }
    DatabaseEngine& Abrir() {
        otro = std::make_unique<SqliteEngine>();
        otro->Abrir(CadenaConexion(u"MDB"_s, {}, carpeta.filePath(u"ZVMonito2.mdb"_s), {}, {}));
        return *otro;
    }
    void PonerValor(const QString& valor, const QString& dato) {
        servicios->registry.GuardarValor(registry_name::kMonitor, valor, dato);
    }
    void EsperaErrorDeInicio(const QString& texto) {
        dialogos.EsperaMensaje(u"Error al iniciar la aplicación"_s, texto);
    }

    QStringList libros;
    std::unique_ptr<DatabaseEngine> otro;
};

TEST_F(ArranqueDatosMalosTest, ABalanceInTheRegistryThatIsNoNumberEndsTheStart) {
    EscribirIni();
    PonerLibros();
    for (const QString& valor : {u"Saldo_Inicial"_s, u"Saldo_Exit"_s}) {
        PonerValor(valor, u"doce"_s);
        EsperaErrorDeInicio(u"Error nº 13 - No coinciden los tipos"_s);
        EXPECT_FALSE(monitor->Cargar());
        EXPECT_EQ(LeerValor(valor), u"doce"_s);
        PonerValor(valor, u"0"_s);
        Montar();
    }
    PonerValor(u"Saldo_Inicial"_s, u"3000000000"_s);
    EsperaErrorDeInicio(u"Error nº 6 - Desbordamiento"_s);
    EXPECT_FALSE(monitor->Cargar());
    EXPECT_EQ(Libros(), libros);
}

TEST_F(ArranqueDatosMalosTest, TheBalancesAreReadBeforeTheDatabase) {
    EscribirIni("[CONECTOR]\r\nZVFastPort=puerto\r\n"); // ends the start at the fast link
    PonerSaldo(5000);
    PonerValor(u"Saldo_Inicial"_s, u"4000"_s);
    EsperaErrorDeInicio(u"Error nº 13 - No coinciden los tipos"_s);
    EXPECT_FALSE(monitor->Cargar());
    EXPECT_EQ(Supervision().SaldoInicial(), 4000);
    EXPECT_EQ(Supervision().UltimoSaldo(), Currency(5000));
}

TEST_F(ArranqueDatosMalosTest, AMultiplierOfZeroEndsTheStartWhenABalanceMustBeShown) {
    EscribirIni();
    PonerLibros();
    PonerSaldo(5000);
    cliente.PonerTotal(5001);
    cliente.PonerMultiplier(0);
    cliente.EsperaConnect();
    EsperaErrorDeInicio(u"Error nº 11 - División por cero"_s);
    EXPECT_FALSE(monitor->Cargar());
    EXPECT_FALSE(Pulso().Armado());
    EXPECT_EQ(Libros(), libros);
    EXPECT_EQ(LeerValor(u"Saldo_Exit"_s), u"5000"_s);
}

TEST_F(ArranqueDatosMalosTest, AMultiplierOfZeroShowsNoAmountsInTheGrid) {
    EscribirIni("[ZORVEX]\r\nIP=127.0.0.1\r\n[ZVMONITOR]\r\nMODO=MANUAL\r\n");
    PonerLibros();
    PonerSaldo(5000);
    cliente.PonerMultiplier(0);
    cliente.EsperaConnect();
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_EQ(Grid().Celdas().Texto(1, 3), u"POS"_s);
    EXPECT_EQ(Grid().Celdas().Texto(1, 9), QString());
    EXPECT_EQ(Libros(), libros);
}

TEST_F(ArranqueDatosMalosTest, LevelListsOfUnequalLengthAreToldAndTheStartGoesOn) {
    EscribirIni("[ZORVEX]\r\nIP=127.0.0.1\r\n[ZVMONITOR]\r\nMODO=MANUAL\r\n");
    PonerLibros();
    PonerSaldo(5000);
    cliente.PonerNiveles(2, u"100,200"_s, u"50"_s);
    cliente.EsperaConnect();
    const QString caja = u"Error al recuperar el saldo del Zorvex: 9 - El subíndice "
                         "está fuera del intervalo"_s;
    dialogos.EsperaCaja(caja);
    dialogos.EsperaMensaje(u"Inicialización"_s, testing::_);
    dialogos.EsperaCaja(caja);
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_TRUE(Supervision().Conectado());
    EXPECT_EQ(LeerValor(u"Saldo_Exit"_s), u"0"_s);
    EXPECT_EQ(Libros(), libros);
}

TEST_F(ArranqueDatosMalosTest, ALogThatCannotBeWrittenAtTheFirstLineIsNobodysFailure) {
    EscribirIni();
    QFile estorbo(carpeta.filePath(u"Debug"_s));
    ASSERT_TRUE(estorbo.open(QIODevice::WriteOnly));
    EXPECT_THROW(monitor->Cargar(), ErrorEjecucion);
    EXPECT_FALSE(QFile::exists(carpeta.filePath(u"ZVMonito2.mdb"_s)));
}

TEST_F(ArranqueDatosMalosTest, AFailureOfTheLastStepsIsNobodysEither) {
    EscribirIni("[ZVMONITOR]\r\nBOTONACCESO=1\r\n");
    PonerSaldo(5000);
    cliente.EsperaConnect();
    pantallas.EsperaAbrir(Pantalla::BotonAcceso, [] { throw ErrorEjecucion(5, u"x"_s); });
    EXPECT_THROW(monitor->Cargar(), ErrorEjecucion);
    EXPECT_FALSE(Pulso().Armado());
}

TEST_F(ArranqueDatosMalosTest, LogsThatGetOldDuringTheLoadGoAtItsEnd) {
    EscribirIni();
    PonerSaldo(5000);
    const QString viejo = carpeta.filePath(u"Debug/ZVMonitor20260101.log"_s);
    cliente.EsperaConnect(FinGuion::Ok().Durante([&] {
        QFile fichero(viejo);
        ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
    }));
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_FALSE(QFile::exists(viejo));
}

TEST_F(ArranqueDatosMalosTest, TheUnloadWritesNoBalance) {
    EscribirIni();
    PonerSaldo(5000);
    cliente.EsperaConnect();
    EXPECT_TRUE(monitor->Cargar());
    cliente.PonerTotal(7000);
    monitor->Descargar();
    EXPECT_EQ(LeerValor(u"Saldo_Exit"_s), u"5000"_s);
}

TEST_F(ArranqueDatosMalosTest, TheWordsComeFromTheLanguageFile) {
    QFile fichero(carpeta.filePath(u"RWLang.ini"_s));
    ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
    fichero.write("[COMMON]\r\niniciando=a\r\nprimerUso=b\r\nerrorDeConfiguracion=c\r\n"
                  "errorDeConfiguracion3=d\r\nerrorDeInicio=e\r\nzvMonitorYaEjecutado=f\r\n");
    fichero.close();
    dialogos.EsperaMensaje(u"a"_s, u"b"_s);
    pantallas.EsperaAbrir(Pantalla::Configuracion);
    dialogos.EsperaMensaje(u"c"_s, u"c"_s); // one key for both
    EXPECT_FALSE(monitor->Cargar());

    Montar();
    EscribirIni("[ZVMONITOR]\r\nREFRESCO=x\r\n");
    dialogos.EsperaMensaje(u"e"_s, testing::_);
    EXPECT_FALSE(monitor->Cargar());

    Montar();
    EscribirIni();
    ASSERT_TRUE(QDir(carpeta.path()).mkdir(u"ZVMonito2.mdb"_s));
    dialogos.EsperaMensaje(u"c"_s, testing::_);
    dialogos.EsperaMensaje(testing::_, testing::_);
    dialogos.EsperaMensaje(u"c"_s, u"d"_s);
    EXPECT_FALSE(monitor->Cargar());

    SingleInstance primera(carpeta.path());
    Montar();
    ASSERT_FALSE(primera.OtraInstancia());
    dialogos.EsperaMensaje(QString(), u"f"_s);
    EXPECT_FALSE(monitor->Cargar());
}

} // namespace zv::test

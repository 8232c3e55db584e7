// Starts on bad settings, balances, devices and logs: what is told, and that queue and books stay.
#include "BancoMonitor.h"
#include "engine/Vocabulario.h"
#include "platform/ErrorEjecucion.h"
#include "store/Esquema.h"

namespace zv::test {

class ArranqueDatosMalosTest : public BancoMonitor {
  protected:
    // A sale in the queue and one in the books, before the start.
    void PonerLibros() {
        MotorSQLite catalogo;
        CrearBaseDatos(catalogo, carpeta.path(), servicios->log, dialogos, servicios->textos);
        Abrir().Ejecutar(QStringLiteral("INSERT INTO cola (importe,id1) VALUES (900,'POS')"));
        Abrir().Ejecutar(
            QStringLiteral("INSERT INTO procesados (importeVenta,id1) VALUES (100,'ANTES')"));
        libros = Libros();
        QDir(carpeta.filePath(QStringLiteral("Debug"))).removeRecursively();
    }
    QStringList Libros() {
        QStringList filas;
        for (const QString& tabla : {QStringLiteral("cola"), QStringLiteral("procesados")}) {
            for (const Fila& fila : Abrir().Consultar(QStringLiteral("SELECT * FROM ") + tabla)) {
                filas << tabla + fila.LeerTexto(QStringLiteral("id1")) +
                             fila.LeerTexto(QStringLiteral("idZV"));
            }
        }
        return filas;
    }
    MotorBD& Abrir() {
        otro = std::make_unique<MotorSQLite>();
        otro->Abrir(CadenaConexion(QStringLiteral("MDB"), {},
                                   carpeta.filePath(QStringLiteral("ZVMonito2.mdb")), {}, {}));
        return *otro;
    }
    void PonerValor(const QString& valor, const QString& dato) {
        servicios->registro.GuardarValor(QStringLiteral("Zorvex\\ZVMonitor"), valor, dato);
    }
    void EsperaErrorDeInicio(const QString& texto) {
        dialogos.EsperaMensaje(QStringLiteral("Error al iniciar la aplicación"), texto);
    }

    QStringList libros;
    std::unique_ptr<MotorBD> otro;
};

TEST_F(ArranqueDatosMalosTest, ABalanceInTheRegistryThatIsNoNumberEndsTheStart) {
    EscribirIni();
    PonerLibros();
    for (const QString& valor : {QStringLiteral("Saldo_Inicial"), QStringLiteral("Saldo_Exit")}) {
        PonerValor(valor, QStringLiteral("doce"));
        EsperaErrorDeInicio(QStringLiteral("Error nº 13 - No coinciden los tipos"));
        EXPECT_FALSE(monitor->Cargar());
        EXPECT_EQ(LeerValor(valor), QStringLiteral("doce"));
        PonerValor(valor, QStringLiteral("0"));
        Montar();
    }
    PonerValor(QStringLiteral("Saldo_Inicial"), QStringLiteral("3000000000"));
    EsperaErrorDeInicio(QStringLiteral("Error nº 6 - Desbordamiento"));
    EXPECT_FALSE(monitor->Cargar());
    EXPECT_EQ(Libros(), libros);
}

TEST_F(ArranqueDatosMalosTest, TheBalancesAreReadBeforeTheDatabase) {
    EscribirIni();
    PonerSaldo(5000);
    PonerValor(QStringLiteral("Saldo_Inicial"), QStringLiteral("4000"));
    monitor->arranque.PonerPasos(
        {{}, [] { throw ErrorEjecucion(1, QStringLiteral("x")); }, {}, {}});
    EsperaErrorDeInicio(QStringLiteral("Error nº 1 - x"));
    EXPECT_FALSE(monitor->Cargar());
    EXPECT_EQ(monitor->supervision.SaldoInicial(), 4000);
    EXPECT_EQ(monitor->supervision.UltimoSaldo(), Currency(5000));
}

TEST_F(ArranqueDatosMalosTest, AMultiplierOfZeroEndsTheStartWhenABalanceMustBeShown) {
    EscribirIni();
    PonerLibros();
    PonerSaldo(5000);
    cliente.PonerTotal(5001);
    cliente.PonerMultiplier(0);
    cliente.EsperaConnect();
    EsperaErrorDeInicio(QStringLiteral("Error nº 11 - División por cero"));
    EXPECT_FALSE(monitor->Cargar());
    EXPECT_FALSE(monitor->pulso.Armado());
    EXPECT_EQ(Libros(), libros);
    EXPECT_EQ(LeerValor(QStringLiteral("Saldo_Exit")), QStringLiteral("5000"));
}

TEST_F(ArranqueDatosMalosTest, AMultiplierOfZeroShowsNoAmountsInTheGrid) {
    EscribirIni("[ZORVEX]\r\nIP=127.0.0.1\r\n[ZVMONITOR]\r\nMODO=MANUAL\r\n");
    PonerLibros();
    PonerSaldo(5000);
    cliente.PonerMultiplier(0);
    cliente.EsperaConnect();
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_EQ(monitor->grid.Texto(1, 3), QStringLiteral("POS"));
    EXPECT_EQ(monitor->grid.Texto(1, 9), QString());
    EXPECT_EQ(Libros(), libros);
}

TEST_F(ArranqueDatosMalosTest, LevelListsOfUnequalLengthAreToldAndTheStartGoesOn) {
    EscribirIni("[ZORVEX]\r\nIP=127.0.0.1\r\n[ZVMONITOR]\r\nMODO=MANUAL\r\n");
    PonerLibros();
    PonerSaldo(5000);
    cliente.PonerNiveles(2, QStringLiteral("100,200"), QStringLiteral("50"));
    cliente.EsperaConnect();
    const QString caja = QStringLiteral("Error al recuperar el saldo del Zorvex: 9 - El subíndice "
                                        "está fuera del intervalo");
    dialogos.EsperaCaja(caja);
    dialogos.EsperaMensaje(QStringLiteral("Inicialización"), testing::_);
    dialogos.EsperaCaja(caja);
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_TRUE(monitor->supervision.Conectado());
    EXPECT_EQ(LeerValor(QStringLiteral("Saldo_Exit")), QStringLiteral("0"));
    EXPECT_EQ(Libros(), libros);
}

TEST_F(ArranqueDatosMalosTest, ALogThatCannotBeWrittenAtTheFirstLineIsNobodysFailure) {
    EscribirIni();
    QFile estorbo(carpeta.filePath(QStringLiteral("Debug")));
    ASSERT_TRUE(estorbo.open(QIODevice::WriteOnly));
    EXPECT_THROW(monitor->Cargar(), ErrorEjecucion);
    EXPECT_FALSE(QFile::exists(carpeta.filePath(QStringLiteral("ZVMonito2.mdb"))));
}

TEST_F(ArranqueDatosMalosTest, AFailureOfTheLastStepsIsNobodysEither) {
    EscribirIni("[ZVMONITOR]\r\nBOTONACCESO=1\r\n");
    PonerSaldo(5000);
    cliente.EsperaConnect();
    monitor->arranque.PonerPasos(
        {{}, {}, {}, [] { throw ErrorEjecucion(5, QStringLiteral("x")); }});
    EXPECT_THROW(monitor->Cargar(), ErrorEjecucion);
    EXPECT_FALSE(monitor->pulso.Armado());
}

TEST_F(ArranqueDatosMalosTest, LogsThatGetOldDuringTheLoadGoAtItsEnd) {
    EscribirIni();
    PonerSaldo(5000);
    const QString viejo = carpeta.filePath(QStringLiteral("Debug/ZVMonitor20260101.log"));
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
    monitor->arranque.Descargar();
    EXPECT_EQ(LeerValor(QStringLiteral("Saldo_Exit")), QStringLiteral("5000"));
}

TEST_F(ArranqueDatosMalosTest, TheWordsComeFromTheLanguageFile) {
    QFile fichero(carpeta.filePath(QStringLiteral("RWLang.ini")));
    ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
    fichero.write("[COMMON]\r\niniciando=a\r\nprimerUso=b\r\nerrorDeConfiguracion=c\r\n"
                  "errorDeConfiguracion3=d\r\nerrorDeInicio=e\r\nzvMonitorYaEjecutado=f\r\n");
    fichero.close();
    dialogos.EsperaMensaje(QStringLiteral("a"), QStringLiteral("b"));
    dialogos.EsperaMensaje(QStringLiteral("c"), QStringLiteral("c")); // one key for both
    EXPECT_FALSE(monitor->Cargar());

    Montar();
    EscribirIni("[ZVMONITOR]\r\nREFRESCO=x\r\n");
    dialogos.EsperaMensaje(QStringLiteral("e"), testing::_);
    EXPECT_FALSE(monitor->Cargar());

    Montar();
    EscribirIni();
    ASSERT_TRUE(QDir(carpeta.path()).mkdir(QStringLiteral("ZVMonito2.mdb")));
    dialogos.EsperaMensaje(QStringLiteral("c"), testing::_);
    dialogos.EsperaMensaje(testing::_, testing::_);
    dialogos.EsperaMensaje(QStringLiteral("c"), QStringLiteral("d"));
    EXPECT_FALSE(monitor->Cargar());

    InstanciaUnica primera(carpeta.path());
    Montar();
    ASSERT_FALSE(primera.OtraInstancia());
    dialogos.EsperaMensaje(QString(), QStringLiteral("f"));
    EXPECT_FALSE(monitor->Cargar());
}

} // namespace zv::test

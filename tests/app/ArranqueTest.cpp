// Start-up and shutdown: the order of the steps, and every way in which a start ends early.
#include "BancoMonitor.h"
#include "engine/Vocabulario.h"
#include "platform/ErrorEjecucion.h"
#include "store/Esquema.h"

namespace zv::test {

class ArranqueTest : public BancoMonitor {
  protected:
    void PonerFilaEnCola() {
        MotorSQLite catalogo;
        CrearBaseDatos(catalogo, carpeta.path(), servicios->log, dialogos, servicios->textos);
        MotorSQLite otroSQLite;
        MotorBD& otro = otroSQLite;
        otro.Abrir(CadenaConexion(QStringLiteral("MDB"), {},
                                  carpeta.filePath(QStringLiteral("ZVMonito2.mdb")), {}, {}));
        otro.Ejecutar(QStringLiteral("INSERT INTO cola (importe,id1) VALUES (900,'POS')"));
    }
};

TEST_F(ArranqueTest, TheLoadGoesThroughItsStepsInOrder) {
    EscribirIni();
    PonerSaldo(5000);
    QStringList pasos;
    ventana.alLlamar = [&](const QString& paso) { pasos << paso; };
    cliente.AlLlamar([&](const QString& paso) { pasos << paso; });
    cliente.EsperaConnect();
    monitor->arranque.PonerPasos(
        {[&] { pasos << QStringLiteral("configuración"); },
         [&] {
             pasos << QStringLiteral("fast");
             EXPECT_TRUE(QFile::exists(carpeta.filePath(QStringLiteral("ZVMonito2.mdb"))));
             EXPECT_FALSE(monitor->motor.Abierta());
         },
         [&] {
             pasos << QStringLiteral("dades");
             EXPECT_TRUE(monitor->motor.Abierta());
         },
         [&] { pasos << QStringLiteral("botón"); }});

    EXPECT_TRUE(monitor->Cargar());

    EXPECT_EQ(pasos, (QStringList{QStringLiteral("traducir"), QStringLiteral("icono"),
                                  QStringLiteral("columnas"), QStringLiteral("fast"),
                                  QStringLiteral("dades"), QStringLiteral("Monitor v26.5.1"),
                                  QStringLiteral("mostrar"), QStringLiteral("Address(127.0.0.1)"),
                                  QStringLiteral("SessionFlag(1)"), QStringLiteral("Connect()")}));
    EXPECT_EQ(LineasLog().first(), QStringLiteral("INICIADO"));
    EXPECT_TRUE(monitor->pulso.Armado());
    EXPECT_EQ(monitor->controles.Estado().lbContador, QStringLiteral("0 cobros"));
    EXPECT_TRUE(monitor->controles.Estado().ShapeOK);
    EXPECT_FALSE(monitor->controles.Estado().boton[7]);
    EXPECT_EQ(LeerValor(QStringLiteral("Saldo_Inicial")), QStringLiteral("5000"));
}

TEST_F(ArranqueTest, TheAccessButtonComesOnlyWithItsSetting) {
    EscribirIni("[ZVMONITOR]\r\nBOTONACCESO=1\r\n");
    PonerSaldo(5000);
    cliente.EsperaConnect();
    bool mostrado = false;
    monitor->arranque.PonerPasos({{}, {}, {}, [&] { mostrado = true; }});
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_TRUE(mostrado);
}

TEST_F(ArranqueTest, ASecondInstanceSaysSoAndTouchesNothing) {
    InstanciaUnica primera(carpeta.path());
    ASSERT_FALSE(primera.OtraInstancia());
    EscribirIni();
    dialogos.EsperaMensaje(
        QString(),
        QStringLiteral("ZVMonitor ya está funcionando y no puede ser ejecutado de nuevo"));
    EXPECT_FALSE(monitor->Cargar());
    EXPECT_FALSE(QFile::exists(carpeta.filePath(QStringLiteral("Debug"))));
    EXPECT_FALSE(QFile::exists(carpeta.filePath(QStringLiteral("ZVMonito2.mdb"))));
}

TEST_F(ArranqueTest, AFirstUseLeftWithoutSavingEndsTheProgram) {
    int abierta = 0;
    monitor->arranque.PonerPasos({[&] { ++abierta; }, {}, {}, {}});
    dialogos.EsperaMensaje(QStringLiteral("Iniciando..."),
                           QStringLiteral("Configura la aplicación para su primer uso"));
    dialogos.EsperaMensaje(
        QStringLiteral("Error de configuración"),
        QStringLiteral("No se han encontrado los datos de configuración de ZVMonitor"));
    EXPECT_FALSE(monitor->Cargar());
    EXPECT_EQ(abierta, 1);
    EXPECT_FALSE(QFile::exists(carpeta.filePath(QStringLiteral("ZVMonito2.mdb"))));
}

TEST_F(ArranqueTest, AFirstUseThatSavesGoesOn) {
    PonerSaldo(100);
    cliente.EsperaConnect();
    monitor->arranque.PonerPasos({[&] { EscribirIni(); }, {}, {}, {}});
    dialogos.EsperaMensaje(QStringLiteral("Iniciando..."), testing::_);
    EXPECT_TRUE(monitor->Cargar());
}

TEST_F(ArranqueTest, ALetterInANumericSettingEndsTheStartWithItsNumber) {
    EscribirIni("[ZVMONITOR]\r\nREFRESCO=x\r\n");
    dialogos.EsperaMensaje(QStringLiteral("Error al iniciar la aplicación"),
                           QStringLiteral("Error nº 13 - No coinciden los tipos"));
    EXPECT_FALSE(monitor->Cargar());
    EXPECT_FALSE(QFile::exists(carpeta.filePath(QStringLiteral("ZVMonito2.mdb"))));
}

TEST_F(ArranqueTest, AFailureOfAStepIsShownAndEndsTheStart) {
    EscribirIni();
    monitor->arranque.PonerPasos(
        {{}, [] { throw ErrorEjecucion(10048, QStringLiteral("Dirección en uso")); }, {}, {}});
    dialogos.EsperaMensaje(QStringLiteral("Error al iniciar la aplicación"),
                           QStringLiteral("Error nº 10048 - Dirección en uso"));
    EXPECT_FALSE(monitor->Cargar());
}

TEST_F(ArranqueTest, AFileThatIsNoDatabaseIsRefusedAndNeverTouched) {
    EscribirIni();
    const QString ruta = carpeta.filePath(QStringLiteral("ZVMonito2.mdb"));
    QByteArray contenido("\x00\x01\x00\x00Standard Jet DB\x00", 20);
    contenido.append(QByteArray(4096, '\x5a'));
    {
        QFile fichero(ruta);
        ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
        fichero.write(contenido);
    }
    dialogos.EsperaMensaje(
        QStringLiteral("Error de configuración"),
        QStringLiteral("Error al crear el fichero MDB, el archivo ya esta en uso"));
    dialogos.EsperaMensaje(
        QStringLiteral("Error de configuración"),
        QStringLiteral("Error al crear el fichero MDB, el archivo ya esta en uso"));
    dialogos.EsperaMensaje(QStringLiteral("Error de configuración"),
                           QStringLiteral("Revise el fichero LOG de la aplicación"));
    EXPECT_FALSE(monitor->Cargar());
    QFile fichero(ruta);
    ASSERT_TRUE(fichero.open(QIODevice::ReadOnly));
    EXPECT_EQ(fichero.readAll(), contenido);
    EXPECT_EQ(QDir(carpeta.path()).entryList({QStringLiteral("ZVMonito2.mdb?*")}).size(), 0);
    EXPECT_NE(LineasLog().join(QLatin1Char('\n')).indexOf(QStringLiteral("Access")), -1);
}

TEST_F(ArranqueTest, WithoutADeviceTheScreenOpensDisconnected) {
    EscribirIni();
    cliente.EsperaConnect(FinGuion::EnlacePerdido());
    dialogos.EsperaMensaje(QStringLiteral("Error de Zorvex"), testing::_);
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_FALSE(monitor->supervision.Conectado());
    EXPECT_TRUE(monitor->controles.Estado().boton[7]);
    EXPECT_FALSE(monitor->controles.Estado().boton[6]);
    EXPECT_TRUE(monitor->controles.Estado().ShapeCritico);
    EXPECT_TRUE(monitor->pulso.Armado());
}

TEST_F(ArranqueTest, TheBalancesAreComparedWithTheWindowShown) {
    EscribirIni();
    PonerSaldo(5000);
    cliente.PonerTotal(5001);
    cliente.EsperaConnect();
    dialogos.EsperaMensaje(QStringLiteral("Inicialización"), testing::_, resultado::kAceptar, -1,
                           [&] {
                               EXPECT_TRUE(ventana.llamadas.contains(QStringLiteral("mostrar")));
                               EXPECT_FALSE(monitor->pulso.Armado());
                           });
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_EQ(LeerValor(QStringLiteral("Saldo_Exit")), QStringLiteral("5001"));
}

TEST_F(ArranqueTest, AMinimisedStartNeedsAnEmptyQueue) {
    EscribirIni("[ZVMONITOR]\r\nMINIMIZADO=1\r\n");
    PonerSaldo(5000);
    cliente.EsperaConnect();
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_EQ(ventana.estado, ventana::kMinimizada);
}

TEST_F(ArranqueTest, AMinimisedStartWithRowsStaysOpen) {
    EscribirIni("[ZVMONITOR]\r\nMINIMIZADO=1\r\n");
    PonerFilaEnCola();
    PonerSaldo(5000);
    cliente.EsperaConnect();
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_EQ(ventana.estado, ventana::kNormal);
    EXPECT_EQ(monitor->controles.Estado().lbContador, QStringLiteral("1 cobros"));
}

TEST_F(ArranqueTest, OldLogsGoAtTheStart) {
    EscribirIni();
    QDir(carpeta.path()).mkdir(QStringLiteral("Debug"));
    const QString viejo = carpeta.filePath(QStringLiteral("Debug/ZVMonitor20260101.log"));
    QFile fichero(viejo);
    ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
    fichero.close();
    PonerSaldo(5000);
    cliente.EsperaConnect();
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_FALSE(QFile::exists(viejo));
}

TEST_F(ArranqueTest, TheUnloadStopsThePulseClearsTheMarkAndEndsTheConnector) {
    EscribirIni("[CONECTOR]\r\nZVConectorPath=/opt/conector/ZVConnector.exe\r\n"
                "ZVConectorActive=1\r\n");
    PonerSaldo(5000);
    procesos.enMarcha << QStringLiteral("ZVConnector.exe");
    cliente.EsperaConnect();
    EXPECT_TRUE(monitor->Cargar());
    monitor->marca.MarcarActivo(true);
    monitor->arranque.Descargar();
    EXPECT_FALSE(monitor->pulso.Armado());
    EXPECT_EQ(LeerValor(QStringLiteral("Activo")), QStringLiteral("0"));
    EXPECT_EQ(procesos.terminados, QStringList{QStringLiteral("ZVConnector.exe")});
    EXPECT_TRUE(monitor->supervision.Conectado()); // the device is not disconnected
}

TEST_F(ArranqueTest, TwoMonitorsLiveSideBySide) {
    QTemporaryDir otra;
    Opciones opciones = servicios->opciones;
    opciones.carpeta = otra.path();
    opciones.registro = otra.filePath(QStringLiteral("Registro"));
    opciones.fastDireccion = QStringLiteral("127.2.255.255");
    Servicios segundos(opciones, reloj);
    DeviceGuion segundoCliente;
    Importes segundosImportes(segundos.formato, [&] { return segundoCliente.Multiplier(); });
    Monitor segundo(segundos, segundosImportes,
                    Exterior{segundoCliente, dialogos, procesos, shell});
    VentanaFalsa segundaVentana;
    segundo.PonerVentana(segundaVentana);

    EscribirIni();
    QFile::copy(carpeta.filePath(QStringLiteral("ZVMonitor.ini")),
                otra.filePath(QStringLiteral("ZVMonitor.ini")));
    PonerSaldo(5000);
    cliente.EsperaConnect();
    segundoCliente.PonerTotal(0);
    segundoCliente.EsperaConnect();
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_TRUE(segundo.Cargar());
    segundo.estado.PulsarModo(1);
    EXPECT_EQ(monitor->configuracio->Modo, modo::kAuto);
    EXPECT_EQ(segundo.configuracio->Modo, modo::kManual);
}

} // namespace zv::test

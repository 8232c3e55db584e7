// Start-up and shutdown: the order of the steps, and every way in which a start ends early.
#include "BancoMonitor.h"
#include "app/PantallasCerradas.h"
#include "config/Modo.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/Esquema.h"

namespace zv::test {

class ArranqueTest : public BancoMonitor {
  protected:
    void PonerFilaEnCola() {
        SqliteEngine catalogo;
        CrearBaseDatos(catalogo, carpeta.path(), servicios->log, dialogos, servicios->textos);
        SqliteEngine otroSQLite;
        DatabaseEngine& otro = otroSQLite;
        otro.Abrir(CadenaConexion(u"MDB"_s, {}, carpeta.filePath(u"ZVMonito2.mdb"_s), {}, {}));
        otro.Ejecutar(u"INSERT INTO cola (importe,id1) VALUES (900,'POS')"_s);
    }
};

TEST_F(ArranqueTest, TheLoadGoesThroughItsStepsInOrder) {
    EscribirIni("[ZORVEX]\r\nIP=127.0.0.1\r\n[ZVMONITOR]\r\nBOTONACCESO=1\r\n[CONECTOR]\r\n"
                "ZVConectorActive=1\r\nZVConectorPath=/opt/ZVConnector\r\n");
    PonerSaldo(5000);
    procesos.enMarcha << u"ZVConnector"_s;
    QStringList pasos;
    ventana.alLlamar = [&](const QString& paso) {
        pasos << paso;
        const bool hayEsquema = QFile::exists(carpeta.filePath(u"ZVMonito2.mdb"_s));
        EXPECT_EQ(hayEsquema, pasos.contains(u"conector"_s)) << paso.toStdString();
        EXPECT_EQ(Database().Abierta(), pasos.contains(u"conector"_s)) << paso.toStdString();
    };
    procesos.alContar = [&] {
        pasos << u"conector"_s;
        // The schema stands and the fast link listens, but the monitor's own connection is closed.
        EXPECT_TRUE(QFile::exists(carpeta.filePath(u"ZVMonito2.mdb"_s)));
        EXPECT_TRUE(monitor->Fast().WS().Escuchando());
        EXPECT_FALSE(Database().Abierta());
    };
    cliente.AlLlamar([&](const QString& paso) { pasos << paso; });
    cliente.EsperaConnect();
    pantallas.EsperaAbrir(Pantalla::BotonAcceso, [&] {
        pasos << u"botón de acceso"_s;
        EXPECT_FALSE(Pulso().Armado());
    });

    EXPECT_TRUE(monitor->Cargar());

    EXPECT_EQ(pasos, (QStringList{u"traducir"_s, u"icono"_s, u"columnas"_s, u"conector"_s,
                                  u"Monitor v26.5.1"_s, u"mostrar"_s, u"Address(127.0.0.1)"_s,
                                  u"SessionFlag(1)"_s, u"Connect()"_s, u"botón de acceso"_s}));
    EXPECT_EQ(LineasLog().first(), u"INICIADO"_s);
    EXPECT_TRUE(Pulso().Armado());
    EXPECT_EQ(Controles().lbContador, u"0 cobros"_s);
    EXPECT_TRUE(Controles().ShapeOK);
    EXPECT_FALSE(Controles().boton[BotonPie::Conectar]);
    EXPECT_EQ(LeerValor(u"Saldo_Inicial"_s), u"5000"_s);
}

TEST_F(ArranqueTest, TheAccessButtonComesOnlyWithExactlyOne) {
    for (const char* valor : {"0", "2"}) {
        EscribirIni(QByteArray("[ZVMONITOR]\r\nBOTONACCESO=") + valor + "\r\n");
        PonerSaldo(5000);
        cliente.EsperaConnect();
        EXPECT_TRUE(monitor->Cargar());
        EXPECT_TRUE(pantallas.Llamadas().isEmpty()) << valor;
        Montar();
    }
}

TEST_F(ArranqueTest, ASecondInstanceSaysSoAndTouchesNothing) {
    SingleInstance primera(carpeta.path());
    ASSERT_FALSE(primera.OtraInstancia());
    EscribirIni();
    dialogos.EsperaMensaje(QString(),
                           u"ZVMonitor ya está funcionando y no puede ser ejecutado de nuevo"_s);
    EXPECT_FALSE(monitor->Cargar());
    EXPECT_FALSE(QFile::exists(carpeta.filePath(u"Debug"_s)));
    EXPECT_FALSE(QFile::exists(carpeta.filePath(u"ZVMonito2.mdb"_s)));
}

TEST_F(ArranqueTest, AFirstUseLeftWithoutSavingEndsTheProgram) {
    dialogos.EsperaMensaje(u"Iniciando..."_s, u"Configura la aplicación para su primer uso"_s);
    pantallas.EsperaAbrir(Pantalla::Configuracion,
                          [&] { EXPECT_EQ(dialogos.Llamadas().size(), 1); });
    dialogos.EsperaMensaje(u"Error de configuración"_s,
                           u"No se han encontrado los datos de configuración de ZVMonitor"_s);
    EXPECT_FALSE(monitor->Cargar());
    EXPECT_FALSE(QFile::exists(carpeta.filePath(u"ZVMonito2.mdb"_s)));
}

TEST_F(ArranqueTest, AFirstUseThatSavesGoesOn) {
    PonerSaldo(100);
    cliente.EsperaConnect();
    pantallas.EsperaAbrir(Pantalla::Configuracion, [&] { EscribirIni(); });
    dialogos.EsperaMensaje(u"Iniciando..."_s, testing::_);
    EXPECT_TRUE(monitor->Cargar());
}

TEST_F(ArranqueTest, ALetterInANumericSettingEndsTheStartWithItsNumber) {
    EscribirIni("[ZVMONITOR]\r\nREFRESCO=x\r\n");
    dialogos.EsperaMensaje(u"Error al iniciar la aplicación"_s,
                           u"Error nº 13 - No coinciden los tipos"_s);
    EXPECT_FALSE(monitor->Cargar());
    EXPECT_FALSE(QFile::exists(carpeta.filePath(u"ZVMonito2.mdb"_s)));
}

TEST_F(ArranqueTest, AFileThatIsNoDatabaseIsRefusedAndNeverTouched) {
    EscribirIni();
    const QString ruta = carpeta.filePath(u"ZVMonito2.mdb"_s);
    QByteArray contenido("\x00\x01\x00\x00Standard Jet DB\x00", 20);
    contenido.append(QByteArray(4096, '\x5a'));
    {
        QFile fichero(ruta);
        ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
        fichero.write(contenido);
    }
    dialogos.EsperaMensaje(u"Error de configuración"_s,
                           u"Error al crear el fichero MDB, el archivo ya esta en uso"_s);
    dialogos.EsperaMensaje(u"Error de configuración"_s,
                           u"Error al crear el fichero MDB, el archivo ya esta en uso"_s);
    dialogos.EsperaMensaje(u"Error de configuración"_s,
                           u"Revise el fichero LOG de la aplicación"_s);
    EXPECT_FALSE(monitor->Cargar());
    QFile fichero(ruta);
    ASSERT_TRUE(fichero.open(QIODevice::ReadOnly));
    EXPECT_EQ(fichero.readAll(), contenido);
    EXPECT_EQ(QDir(carpeta.path()).entryList({u"ZVMonito2.mdb?*"_s}).size(), 0);
    EXPECT_NE(LineasLog().join(QLatin1Char('\n')).indexOf(u"Access"_s), -1);
}

TEST_F(ArranqueTest, WithoutADeviceTheScreenOpensDisconnected) {
    EscribirIni();
    cliente.EsperaConnect(FinGuion::EnlacePerdido());
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, testing::_);
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_FALSE(Supervision().Conectado());
    EXPECT_TRUE(Controles().boton[BotonPie::Conectar]);
    EXPECT_FALSE(Controles().boton[BotonPie::Desconectar]);
    EXPECT_TRUE(Controles().ShapeCritico);
    EXPECT_TRUE(Pulso().Armado());
}

TEST_F(ArranqueTest, TheBalancesAreComparedWithTheWindowShown) {
    EscribirIni();
    PonerSaldo(5000);
    cliente.PonerTotal(5001);
    cliente.EsperaConnect();
    dialogos.EsperaMensaje(u"Inicialización"_s, testing::_, Respuesta::Aceptar, std::nullopt, [&] {
        EXPECT_TRUE(ventana.llamadas.contains(u"mostrar"_s));
        EXPECT_FALSE(Pulso().Armado());
    });
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_EQ(LeerValor(u"Saldo_Exit"_s), u"5001"_s);
}

TEST_F(ArranqueTest, AMinimisedStartNeedsAnEmptyQueue) {
    EscribirIni("[ZVMONITOR]\r\nMINIMIZADO=1\r\n");
    PonerSaldo(5000);
    cliente.EsperaConnect();
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_EQ(ventana.estado, ventana::kMinimizada);
}

TEST_F(ArranqueTest, OnlyExactlyOneStartsMinimised) {
    for (const char* valor : {"0", "2", "255"}) {
        EscribirIni(QByteArray("[ZVMONITOR]\r\nMINIMIZADO=") + valor + "\r\n");
        PonerSaldo(5000);
        cliente.EsperaConnect();
        EXPECT_TRUE(monitor->Cargar());
        EXPECT_EQ(ventana.estado, ventana::kNormal) << valor;
        // Nor does the pulse of an empty queue bring the window down.
        Pulso().ProcesarCola();
        EXPECT_EQ(ventana.estado, ventana::kNormal) << valor;
        Montar();
    }
}

TEST_F(ArranqueTest, AMinimisedStartWithRowsStaysOpen) {
    EscribirIni("[ZVMONITOR]\r\nMINIMIZADO=1\r\n");
    PonerFilaEnCola();
    PonerSaldo(5000);
    cliente.EsperaConnect();
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_EQ(ventana.estado, ventana::kNormal);
    EXPECT_EQ(Controles().lbContador, u"1 cobros"_s);
}

TEST_F(ArranqueTest, OldLogsGoAtTheStart) {
    EscribirIni();
    QDir(carpeta.path()).mkdir(u"Debug"_s);
    const QString viejo = carpeta.filePath(u"Debug/ZVMonitor20260101.log"_s);
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
    procesos.enMarcha << u"ZVConnector.exe"_s;
    cliente.EsperaConnect();
    EXPECT_TRUE(monitor->Cargar());
    monitor->Partes().entorno.marca.MarcarActivo(true);
    monitor->Descargar();
    EXPECT_FALSE(Pulso().Armado());
    EXPECT_EQ(LeerValor(u"Activo"_s), u"0"_s);
    EXPECT_EQ(procesos.terminados, QStringList{u"ZVConnector.exe"_s});
    EXPECT_TRUE(Supervision().Conectado()); // the device is not disconnected
}

TEST_F(ArranqueTest, AMonitorThatIsStoppedByAFailureKeepsNobodyFromTheDatabase) {
    EscribirIni("[CONECTOR]\r\nZVConectorActive=0\r\n");
    PonerSaldo(5000);
    cliente.EsperaConnect();
    EXPECT_TRUE(monitor->Cargar());
    PonerFilaEnCola();
    monitor->Partes().entorno.marca.MarcarActivo(true);
    Database().Comenzar();
    Database().Ejecutar(u"DELETE FROM cola"_s);
    monitor->Detener();
    EXPECT_FALSE(monitor->Partes().entorno.transacciones.HayNivelAbierto());
    EXPECT_EQ(Database().Consultar(u"SELECT * FROM cola"_s).size(), 1U);
    EXPECT_FALSE(Pulso().Armado());
    EXPECT_EQ(LeerValor(u"Activo"_s), u"0"_s);
}

TEST_F(ArranqueTest, TwoMonitorsLiveSideBySide) {
    QTemporaryDir otra;
    Opciones opciones = OpcionesPropias();
    opciones.carpeta = otra.path();
    opciones.registro = otra.filePath(u"Registro"_s);
    opciones.fastDireccion = u"127.2.255.255"_s;
    Servicios segundos(opciones, reloj);
    DeviceGuion segundoCliente;
    Monitor segundo(segundos, Exterior{segundoCliente, dialogos, procesos, shell, pantallas});
    VentanaFalsa segundaVentana;
    segundo.PonerVentana(segundaVentana);

    EscribirIni();
    QFile::copy(carpeta.filePath(u"ZVMonitor.ini"_s), otra.filePath(u"ZVMonitor.ini"_s));
    PonerSaldo(5000);
    cliente.EsperaConnect();
    segundoCliente.PonerTotal(0);
    segundoCliente.EsperaConnect();
    EXPECT_TRUE(monitor->Cargar());
    EXPECT_TRUE(segundo.Cargar());
    segundo.Partes().estado.PulsarModo(1);
    EXPECT_EQ(Ajustes().Modo, modo::kAuto);
    EXPECT_EQ(segundo.Partes().entorno.configuracio->Modo, modo::kManual);
}

TEST(PantallasCerradas, LeaveOnlyTheConnectionToTheFooter) {
    PantallasCerradas cerradas;
    for (const Pantalla pantalla :
         {Pantalla::Cobros, Pantalla::Incidencias, Pantalla::Caja, Pantalla::Configuracion,
          Pantalla::CambioContrasena, Pantalla::Usuarios, Pantalla::BotonAcceso}) {
        EXPECT_FALSE(cerradas.Existe(pantalla));
        cerradas.Abrir(pantalla);
    }
    EXPECT_FALSE(cerradas.ValidarUsuari(2, u"authCobro"_s));
}

} // namespace zv::test

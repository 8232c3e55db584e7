// Starts over settings, registry and log that are damaged or closed to the program: what is told,
// and that queue and books stay as they were.
#include "BancoMonitor.h"
#include "store/Esquema.h"
#include "support/ClavesNumericas.h"
#include "support/NumeroError.h"
#include "support/SinPrivilegios.h"

#include <QDateTime>

#include <sys/stat.h>

namespace zv::test {
namespace {

class AjustesMalosTest : public BancoMonitor {
  protected:
    AjustesMalosTest() {
        MotorSQLite sqlite;
        CrearBaseDatos(sqlite, carpeta.path(), servicios->log, dialogos, servicios->textos);
        MotorSQLite otro;
        MotorBD& motor = otro;
        motor.Abrir(CadenaConexion(QStringLiteral("MDB"), {}, Ruta("ZVMonito2.mdb"), {}, {}));
        motor.Ejecutar(QStringLiteral("INSERT INTO cola (fecha,importe,id1) VALUES "
                                      "('2026-03-14 10:20:30',900,'POS')"));
        motor.Ejecutar(QStringLiteral("INSERT INTO procesados (importeVenta,id1,estado) VALUES "
                                      "(500,'ANTES','OK')"));
        motor.Cerrar();
        QDir(Ruta("Debug")).removeRecursively();
        libros_ = Libros();
    }

    QString Ruta(const char* nombre) const { return carpeta.filePath(QString::fromUtf8(nombre)); }
    void Pon(const QString& nombre, const QByteArray& bytes) const {
        const QString ruta = carpeta.filePath(nombre);
        QDir().mkpath(QFileInfo(ruta).path());
        QFile fichero(ruta);
        ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
        fichero.write(bytes);
    }
    void PonRegistro(const char* valor, const QByteArray& bytes) const {
        Pon(QStringLiteral("Registro/HKLM/Software/Zorvex/ZVMonitor/") + QString::fromUtf8(valor),
            bytes);
    }
    void PonCarpetaEnRegistro(const char* valor) const {
        ASSERT_TRUE(QDir().mkpath(Ruta("Registro/HKLM/Software/Zorvex/ZVMonitor/") +
                                  QString::fromUtf8(valor)));
    }
    void Protege(const QString& ruta, mode_t modo) const {
        ASSERT_EQ(::chmod(QFile::encodeName(ruta).constData(), modo), 0) << ruta.toStdString();
    }
    // The rows of queue and books as one text.
    QString Libros() const {
        MotorSQLite sqlite;
        MotorBD& motor = sqlite;
        motor.Abrir(CadenaConexion(QStringLiteral("MDB"), {}, Ruta("ZVMonito2.mdb"), {}, {}));
        QString todo;
        for (const Fila& fila : motor.Consultar(QStringLiteral("SELECT * FROM cola"))) {
            todo += fila.LeerTexto(QStringLiteral("id1")) + u' ' +
                    fila.LeerTexto(QStringLiteral("importe")) + u'|';
        }
        for (const Fila& fila : motor.Consultar(QStringLiteral("SELECT * FROM procesados"))) {
            todo += fila.LeerTexto(QStringLiteral("id1")) + u' ' +
                    fila.LeerTexto(QStringLiteral("estado")) + u'|';
        }
        motor.Cerrar();
        return todo;
    }
    void ElArranqueFallaCon(const char* texto) {
        dialogos.EsperaMensaje(QStringLiteral("Error al iniciar la aplicación"),
                               QString::fromUtf8(texto), resultado::kAceptar, 0);
        EXPECT_FALSE(monitor->Cargar());
        EXPECT_FALSE(monitor->pulso.Armado());
        EXPECT_FALSE(monitor->motor.Abierta());
        EXPECT_TRUE(cliente.Llamadas().isEmpty());
        EXPECT_EQ(Libros(), libros_);
    }
    void ArrancaYSigueIgual() {
        EXPECT_TRUE(monitor->Cargar());
        EXPECT_TRUE(monitor->pulso.Armado());
        EXPECT_EQ(dialogos.Pendientes(), 0U);
        EXPECT_EQ(Libros(), libros_);
    }

    QString libros_;
};

class AjusteConLetra : public AjustesMalosTest,
                       public testing::WithParamInterface<ClaveNumerica> {};

TEST_P(AjusteConLetra, EndsTheStartWithItsNumber) {
    EscribirIni(QByteArray("[ZORVEX]\r\nIP=127.0.0.1\r\n[") + GetParam().seccion + "]\r\n" +
                GetParam().clave + "=x\r\n");
    ElArranqueFallaCon("Error nº 13 - No coinciden los tipos");
}

INSTANTIATE_TEST_SUITE_P(Todas, AjusteConLetra, testing::ValuesIn(kClavesNumericas),
                         [](const auto& caso) { return std::string(caso.param.clave); });

TEST_F(AjustesMalosTest, ANumberTooBigForItsKeyEndsTheStartWithItsNumber) {
    EscribirIni("[ZVMONITOR]\r\nMINIMIZADO=256\r\n");
    ElArranqueFallaCon("Error nº 6 - Desbordamiento");
}

TEST_F(AjustesMalosTest, AFileThatCannotBeReadIsToldAndTakenAsAFirstUse) {
    ASSERT_TRUE(QDir(carpeta.path()).mkdir(QStringLiteral("ZVMonitor.ini")));
    int abierta = 0;
    monitor->arranque.PonerPasos({[&] { ++abierta; }, {}, {}, {}});
    const QString motivo =
        QStringLiteral("Error nº 75: Error de acceso a la ruta o al archivo: %1 (es una carpeta)")
            .arg(Ruta("ZVMonitor.ini"));
    const QString titulo = QStringLiteral("Error al leer el fichero de configuración");
    dialogos.EsperaMensaje(titulo, motivo);
    dialogos.EsperaMensaje(QStringLiteral("Iniciando..."),
                           QStringLiteral("Configura la aplicación para su primer uso"));
    dialogos.EsperaMensaje(titulo, motivo);
    dialogos.EsperaMensaje(
        QStringLiteral("Error de configuración"),
        QStringLiteral("No se han encontrado los datos de configuración de ZVMonitor"));
    EXPECT_FALSE(monitor->Cargar());
    EXPECT_EQ(abierta, 1);
    EXPECT_EQ(Libros(), libros_);
}

TEST_F(AjustesMalosTest, AnEmptyFileStartsWithTheDefaults) {
    EscribirIni("");
    PonerSaldo(5000);
    cliente.EsperaConnect();
    ArrancaYSigueIgual();
    EXPECT_EQ(monitor->configuracio->Modo, QStringLiteral("AUTO"));
}

// Numbers are read in the region that the program was started with, whatever the machine's is.
TEST_F(AjustesMalosTest, NumbersAreReadInTheRegionOfTheProgram) {
    Opciones opciones = servicios->opciones;
    opciones.region = QStringLiteral("en_US");
    monitor.reset();
    servicios = std::make_unique<Servicios>(opciones, reloj);
    importes =
        std::make_unique<Importes>(servicios->formato, [this] { return cliente.Multiplier(); });
    monitor = std::make_unique<Monitor>(*servicios, *importes,
                                        Exterior{cliente, dialogos, procesos, shell});
    monitor->PonerVentana(ventana);
    EscribirIni("[ZVMONITOR]\r\nREFRESCO=7.0\r\nMINIMIZADO=0.4\r\n");
    PonerSaldo(5000);
    cliente.EsperaConnect();
    ArrancaYSigueIgual();
    EXPECT_EQ(monitor->configuracio->REFRESCO, 7);
}

TEST_F(AjustesMalosTest, OnlyExactlyOneDropsTheTimeOfTheQueue) {
    for (const auto& [valor, fecha] :
         {std::pair{"0", "14/03/26 10:20:30"}, {"1", "14/03/26"}, {"2", "14/03/26 10:20:30"}}) {
        EscribirIni(QByteArray("[ZVMONITOR]\r\nMODO=MANUAL\r\nSINHORA=") + valor + "\r\n");
        PonerSaldo(5000);
        cliente.EsperaConnect();
        ArrancaYSigueIgual();
        EXPECT_EQ(monitor->grid.Linea(1).fecha, QString::fromUtf8(fecha)) << valor;
        Montar();
    }
}

TEST_F(AjustesMalosTest, ABalanceThatIsNoNumberEndsTheStart) {
    EscribirIni();
    PonRegistro("Saldo_Exit", "mil");
    ElArranqueFallaCon("Error nº 13 - No coinciden los tipos");
}

TEST_F(AjustesMalosTest, WithoutARegistryTreeTheBalanceHasVariedFromZero) {
    EscribirIni();
    cliente.PonerTotal(5000);
    cliente.EsperaConnect();
    dialogos.EsperaMensaje(QStringLiteral("Inicialización"),
                           testing::Truly([](const QString& texto) {
                               return texto.contains(QStringLiteral("Registrado: 0,00 €")) ||
                                      texto.contains(QStringLiteral("Registrado:0,00 €"));
                           }));
    ArrancaYSigueIgual();
    EXPECT_EQ(LeerValor(QStringLiteral("Saldo_Exit")), QStringLiteral("5000"));
    EXPECT_EQ(LeerValor(QStringLiteral("Saldo_Inicial")), QStringLiteral("5000"));
}

TEST_F(AjustesMalosTest, FoldersInThePlaceOfValuesAreMissingValues) {
    EscribirIni();
    for (const char* valor : {"Saldo_Exit", "Saldo_Inicial", "Activo", "CLAVE_ADMIN"}) {
        PonCarpetaEnRegistro(valor);
    }
    cliente.PonerTotal(5000);
    cliente.EsperaConnect();
    dialogos.EsperaMensaje(QStringLiteral("Inicialización"), testing::_);
    ArrancaYSigueIgual();
    EXPECT_EQ(monitor->configuracio->CLAVE_ADMIN, QString());
    monitor->marca.MarcarActivo(true);
    monitor->arranque.Descargar();
    EXPECT_TRUE(QFileInfo(Ruta("Registro/HKLM/Software/Zorvex/ZVMonitor/Saldo_Exit")).isDir());
    EXPECT_TRUE(QFileInfo(Ruta("Registro/HKLM/Software/Zorvex/ZVMonitor/Activo")).isDir());
}

TEST_F(AjustesMalosTest, AReadOnlyRegistryIsReadAndKeepsItsValues) {
    EscribirIni();
    PonRegistro("Saldo_Exit", "5000");
    PonRegistro("Saldo_Inicial", "100");
    PonRegistro("Activo", "1");
    const QString clave = Ruta("Registro/HKLM/Software/Zorvex/ZVMonitor");
    for (const char* valor : {"Saldo_Exit", "Saldo_Inicial", "Activo"}) {
        Protege(clave + u'/' + QString::fromUtf8(valor), 0444);
    }
    cliente.PonerTotal(4000);
    cliente.EsperaConnect();
    dialogos.EsperaMensaje(QStringLiteral("Inicialización"), testing::_);
    ArrancaYSigueIgual();
    monitor->arranque.Descargar();
    EXPECT_EQ(LeerValor(QStringLiteral("Saldo_Exit")), QStringLiteral("5000"));
    EXPECT_EQ(LeerValor(QStringLiteral("Saldo_Inicial")), QStringLiteral("100"));
    EXPECT_EQ(LeerValor(QStringLiteral("Activo")), QStringLiteral("1"));
}

// A line before the load's own handler: the last resort of the program tells it.
TEST_F(AjustesMalosTest, AReadOnlyLogFolderEndsTheStartWithItsNumber) {
    EscribirIni();
    ASSERT_TRUE(QDir(carpeta.path()).mkdir(QStringLiteral("Debug")));
    Protege(carpeta.path(), 0755);
    Protege(Ruta("Debug"), 0555);
    int numero = 0;
    {
        const SinPrivilegios nadie;
        numero = NumeroError([&] { monitor->Cargar(); });
    }
    Protege(Ruta("Debug"), 0755);
    EXPECT_EQ(numero, 70);
    EXPECT_TRUE(cliente.Llamadas().isEmpty());
    EXPECT_EQ(Libros(), libros_);
}

} // namespace
} // namespace zv::test

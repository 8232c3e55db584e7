// Starts over settings, registry and log that are damaged or closed to the program: what is told,
// and that queue and books stay as they were.
#include "BancoMonitor.h"
#include "platform/StringLiterals.h"
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
        SqliteEngine sqlite;
        CrearBaseDatos(sqlite, carpeta.path(), servicios->log, dialogos, servicios->textos);
        SqliteEngine otro;
        DatabaseEngine& motor = otro;
        motor.Abrir(CadenaConexion(u"MDB"_s, {}, Ruta("ZVMonito2.mdb"), {}, {}));
        motor.Ejecutar(u"INSERT INTO cola (fecha,importe,id1) VALUES "
                       "('2026-03-14 10:20:30',900,'POS')"_s);
        motor.Ejecutar(u"INSERT INTO procesados (importeVenta,id1,estado) VALUES "
                       "(500,'ANTES','OK')"_s);
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
        Pon(u"Registro/HKLM/Software/Zorvex/ZVMonitor/"_s + QString::fromUtf8(valor), bytes);
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
        SqliteEngine sqlite;
        DatabaseEngine& motor = sqlite;
        motor.Abrir(CadenaConexion(u"MDB"_s, {}, Ruta("ZVMonito2.mdb"), {}, {}));
        QString todo;
        for (const Row& fila : motor.Consultar(u"SELECT * FROM cola"_s)) {
            todo += fila.LeerTexto(u"id1"_s) + u' ' + fila.LeerTexto(u"importe"_s) + u'|';
        }
        for (const Row& fila : motor.Consultar(u"SELECT * FROM procesados"_s)) {
            todo += fila.LeerTexto(u"id1"_s) + u' ' + fila.LeerTexto(u"estado"_s) + u'|';
        }
        motor.Cerrar();
        return todo;
    }
    void ElArranqueFallaCon(const char* texto) {
        dialogos.EsperaMensaje(u"Error al iniciar la aplicación"_s, QString::fromUtf8(texto),
                               Respuesta::Aceptar, EstiloMensaje::Aceptar);
        EXPECT_FALSE(monitor->Cargar());
        EXPECT_FALSE(Pulso().Armado());
        EXPECT_FALSE(Database().Abierta());
        EXPECT_TRUE(cliente.Llamadas().isEmpty());
        EXPECT_EQ(Libros(), libros_);
    }
    void ArrancaYSigueIgual() {
        EXPECT_TRUE(monitor->Cargar());
        EXPECT_TRUE(Pulso().Armado());
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

INSTANTIATE_TEST_SUITE_P(Todas, AjusteConLetra, testing::ValuesIn(test::ClavesNumericas()),
                         [](const auto& caso) { return std::string(caso.param.clave); });

TEST_F(AjustesMalosTest, ANumberTooBigForItsKeyEndsTheStartWithItsNumber) {
    EscribirIni("[ZVMONITOR]\r\nMINIMIZADO=256\r\n");
    ElArranqueFallaCon("Error nº 6 - Desbordamiento");
}

TEST_F(AjustesMalosTest, AFileThatCannotBeReadIsToldAndTakenAsAFirstUse) {
    ASSERT_TRUE(QDir(carpeta.path()).mkdir(u"ZVMonitor.ini"_s));
    const QString motivo =
        u"Error nº 75: Error de acceso a la ruta o al archivo: %1 (es una carpeta)"_s.arg(
            Ruta("ZVMonitor.ini"));
    const QString titulo = u"Error al leer el fichero de configuración"_s;
    dialogos.EsperaMensaje(titulo, motivo);
    dialogos.EsperaMensaje(u"Iniciando..."_s, u"Configura la aplicación para su primer uso"_s);
    dialogos.EsperaMensaje(titulo, motivo);
    dialogos.EsperaMensaje(u"Error de configuración"_s,
                           u"No se han encontrado los datos de configuración de ZVMonitor"_s);
    pantallas.EsperaAbrir(Pantalla::Configuracion);
    EXPECT_FALSE(monitor->Cargar());
    EXPECT_EQ(Libros(), libros_);
}

TEST_F(AjustesMalosTest, AnEmptyFileStartsWithTheDefaults) {
    EscribirIni("");
    PonerSaldo(5000);
    cliente.EsperaConnect();
    ArrancaYSigueIgual();
    EXPECT_EQ(Ajustes().Modo, u"AUTO"_s);
}

// Numbers are read in the region that the program was started with, whatever the machine's is.
TEST_F(AjustesMalosTest, NumbersAreReadInTheRegionOfTheProgram) {
    Opciones opciones = OpcionesPropias();
    opciones.region = u"en_US"_s;
    Montar(opciones);
    EscribirIni("[ZVMONITOR]\r\nREFRESCO=7.0\r\nMINIMIZADO=0.4\r\n");
    PonerSaldo(5000);
    cliente.EsperaConnect();
    ArrancaYSigueIgual();
    EXPECT_EQ(Ajustes().REFRESCO, 7);
}

TEST_F(AjustesMalosTest, OnlyExactlyOneDropsTheTimeOfTheQueue) {
    for (const auto& [valor, fecha] :
         {std::pair{"0", "14/03/26 10:20:30"}, {"1", "14/03/26"}, {"2", "14/03/26 10:20:30"}}) {
        EscribirIni(QByteArray("[ZVMONITOR]\r\nMODO=MANUAL\r\nSINHORA=") + valor + "\r\n");
        PonerSaldo(5000);
        cliente.EsperaConnect();
        ArrancaYSigueIgual();
        EXPECT_EQ(Grid().Celdas().Texto(1, ColumnaCola::Fecha), QString::fromUtf8(fecha)) << valor;
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
    dialogos.EsperaMensaje(u"Inicialización"_s, testing::Truly([](const QString& texto) {
                               return texto.contains(u"Registrado: 0,00 €"_s) ||
                                      texto.contains(u"Registrado:0,00 €"_s);
                           }));
    ArrancaYSigueIgual();
    EXPECT_EQ(LeerValor(u"Saldo_Exit"_s), u"5000"_s);
    EXPECT_EQ(LeerValor(u"Saldo_Inicial"_s), u"5000"_s);
}

TEST_F(AjustesMalosTest, FoldersInThePlaceOfValuesAreMissingValues) {
    EscribirIni();
    for (const char* valor : {"Saldo_Exit", "Saldo_Inicial", "Activo", "CLAVE_ADMIN"}) {
        PonCarpetaEnRegistro(valor);
    }
    cliente.PonerTotal(5000);
    cliente.EsperaConnect();
    dialogos.EsperaMensaje(u"Inicialización"_s, testing::_);
    ArrancaYSigueIgual();
    EXPECT_EQ(Ajustes().CLAVE_ADMIN, QString());
    monitor->Partes().entorno.marca.MarcarActivo(true);
    monitor->Descargar();
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
    dialogos.EsperaMensaje(u"Inicialización"_s, testing::_);
    ArrancaYSigueIgual();
    monitor->Descargar();
    EXPECT_EQ(LeerValor(u"Saldo_Exit"_s), u"5000"_s);
    EXPECT_EQ(LeerValor(u"Saldo_Inicial"_s), u"100"_s);
    EXPECT_EQ(LeerValor(u"Activo"_s), u"1"_s);
}

// A line before the load's own handler: the last resort of the program tells it.
TEST_F(AjustesMalosTest, AReadOnlyLogFolderEndsTheStartWithItsNumber) {
    EscribirIni();
    ASSERT_TRUE(QDir(carpeta.path()).mkdir(u"Debug"_s));
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

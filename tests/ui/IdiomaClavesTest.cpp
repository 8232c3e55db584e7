// The English language file that comes with the program holds every key that the code asks for.
#include "platform/StringLiterals.h"
#include "support/ClavesDelCodigo.h"
#include "support/IdiomaIngles.h"

#include <QStringList>

namespace zv::test {
namespace {

// The keys that the program asks for in the section COMMON.
constexpr auto kClaves =
    "abonoAgrupado abonoManual abonoPendiente abonos abonos2 abonoVenta ajustePorDescuadre "
    "al anulacionCancelada anulacionCancelada2 anular anularMovimiento arqueoCaja atencion "
    "añadirCambioAnulado añadirCambioCancelado billetes billetes2 boton_0 btnModo_0 "
    "btnModo_1 caja2 cajon2 cambiAñadido cambio cambioCancelado cerrar0 cerrar1 cierre2 "
    "cierreCaja0 cierreCaja1 cierreDeCaja cierreDeCaja2 cierreDeCaja2b cierreDeCaja3 "
    "zvMonitorYaEjecutado cobrado cobroAgrupado cobroAnulado cobroManual cobroManual2 "
    "cobroManualAnulado cobros cobros2 cobroVenta concepto concepto2 conceptoCobroManual "
    "conectorNoCargado conectorNoDisponible conexionEstablecida conflictoOperacion "
    "consulteConSuTecnico contraseñaIncorrecta0 contraseñaIncorrecta1 contraseñaIncorrecta2 "
    "crearUsuario0 crearUsuario1 crearUsuario3 crearUsuario4 darCambioAnulado descartar "
    "descartarIncidencias descartarIncidencias2 descuadreDetectado descuadreDetectado2 "
    "descuadreDetectado3 deseaEliminarIncidencia deseaGuardar deseaReenviarOperacion "
    "deseaSalir eliminarAccesos eliminarAccesos1 enviar error errorAlProcesarOperacion "
    "errorAlRecuperarSaldo errorBorrarUsuario0 errorBorrarUsuario1 errorCierre "
    "errorConectarZorvex errorConfiguracion errorConfiguracion2 errorConfiguracion4 "
    "errorConfiguracion5 errorConfiguracion6 errorConfiguracionCodigoBarras errorDeZorvex "
    "errorDeZorvex2 errorDeZorvex3 errorDeConfiguracion errorDeConfiguracion3 errorDeInicio "
    "errorGuardarUsuario0 errorGuardarUsuario1 errorImporteCodigoBarras "
    "errorLongitudCodigoBarras errorMDB errorRecuperarDatos errorRecuperarNiveles estado "
    "exploradorWindows1 exportar0 exportar1 fecha2 fechaAcceso fechaVenta formapago fPago "
    "guardarUsuario0 identificacion idVenta importe importe2 ingresos2 inicial2 "
    "inicializacion inicializacion2 iniciando introduzcaCausa introduzcaImporte "
    "limiarHistorial limpiarHistorial lugar modificarContraseña monedas monedas2 "
    "movimientosDeCajaDel movimientosDeCajaHasta noHayMovimientosParaImprimir "
    "NoSePuedeConectar noSePuedeRealizarCobroManual operacionAnulada operacionCancelada "
    "operacionCancelada2 operacionNoAutomatica operacionNoReenviada operacionYaReenviada "
    "pagado pago pago11 pago12 pagoAnulado pagoAnulado2 pagos2 primerUso problemaAgrupacion "
    "problemaComunicacion recuerdeVaciarCB reenviar registroAccesos registroCobros "
    "registroIncidencias retireElCambio retireElCambio2 retireElCambio3 saldo2 saldoActual "
    "saldoZV2 sinConexion sinDatos terminal terminal2 totalAbonos totalCobros "
    "ultimoSaldoRegistrado usuario vaciado vaciadoCajones vendedor vendedor2 venta2";

class IdiomaClavesTest : public testing::Test {
  protected:
    bool Tiene(const QString& seccion, const QString& clave) const {
        const auto valor = idioma_.documento.Valor(seccion, clave);
        return valor && !valor->isEmpty();
    }

    IdiomaIngles idioma_;
    ClavesDelCodigo codigo_ =
        ClavesDelCodigo::Leer(QString::fromUtf8(QT_TESTCASE_SOURCEDIR "/../src"));
};

TEST_F(IdiomaClavesTest, EveryKnownKeyHasItsText) {
    for (const QString& clave : QString::fromUtf8(kClaves).split(QLatin1Char(' '))) {
        EXPECT_TRUE(Tiene(u"COMMON"_s, clave)) << clave.toStdString();
    }
}

TEST_F(IdiomaClavesTest, EveryKeyOfTheSourcesHasItsText) {
    for (const auto& [clave, fichero] : codigo_.claves) {
        EXPECT_TRUE(Tiene(clave.first, clave.second))
            << fichero.toStdString() << ": " << clave.first.toStdString() << " "
            << clave.second.toStdString();
    }
}

TEST_F(IdiomaClavesTest, NoKeyIsMadeAtRunTime) {
    EXPECT_TRUE(codigo_.comienzos.empty());
}

// A key that goes through a variable or a helper of its own must be taught to ClavesDelCodigo.
TEST_F(IdiomaClavesTest, NoLookUpIsHiddenFromTheReading) {
    EXPECT_TRUE(codigo_.ilegibles.isEmpty())
        << codigo_.ilegibles.join(QLatin1Char('\n')).toStdString();
}

TEST_F(IdiomaClavesTest, TheReadingFindsWhatIsKnownToBeThere) {
    std::map<QString, int> cuenta;
    for (const auto& [clave, fichero] : codigo_.claves) {
        ++cuenta[clave.first];
    }
    EXPECT_GE(cuenta[u"COMMON"_s], 30);
    EXPECT_GE(cuenta[u"frmOperacion"_s], 24);
    // One of each way in which sources ask.
    for (const char* clave :
         {"primerUso", "iniciando", "pasarelaOtroAlmacen", "boton_0", "errorDeConfiguracion3"}) {
        EXPECT_EQ(codigo_.claves.count({u"COMMON"_s, QString::fromLatin1(clave)}), 1U) << clave;
    }
    EXPECT_EQ(codigo_.claves.count({u"frmZVMonitor"_s, u"ShapeCritico"_s}), 1U);
    EXPECT_EQ(codigo_.claves.count({u"GEN"_s, u"FrmCaption"_s}), 1U);
}

TEST_F(IdiomaClavesTest, LeavesTheNamesOfTheModesAlone) {
    const char* const modos[] = {"AUTO", "MANUAL", "SEMI"};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(idioma_.documento.Valor(u"COMMON"_s, u"btnModo_"_s + QString::number(i)),
                  QString::fromLatin1(modos[i]));
    }
}

TEST_F(IdiomaClavesTest, NoLineIsLongerThanTheProgramReadsAndNoKeyStandsTwice) {
    QStringList vistas;
    QString seccion;
    const auto lineas = QString::fromUtf8(idioma_.bytes).split(u"\r\n"_s);
    for (const QString& linea : lineas) {
        EXPECT_LE(linea.section(QLatin1Char('='), 1).size(), 256) << linea.toStdString();
        if (linea.startsWith(QLatin1Char('['))) {
            seccion = linea;
        }
        if (!linea.contains(QLatin1Char('=')) || linea.startsWith(QLatin1Char(';'))) {
            continue;
        }
        const QString clave = seccion + linea.section(QLatin1Char('='), 0, 0).toLower();
        EXPECT_FALSE(vistas.contains(clave)) << clave.toStdString();
        vistas << clave;
    }
    EXPECT_GT(vistas.size(), 200);
}

} // namespace
} // namespace zv::test

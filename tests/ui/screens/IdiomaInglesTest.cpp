// The English language file that comes with the program: complete, and read as it is meant.
#include "platform/DocumentoIni.h"
#include "ui/screens/DialogosPrueba.h"
#include "ui/screens/frmCash.h"
#include "ui/screens/frmImpresio.h"
#include "ui/screens/frmMensaje.h"
#include "ui/screens/frmTexto.h"

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

class IdiomaInglesTest : public DialogosPrueba {
  protected:
    IdiomaInglesTest() {
        QFile fichero(QStringLiteral(QT_TESTCASE_SOURCEDIR "/../packaging/RWLang.en.ini"));
        EXPECT_TRUE(fichero.open(QIODevice::ReadOnly)) << fichero.fileName().toStdString();
        bytes_ = fichero.readAll();
        documento_ = DocumentoIni::Analizar(bytes_);
        carpeta_.Pon(QStringLiteral("RWLang.ini"), bytes_);
    }
    QByteArray bytes_;
    DocumentoIni documento_;
};

TEST_F(IdiomaInglesTest, HasEveryKeyThatTheProgramAsksFor) {
    for (const QString& clave : QString::fromUtf8(kClaves).split(QLatin1Char(' '))) {
        const auto valor = documento_.Valor(QStringLiteral("COMMON"), clave);
        EXPECT_TRUE(valor && !valor->isEmpty()) << clave.toStdString();
    }
}

TEST_F(IdiomaInglesTest, LeavesTheNamesOfTheModesAlone) {
    EXPECT_EQ(documento_.Valor(QStringLiteral("COMMON"), QStringLiteral("btnModo_0")),
              QStringLiteral("AUTO"));
    EXPECT_EQ(documento_.Valor(QStringLiteral("COMMON"), QStringLiteral("btnModo_1")),
              QStringLiteral("MANUAL"));
}

TEST_F(IdiomaInglesTest, NoLineIsLongerThanTheProgramReadsAndNoKeyStandsTwice) {
    QStringList vistas;
    QString seccion;
    const auto lineas = QString::fromUtf8(bytes_).split(QStringLiteral("\r\n"));
    for (const QString& linea : lineas) {
        EXPECT_LE(linea.section(QLatin1Char('='), 1).size(), 256) << linea.toStdString();
        if (linea.startsWith(QLatin1Char('[')))
            seccion = linea;
        if (!linea.contains(QLatin1Char('=')) || linea.startsWith(QLatin1Char(';')))
            continue;
        const QString clave = seccion + linea.section(QLatin1Char('='), 0, 0).toLower();
        EXPECT_FALSE(vistas.contains(clave)) << clave.toStdString();
        vistas << clave;
    }
}

TEST_F(IdiomaInglesTest, NothingOfTheSharedDialogsStaysSpanish) {
    frmMensaje mensaje(textos_);
    frmTexto texto(textos_, {});
    frmCash cash(textos_, importes_);
    frmImpresio impresio(textos_);
    for (QWidget* pantalla : {static_cast<QWidget*>(&mensaje), static_cast<QWidget*>(&texto),
                              static_cast<QWidget*>(&cash), static_cast<QWidget*>(&impresio)}) {
        for (const QAbstractButton* boton : pantalla->findChildren<QAbstractButton*>()) {
            const QString clave = boton->objectName();
            // Digits and the decimal mark are the same in every language.
            if (clave.isEmpty() || (boton->text().size() == 1 && !boton->text().at(0).isLetter()))
                continue;
            EXPECT_EQ(documento_.Valor(pantalla->objectName(), clave), boton->text())
                << pantalla->objectName().toStdString() << " " << clave.toStdString();
        }
    }
    EXPECT_EQ(impresio.Titulo(), QStringLiteral("Print"));
}

} // namespace
} // namespace zv::test

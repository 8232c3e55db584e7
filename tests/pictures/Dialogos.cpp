// Pictures of the dialogs, each opened on its own, also of those that a till seldom shows:
// screen_pictures APPLICATION-FOLDER OUTPUT-FOLDER. The language file is the application folder's.
#include "device/screens/frmOperacion.h"
#include "platform/FormatoRegional.h"
#include "ui/Importes.h"
#include "ui/Textos.h"
#include "ui/screens/DialogosPantalla.h"
#include "ui/screens/Tema.h"
#include "ui/screens/frmImpresio.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include <cstdio>

namespace {

using namespace zv;

class Fotografo {
  public:
    Fotografo(const QString& carpeta, QString salida)
        : textos_(carpeta), salida_(std::move(salida)) {}

    bool Todo() {
        Mensajes();
        Preguntas();
        Operaciones();
        return bien_;
    }

  private:
    void Guardar(QWidget& ventana, const QString& nombre) {
        // Twice: the second turn draws what the first has laid out.
        QApplication::processEvents();
        QApplication::processEvents();
        const QString fichero = salida_ + QLatin1Char('/') + nombre + QStringLiteral(".png");
        bien_ = ventana.grab().save(fichero) && bien_;
        std::puts(qPrintable(fichero));
    }

    // The dialog that the call opens, taken and closed.
    template <typename Llamada>
    void AlAbrir(const QString& nombre, Llamada llamada) {
        QTimer::singleShot(50, [this, nombre] {
            if (auto* dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                Guardar(*dialogo, nombre);
                dialogo->done(0);
            } else {
                bien_ = false;
            }
        });
        llamada();
    }

    QString T(const char* clave, const char* porDefecto) const {
        return textos_.Traduce(QString::fromUtf8(clave), QString::fromUtf8(porDefecto));
    }

    void Mensaje(const char* nombre, const QString& titulo, const QString& texto, int estilo = 0) {
        AlAbrir(QString::fromLatin1(nombre),
                [&] { dialogos_.MostrarMensaje(titulo, texto, estilo); });
    }

    void Mensajes() {
        const QString salto = QStringLiteral("\r\n");
        Mensaje("message-one", {}, T("sinConexion", "No hay conexión con Zorvex"));
        Mensaje("message-accept-cancel", T("cerrar0", "Cerrar aplicativo"),
                T("cerrar1", "¿Desea cerrar ZVMonitor?"), 1);
        Mensaje("message-yes-no", T("descuadreDetectado", "Descuadre detectado"),
                T("descuadreDetectado2",
                  "Se ha detectado un descuadre entre el último saldo de Zorvex y el actual de: ") +
                    QStringLiteral("12,50 €") + salto + salto +
                    T("descuadreDetectado3", "¿Desea hacer un apunte de cuadre?"),
                4);
        Mensaje("message-retry", T("errorDeZorvex", "Error de Zorvex"),
                T("sinConexion", "No hay conexión con Zorvex"), 5);
        Mensaje("message-refund", T("abonoPendiente", "Abono pendiente"),
                T("retireElCambio", "RETIRE EL CAMBIO DE") + salto +
                    T("retireElCambio2", " LA OPERACION ANTERIOR") + salto + salto +
                    T("retireElCambio3", "Pulse 'Aceptar' para continuar con el ABONO") + salto +
                    salto + T("importe", "Importe: ") + QStringLiteral("8,00 €"));
        Mensaje("message-balance", T("inicializacion", "Inicialización"),
                T("inicializacion2", "El saldo de Zorvex ha variado desde la última vez que se "
                                     "ejecutó la aplicación: ") +
                    salto + T("ultimoSaldoRegistrado", "Último Saldo Registrado: ") +
                    QStringLiteral("427,60 €") + salto + T("saldoActual", "Saldo Actual: ") +
                    QStringLiteral("415,10 €"));
        Mensaje("message-long", T("errorDeInicio", "Error al iniciar la aplicación"),
                QStringLiteral("Error nº 53 - ") +
                    QStringLiteral("/usr/local/share/zvmonitor/tienda/central/datos/").repeated(4) +
                    salto + T("errorConfiguracion4", "¿Desea continuar?"));
        Mensaje("message-endless", T("atencion", "¡Atención!"),
                (T("errorDeConfiguracion3", "Revise el fichero LOG de la aplicación") + salto)
                    .repeated(60),
                1);
        AlAbrir(QStringLiteral("plain-box"), [&] {
            dialogos_.CajaSimple(
                T("errorAlProcesarOperacion",
                  "Error al procesar la operación, consulte con el técnico de Zorvex"));
        });
    }

    void Preguntas() {
        AlAbrir(QStringLiteral("text"), [&] {
            dialogos_.PedirTexto(T("anularMovimiento", "Anular movimiento"),
                                 T("introduzcaCausa", "Introduzca la causa de la anulación"),
                                 QStringLiteral("El cliente no lleva dinero"));
        });
        for (const bool sinImporte : {false, true}) {
            AlAbrir(sinImporte ? QStringLiteral("cash-no-amount") : QStringLiteral("cash"), [&] {
                bool cancelado = false;
                dialogos_.PedirImporte(T("cobroManual2", "Cobro manual"),
                                       T("introduzcaImporte", "Introduzca el importe"),
                                       Currency(sinImporte ? 0 : 123456), sinImporte, cancelado);
            });
        }
        frmImpresio impresio(textos_);
        AlAbrir(QStringLiteral("printouts"), [&] { impresio.exec(); });
    }

    void Operacion(const char* nombre, ClaseOperacion clase, qint32 importe, qint32 entrado,
                   qint32 salido) {
        operacion_.Abrir(clase, importe, [] {});
        operacion_.Progreso(entrado, salido);
        Guardar(operacion_, QString::fromLatin1(nombre));
    }

    void Operaciones() {
        Operacion("operation-charge", ClaseOperacion::Cobro, 1250, 500, 0);
        operacion_.Aviso(
            textos_.TextoForm(QStringLiteral("frmOperacion"), QStringLiteral("Reconectando"),
                              QStringLiteral("Recuperando la comunicación con Zorvex…")));
        Guardar(operacion_, QStringLiteral("operation-charge-reconnecting"));
        operacion_.Aviso({});
        operacion_.reject();
        Guardar(operacion_, QStringLiteral("operation-charge-cancelling"));
        Operacion("operation-charge-paid", ClaseOperacion::Cobro, 1250, 2000, 750);
        Operacion("operation-charge-huge", ClaseOperacion::Cobro, 2147483647, 0, 0);
        Operacion("operation-refund", ClaseOperacion::Abono, 800, 0, 500);
        Operacion("operation-change", ClaseOperacion::Cambio, 0, 5000, 2000);
        Operacion("operation-float", ClaseOperacion::MeterCambio, 0, 12000, 0);
        Operacion("operation-pay-out", ClaseOperacion::Pago, 3000, 0, 1000);
        Operacion("operation-close", ClaseOperacion::ControlCajones, 0, 0, 0);
        Operacion("operation-empty", ClaseOperacion::VaciadoCajon, 0, 0, 0);
        operacion_.Abrir(ClaseOperacion::Pendiente, 0, {});
        Guardar(operacion_, QStringLiteral("operation-pending"));
        operacion_.Cerrar();
    }

    Textos textos_;
    QString salida_;
    bool bien_ = true;
    Importes importes_{FormatoRegional(QStringLiteral("es_ES")), [] { return quint8{100}; }};
    DialogosPantalla dialogos_{QStringLiteral("ZVMonitor"), textos_, importes_};
    frmOperacion operacion_{textos_, importes_};
};

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const QStringList argumentos = QApplication::arguments();
    if (argumentos.size() != 3) {
        std::fputs("usage: screen_pictures APPLICATION-FOLDER OUTPUT-FOLDER\n", stderr);
        return 2;
    }
    tema::Aplicar(app);
    return Fotografo(argumentos[1], argumentos[2]).Todo() ? EXIT_SUCCESS : EXIT_FAILURE;
}

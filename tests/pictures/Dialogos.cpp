// Pictures of the dialogs, each opened on its own, also of those that a till seldom shows:
// screen_pictures APPLICATION-FOLDER OUTPUT-FOLDER. The language file is the application folder's.
#include "CajaDeMuestra.h"
#include "Muestras.h"
#include "TablaDeMuestra.h"
#include "access/Seguretat.h"
#include "access/Usuarios.h"
#include "access/screens/frmLogin.h"
#include "access/screens/frmUsuarios.h"
#include "barcode/Claves.h"
#include "barcode/screens/Balanza.h"
#include "config/Configuracio.h"
#include "device/Claves.h"
#include "device/screens/frmOperacion.h"
#include "platform/FormatoRegional.h"
#include "platform/StringLiterals.h"
#include "registers/screens/frmHistorial.h"
#include "registers/screens/frmListado.h"
#include "ui/Importes.h"
#include "ui/Textos.h"
#include "ui/screens/DialogosPantalla.h"
#include "ui/screens/ImpresoraSistema.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"
#include "ui/screens/frmImpresio.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
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
        Piezas();
        for (const int usuarios : {0, 3, 6, 8, 1000}) {
            Usuarios(usuarios);
        }
        for (const int movimientos : {0, 8, 2000}) {
            Caja(movimientos);
        }
        for (const int movimientos : {0, 8, 2000}) {
            Registros(movimientos);
        }
        for (const int cierres : {0, 3, 3000}) {
            Historico(cierres);
        }
        CodigosDeBarras();
        return bien_;
    }

  private:
    void Guardar(QWidget& ventana, const QString& nombre) {
        // Twice: the second turn draws what the first has laid out.
        QApplication::processEvents();
        QApplication::processEvents();
        const QString fichero = salida_ + QLatin1Char('/') + nombre + u".png"_s;
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
        return textos_.TextoIdioma(u"COMMON"_s, QString::fromUtf8(clave),
                                   QString::fromUtf8(porDefecto));
    }

    void Mensaje(const char* nombre, const QString& titulo, const QString& texto,
                 EstiloMensaje estilo = EstiloMensaje::Aceptar) {
        AlAbrir(QString::fromLatin1(nombre),
                [&] { dialogos_.MostrarMensaje(titulo, texto, estilo); });
    }

    void Mensajes() {
        const QString salto = u"\r\n"_s;
        Mensaje("message-one", {}, T("sinConexion", "No hay conexión con Zorvex"));
        Mensaje("message-accept-cancel", T("cerrar0", "Cerrar aplicativo"),
                T("cerrar1", "¿Desea cerrar ZVMonitor?"), EstiloMensaje::AceptarCancelar);
        Mensaje("message-yes-no", T("descuadreDetectado", "Descuadre detectado"),
                T("descuadreDetectado2",
                  "Se ha detectado un descuadre entre el último saldo de Zorvex y el actual de: ") +
                    u"12,50 €"_s + salto + salto +
                    T("descuadreDetectado3", "¿Desea hacer un apunte de cuadre?"),
                EstiloMensaje::SiNo);
        Mensaje("message-retry", T("errorDeZorvex", "Error de Zorvex"),
                T("sinConexion", "No hay conexión con Zorvex"), EstiloMensaje::ReintentarCancelar);
        Mensaje("message-refund", T("abonoPendiente", "Abono pendiente"),
                T("retireElCambio", "RETIRE EL CAMBIO DE") + salto +
                    T("retireElCambio2", " LA OPERACION ANTERIOR") + salto + salto +
                    T("retireElCambio3", "Pulse 'Aceptar' para continuar con el ABONO") + salto +
                    salto + T("importe", "Importe: ") + u"8,00 €"_s);
        Mensaje("message-balance", T("inicializacion", "Inicialización"),
                T("inicializacion2", "El saldo de Zorvex ha variado desde la última vez que se "
                                     "ejecutó la aplicación: ") +
                    salto + T("ultimoSaldoRegistrado", "Último Saldo Registrado: ") +
                    u"427,60 €"_s + salto + T("saldoActual", "Saldo Actual: ") + u"415,10 €"_s);
        Mensaje("message-long", T("errorDeInicio", "Error al iniciar la aplicación"),
                u"Error nº 53 - "_s +
                    u"/usr/local/share/zvmonitor/tienda/central/datos/"_s.repeated(4) + salto +
                    T("errorConfiguracion4", "¿Desea continuar?"));
        Mensaje("message-endless", T("atencion", "¡Atención!"),
                (T("errorDeConfiguracion3", "Revise el fichero LOG de la aplicación") + salto)
                    .repeated(60),
                EstiloMensaje::AceptarCancelar);
        AlAbrir(u"plain-box"_s, [&] {
            dialogos_.CajaSimple(
                T("errorAlProcesarOperacion",
                  "Error al procesar la operación, consulte con el técnico de Zorvex"));
        });
    }

    void Preguntas() {
        AlAbrir(u"text"_s, [&] {
            dialogos_.PedirTexto(T("anularMovimiento", "Anular movimiento"),
                                 T("introduzcaCausa", "Introduzca la causa de la anulación"),
                                 u"El cliente no lleva dinero"_s);
        });
        for (const bool sinImporte : {false, true}) {
            AlAbrir(sinImporte ? u"cash-no-amount"_s : u"cash"_s, [&] {
                bool cancelado = false;
                bool elegido = false;
                dialogos_.PedirImporte(T("cobroManual2", "Cobro manual"),
                                       T("introduzcaImporte", "Introduzca el importe"),
                                       Currency(sinImporte ? 0 : 123456),
                                       sinImporte ? &elegido : nullptr, cancelado);
            });
        }
        frmImpresio impresio(textos_);
        AlAbrir(u"printouts"_s, [&] { impresio.exec(); });
    }

    void Operacion(const char* nombre, OperationKind kind, qint32 importe, qint32 entrado,
                   qint32 salido) {
        std::function<void()> terminar;
        if (kind == OperationKind::Cambio || kind == OperationKind::MeterCambio) {
            terminar = [] {};
        }
        operacion_.Abrir(
            kind, importe, [] {}, std::move(terminar));
        operacion_.Progreso(entrado, salido);
        Guardar(operacion_, QString::fromLatin1(nombre));
    }

    void Operaciones() {
        Operacion("operation-charge", OperationKind::Cobro, 1250, 500, 0);
        operacion_.Aviso(textos_.Traduce(texto::kReconectando));
        Guardar(operacion_, u"operation-charge-reconnecting"_s);
        operacion_.Aviso({});
        operacion_.reject();
        Guardar(operacion_, u"operation-charge-cancelling"_s);
        Operacion("operation-charge-paid", OperationKind::Cobro, 1250, 2000, 750);
        Operacion("operation-charge-huge", OperationKind::Cobro, 2147483647, 0, 0);
        Operacion("operation-refund", OperationKind::Abono, 800, 0, 500);
        Operacion("operation-change", OperationKind::Cambio, 0, 5000, 2000);
        operacion_.findChild<QPushButton*>(u"btnTerminar"_s)->click();
        Guardar(operacion_, u"operation-change-finishing"_s);
        operacion_.SinTerminar();
        Guardar(operacion_, u"operation-change-no-key"_s);
        Operacion("operation-float", OperationKind::MeterCambio, 0, 12000, 0);
        operacion_.findChild<QPushButton*>(u"btnTerminar"_s)->click();
        Guardar(operacion_, u"operation-float-finishing"_s);
        operacion_.Abrir(
            OperationKind::MeterCambio, 0, [] {}, [] {});
        operacion_.Progreso(12000, 0);
        operacion_.reject();
        Guardar(operacion_, u"operation-float-cancelling"_s);
        Operacion("operation-pay-out", OperationKind::Pago, 3000, 0, 1000);
        Operacion("operation-close", OperationKind::ControlCajones, 0, 0, 0);
        Operacion("operation-empty", OperationKind::VaciadoCajon, 0, 0, 0);
        operacion_.Abrir(OperationKind::Pendiente, 0, {}, {});
        Guardar(operacion_, u"operation-pending"_s);
        operacion_.Cerrar();
    }

    // Of the screen kit, over a till of the screen's size.
    void Piezas() {
        QWidget caja;
        caja.setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
        caja.show();
        const bool ingles = T("anular", "Anular") != u"Anular"_s;
        const std::pair<const char*, QWidget*> muestras[] = {
            {"kit-list", muestra::Lista(textos_, &caja, ingles)},
            {"kit-settings", muestra::Ajustes(textos_, &caja, ingles)}};
        for (const auto& [nombre, ventana] : muestras) {
            ventana->show();
            Guardar(*ventana, QString::fromLatin1(nombre));
            ventana->hide();
        }
    }

    // Login and users over a till of the screen's size, with so many of them.
    void Usuarios(int cuantos) {
        QWidget caja;
        caja.setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
        caja.show();
        muestra::TablaDeMuestra tabla(cuantos, dialogos_, textos_);
        zv::Usuarios usuarios(tabla.Database(), dialogos_, textos_);
        const auto nombre = [cuantos](const char* que) {
            return QString::fromLatin1(que) + QLatin1Char('-') + QString::number(cuantos);
        };
        frmLogin login(usuarios, dialogos_, textos_, &caja);
        login.FormaIdentificacion(false);
        login.show();
        Guardar(login, nombre("login"));
        auto* lista = login.findChild<QComboBox*>(u"cmbNom"_s);
        if (cuantos > 0) {
            lista->showPopup();
            Guardar(*lista->view()->window(), nombre("login-list"));
            lista->hidePopup();
            lista->setCurrentIndex(1);
            login.findChild<QLineEdit*>(u"txtPassword"_s)->setText(u"1234"_s);
            Guardar(login, nombre("login-chosen"));
        }
        login.FormaCambioContrasena();
        Guardar(login, nombre("login-change"));
        login.hide();
        Seguretat seguretat(tabla.Database(), mudo_, dialogos_, textos_, reloj_);
        frmUsuarios pantalla(usuarios, seguretat, dialogos_, textos_, &caja);
        pantalla.show();
        Guardar(pantalla, nombre("users"));
        if (cuantos > 0) {
            auto* nombres = pantalla.findChild<QComboBox*>(u"cmbNom"_s);
            nombres->setCurrentIndex(1);
            Q_EMIT nombres->activated(1);
            Guardar(pantalla, nombre("users-chosen"));
            nombres->showPopup();
            Guardar(*nombres->view()->window(), nombre("users-list"));
            nombres->hidePopup();
        }
        pantalla.hide();
    }

    // The cash office over a till of the screen's size, with so many movements.
    void Caja(int movimientos) {
        QWidget till;
        till.setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
        till.show();
        muestra::CajaDeMuestra muestra(movimientos, mudo_, dialogos_, textos_, importes_, reloj_);
        muestra.PonerColumnas(movimientos == 8);
        AccionesCaja acciones;
        for (const BotonCaja boton : kBotonesCaja) {
            acciones[boton] = [] {};
        }
        frmCaja pantalla(muestra.Caja(), acciones, &till);
        pantalla.show();
        const QString nombre = u"cash-office-%1"_s.arg(movimientos);
        if (movimientos > 1000) {
            QApplication::processEvents(); // the refresh, and no further step
            Guardar(pantalla, nombre + u"-filling"_s);
        }
        QElapsedTimer reloj;
        reloj.start();
        while (reloj.elapsed() < 1000) {
            QApplication::processEvents();
        }
        if (movimientos == 8) {
            muestra.Caja().PonerEtiqueta(&EstadoCaja::lbSaldoCierre, u"1.264,10 €"_s);
        }
        Guardar(pantalla, nombre);
        pantalla.hide();
    }

    // The registers over a till of the screen's size, with so many charges.
    void Registros(int cuantos) {
        QWidget till;
        till.setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
        till.show();
        muestra::CajaDeMuestra muestra(cuantos, mudo_, dialogos_, textos_, importes_, reloj_);
        if (cuantos > 0) {
            muestra.PonerRegistros();
        }
        const std::pair<ModoListado, QString> modos[] = {{ModoListado::Cobros, u"charges"_s},
                                                         {ModoListado::Incidencias, u"incidents"_s},
                                                         {ModoListado::Accesos, u"accesses"_s}};
        for (const auto& [modo, cual] : modos) {
            Listado listado(muestra.ElEntorno());
            frmListado pantalla(listado, modo,
                                {[](int, int, bool) { return false; }, [] {}, [] {}, [] {}}, &till);
            pantalla.show();
            const QString nombre = u"register-%1-%2"_s.arg(cual).arg(cuantos);
            if (cuantos > 1000) {
                QApplication::processEvents(); // the filling, and no further step
                Guardar(pantalla, nombre + u"-filling"_s);
            }
            QElapsedTimer reloj;
            reloj.start();
            while (reloj.elapsed() < 500) {
                QApplication::processEvents();
            }
            if (modo == ModoListado::Incidencias && cuantos == 8) {
                listado.MarcarFila(3);
            }
            Guardar(pantalla, nombre);
            pantalla.hide();
        }
    }

    // The history over a till of the screen's size, with so many closes.
    void Historico(int cierres) {
        QWidget till;
        till.setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
        till.show();
        muestra::CajaDeMuestra muestra(cierres > 100 ? 2000 : 8 * std::min(cierres, 1), mudo_,
                                       dialogos_, textos_, importes_, reloj_);
        muestra.PonerCierres(cierres);
        ImpresoraSistema impresora(u"ZVMonitor"_s);
        Historial historial(muestra.ElEntorno(), impresora);
        frmHistorial pantalla(historial, &till);
        pantalla.show();
        QElapsedTimer reloj;
        reloj.start();
        while (reloj.elapsed() < 500) {
            QApplication::processEvents();
        }
        Guardar(pantalla, u"history-%1"_s.arg(cierres));
        if (cierres == 3) {
            historial.Elegir(1); // which has no movements
            Guardar(pantalla, u"history-empty-close"_s);
        }
        pantalla.hide();
    }

    // The layout of the barcodes over a till of the screen's size.
    void Barras(const QString& nombre, const LayoutCodigo& layout, const QString& codigo,
                bool rechazado = false) {
        const QTemporaryDir carpeta;
        const ModuloIni ini(mudo_, dialogos_);
        RegistryTree registry(carpeta.path());
        Configuracio cfg(ini, registry, carpeta.path());
        cfg.BCEAN = static_cast<quint8>(layout.largo);
        cfg.BCTPRE = layout.conTicket;
        cfg.BCTINI = static_cast<quint8>(layout.ticketDesde);
        cfg.BCTFIN = static_cast<quint8>(layout.ticketHasta);
        cfg.BCIINI = static_cast<quint8>(layout.importeDesde);
        cfg.BCIFIN = static_cast<quint8>(layout.importeHasta);
        cfg.BCDEC = static_cast<quint8>(layout.decimales);
        QWidget till;
        till.setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
        till.show();
        Balanza pantalla(
            importes_, [] { return 2; }, reloj_, dialogos_, textos_, &till);
        pantalla.CarregaConfig(cfg);
        pantalla.show();
        auto* prueba = pantalla.findChild<QLineEdit*>(texto::kBalanzaPrueba.Nombre());
        prueba->setText(codigo);
        if (rechazado) {
            auto* campo = pantalla.findChild<QLineEdit*>(u"TBal_3"_s);
            campo->setFocus();
            campo->selectAll();
            EnviaTeclas(u"7{ENTER}"_s);
        }
        Guardar(pantalla, nombre);
        pantalla.hide();
    }

    void CodigosDeBarras() {
        const LayoutCodigo bascula{13, true, 2, 7, 8, 12, 2};
        Barras(u"barcode-off"_s, {}, {});
        Barras(u"barcode"_s, bascula, {});
        Barras(u"barcode-scan"_s, bascula, u"2001234012509"_s);
        Barras(u"barcode-scan-short"_s, bascula, u"20012340125"_s);
        Barras(u"barcode-refused"_s, bascula, u"2001234012509"_s, true);
        Barras(u"barcode-long"_s, {120, true, 1, 50, 60, 69, 2},
               u"ABCDEFGHIJ"_s.repeated(5) + u"---------2147483647"_s + QString(51, u'-'));
    }

    struct : Log {
        void LogLinea(const QString& /*texto*/) override {}
        void LogFast(const QString& /*texto*/) override {}
    } mudo_;
    SystemClock reloj_;
    Textos textos_;
    QString salida_;
    bool bien_ = true;
    Importes importes_{FormatoRegional(u"es_ES"_s), [] { return quint8{100}; }};
    DialogosPantalla dialogos_{u"ZVMonitor"_s, textos_, importes_};
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

#include "engine/screens/frmZVMonitor.h"

#include "engine/Claves.h"
#include "platform/StringLiterals.h"
#include "ui/screens/PintarYa.h"
#include "ui/screens/Rol.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QAbstractEventDispatcher>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScreen>
#include <QToolButton>

namespace zv {

namespace {

constexpr int kPulsoMs = 1;
constexpr int kParpadeoMs = 500;
constexpr int kMaximizadoMs = 1000;
constexpr int kTwipsPorPixel = 15;

} // namespace

frmZVMonitor::frmZVMonitor(PartesMonitor partes, AccionesVentana acciones)
    : partes_(partes), acciones_(std::move(acciones)),
      arrastre_(*this, [this] { return !maximizando_; }),
      acceso_(*this, [this](const QString& concepto) { partes_.botones.cobroManual(concepto); }) {
    setObjectName(u"frmZVMonitor"_s);
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    PonerRol(*this, QAccessible::Window);
    setMinimumSize(1000, 600);
    ui_.Construir(*this, partes_.grid.Celdas());
    // The widgets start as the engine's own defaults, so that only differences are applied.
    ui_.boton[BotonPie::SinUso]->hide();
    Conectar();
    partes_.controles.PonerPorDefecto();
    Seguir();
}

frmZVMonitor::~frmZVMonitor() {
    partes_.controles.AlCambiar({});
    partes_.controles.AlPintar({});
}

void frmZVMonitor::Conectar() {
    partes_.controles.AlCambiar([this] { porSeguir_ = true; });
    partes_.controles.AlPintar([this] { Pintar(); });
    SeguirAlBucle();

    timerCola_.setObjectName(u"timerCola"_s);
    timerParpadeo_.setObjectName(u"timerParpadeo"_s);
    timerMaximitzat_.setObjectName(u"timerMaximitzat"_s);
    timerCola_.setTimerType(Qt::PreciseTimer);
    timerCola_.setInterval(kPulsoMs);
    timerParpadeo_.setInterval(kParpadeoMs);
    connect(&timerParpadeo_, &QTimer::timeout, this, [this] {
        parpadeoAmbar_ = !parpadeoAmbar_;
        tema::PonerColorTexto(*ui_.lbEstado, parpadeoAmbar_ ? tema::kAmbar : tema::kVerde);
    });
    timerMaximitzat_.setInterval(kMaximizadoMs);
    timerMaximitzat_.setSingleShot(true);
    connect(&timerMaximitzat_, &QTimer::timeout, this, [this] { maximizando_ = false; });

    for (int i = 0; i < 3; ++i) {
        connect(ui_.btnModo[static_cast<std::size_t>(i)], &QToolButton::clicked, this, [this, i] {
            partes_.estado.PulsarModo(i);
            // A press of the mode in force must not leave its button up.
            partes_.controles.Repetir();
        });
        connect(ui_.btnW[static_cast<std::size_t>(i)], &QToolButton::clicked, this,
                [this, i] { PulsarVentana(i); });
    }
    for (const BotonPie boton : kBotonesPie) {
        connect(ui_.boton[boton], &QToolButton::clicked, this,
                [this, boton] { partes_.botones.boton_Click(boton); });
    }
    connect(ui_.btnArriba, &QToolButton::clicked, this, [this] { partes_.estado.PaginaArriba(); });
    connect(ui_.btnAbajo, &QToolButton::clicked, this, [this] { partes_.estado.PaginaAbajo(); });
    connect(ui_.grdZV, &VistaRejilla::Desplazada, this,
            [this] { partes_.estado.ActualizarEstado(true); });
    connect(ui_.grdZV, &VistaRejilla::Soltado, this, [this](int fila, int columna, bool debajo) {
        partes_.clic.grdZV_MouseUp(fila, columna, debajo);
        // A click in the grid takes the focus out of it.
        EnviaTeclas(u"{TAB}"_s);
    });

    for (QWidget* asidero : std::initializer_list<QWidget*>{ui_.frameCab, ui_.btnLogo, ui_.lbVer}) {
        arrastre_.Añadir(*asidero);
        asidero->installEventFilter(this);
    }
    ui_.TextIni->installEventFilter(this);
    connect(ui_.TextIni, &QLineEdit::returnPressed, this, [this] {
        if (acciones_.codigoLeido) {
            acciones_.codigoLeido(ui_.TextIni->text(), [this] { ui_.TextIni->clear(); });
        }
    });
    // The grid's own size decides, which follows the window's a moment later.
    ui_.grdZV->viewport()->installEventFilter(this);
    installEventFilter(this);
}

void frmZVMonitor::SeguirAlBucle() {
    // Told before every turn of the event loop, nested ones too: no event is posted for it, which
    // would cost a second turn a thousand times a second.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] {
                if (porSeguir_) {
                    Seguir();
                }
            });
}

void frmZVMonitor::Seguir() {
    porSeguir_ = false;
    const EstadoControles& e = partes_.controles.Estado();
    // While the pulse is stopped its real timer rests too.
    if (e.timerCola != timerCola_.isActive()) {
        e.timerCola ? timerCola_.start() : timerCola_.stop();
    }
    if (!partes_.controles.PorMostrar()) {
        return;
    }
    const EstadoControles& antes = partes_.controles.Mostrado();
    for (const BotonPie boton : kBotonesPie) {
        ui_.boton[boton]->setEnabled(e.boton[boton] && partes_.botones.TieneOperacion(boton));
    }
    ui_.framePie->setEnabled(e.framePie);
    ui_.grdZV->setEnabled(e.grdZV);
    for (std::size_t i = 0; i < ui_.btnModo.size(); ++i) {
        ui_.btnModo[i]->setChecked(e.btnModo[i]);
    }
    ui_.pctScrollBar->Habilitar(e.btnArriba, e.btnAbajo);
    ui_.ShapeOK->setVisible(e.ShapeOK);
    ui_.ShapeAlert->setVisible(e.ShapeAlert);
    ui_.ShapeCritico->setVisible(e.ShapeCritico);
    if (e.lbContador != antes.lbContador) {
        ui_.lbContador->setText(e.lbContador);
    }
    if (e.lbEstado != antes.lbEstado) {
        ui_.PonerEstado(e.lbEstado);
        e.lbEstado.isEmpty() ? timerParpadeo_.stop() : timerParpadeo_.start();
    }
    if (e.aviso != antes.aviso) {
        ui_.PonerAviso(e.aviso);
    }
    ui_.grdZV->HabilitarImagenes(ColumnaCola::Anular, e.puedeAnular);
    ui_.grdZV->HabilitarImagenes(ColumnaCola::Enviar, e.puedeEnviar);
    // Only while it holds its state is it more than a button.
    ui_.boton[BotonPie::AgruparCobros]->setCheckable(e.agrupando);
    ui_.boton[BotonPie::AgruparCobros]->setChecked(e.agrupando);
    if (e.punteroEspera != antes.punteroEspera) {
        e.punteroEspera ? setCursor(Qt::WaitCursor) : unsetCursor();
    }
    if (botonAcceso_ && e.botonAccesoEncima != accesoEncima_) {
        accesoEncima_ = e.botonAccesoEncima;
        VentanaEncima(*botonAcceso_, accesoEncima_);
    }
    partes_.controles.PonerMostrado();
}

void frmZVMonitor::Pintar() {
    Seguir();
    PintarYa(*this);
}

void frmZVMonitor::Tick() {
    if (!partes_.pulso.Armado()) {
        return;
    }
    partes_.pulso.ProcesarCola();
    // A barcode reader is always heard. Only the form's own focus moves: a dialog keeps its own.
    if (focusWidget() != ui_.TextIni) {
        ui_.TextIni->setFocus(Qt::OtherFocusReason);
    }
}

void frmZVMonitor::PulsarVentana(int indice) {
    if (indice == 0) {
        PonerWindowState(ventana::kMinimizada);
        partes_.pulso.ArrancaTimer();
    } else if (indice == 1) {
        PreguntarCierre();
    } else if (acciones_.abrirManuales) {
        acciones_.abrirManuales();
    }
}

void frmZVMonitor::PreguntarCierre() {
    // Not over the window of an operation, which its name on the bus or the desktop would reach.
    if (!isEnabled() || QGuiApplication::modalWindow() != nullptr) {
        return;
    }
    const Textos& textos = partes_.entorno.textos;
    const Respuesta respuesta = partes_.entorno.dialogos.MostrarMensaje(
        textos.Traduce(texto::kCerrarTitulo), textos.Traduce(texto::kCerrarTexto),
        EstiloMensaje::AceptarCancelar);
    if (respuesta != Respuesta::Aceptar) {
        return;
    }
    setCursor(Qt::WaitCursor);
    partes_.pulso.ParaTimer();
    if (acciones_.descargar) {
        acciones_.descargar();
    }
}

void frmZVMonitor::closeEvent(QCloseEvent* evento) {
    // The desktop's own way to close the window asks the same question.
    evento->ignore();
    PreguntarCierre();
}

int frmZVMonitor::WindowState() const {
    if (isMinimized()) {
        return ventana::kMinimizada;
    }
    return isMaximized() || isFullScreen() ? ventana::kMaximizada : ventana::kNormal;
}

void frmZVMonitor::PonerWindowState(int estado) {
    switch (estado) {
    case ventana::kMinimizada:
        setWindowState(windowState() | Qt::WindowMinimized);
        break;
    case ventana::kMaximizada:
        setWindowState(Qt::WindowMaximized);
        break;
    default:
        setWindowState(Qt::WindowNoState);
        break;
    }
}

void frmZVMonitor::TraerAlFrente() {
    show();
    // Some window managers keep a window down that only asks to be raised.
    VentanaEncima(*this, true);
    VentanaEncima(*this, false);
    activateWindow();
}

void frmZVMonitor::Traducir() {
    TraducirPantalla(*this, partes_.entorno.textos);
    setAccessibleName(windowTitle());      // a minimised window would have none
    ui_.PonerEstado(ui_.lbEstado->text()); // a longer text may need smaller letters
}

void frmZVMonitor::PonerIcono() {
    setWindowIcon(tema::Icono(u"zvmonitor"_s));
}

void frmZVMonitor::PrepararGrid() {
    partes_.grid.PonerTitulos();
    ColocarColumnas();
}

void frmZVMonitor::PonerVersion(const QString& caption) {
    ui_.lbVer->setText(caption);
}

void frmZVMonitor::Mostrar() {
    if (const QScreen* pantalla = screen()) {
        setGeometry(pantalla->availableGeometry());
    }
    showMaximized();
}

void frmZVMonitor::MostrarBotonAcceso() {
    if (botonAcceso_) {
        return;
    }
    botonAcceso_ = std::make_unique<frmBotonAcceso>(
        acceso_, partes_.entorno.textos.Traduce(texto::kCobroManual));
    VentanaEncima(*botonAcceso_, partes_.controles.Estado().botonAccesoEncima);
    botonAcceso_->show();
    accesoEncima_ = partes_.controles.Estado().botonAccesoEncima;
    // The screen may not have followed yet what it has just begun with.
    partes_.controles.Repetir();
}

void frmZVMonitor::ColocarColumnas() {
    const VistaRejilla& vista = *ui_.grdZV;
    partes_.grid.ColocarColumnas(*partes_.entorno.configuracio, vista.width() * kTwipsPorPixel,
                                 vista.AnchoBarra() * kTwipsPorPixel, vista.height(),
                                 vista.AltoFila());
    partes_.estado.ActualizarPaginas();
}

void frmZVMonitor::resizeEvent(QResizeEvent* evento) {
    ui_.Escalar(size());
    QWidget::resizeEvent(evento);
}

bool frmZVMonitor::TeclaDeLista(int tecla) {
    // The list moves by its logical top row, which the last page does not limit.
    if (tecla == Qt::Key_Up) {
        partes_.estado.FilaArriba();
        return true;
    }
    if (tecla == Qt::Key_Down) {
        partes_.estado.FilaAbajo();
        return true;
    }
    return false;
}

bool frmZVMonitor::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress &&
        TeclaDeLista(static_cast<QKeyEvent*>(evento)->key())) {
        return true;
    }
    if (evento->type() == QEvent::Resize && objeto == ui_.grdZV->viewport()) {
        ColocarColumnas();
    }
    if (evento->type() == QEvent::MouseButtonDblClick && objeto == ui_.frameCab) {
        DobleClicCabecera();
        return true;
    }
    return QWidget::eventFilter(objeto, evento);
}

void frmZVMonitor::DobleClicCabecera() {
    if (WindowState() != ventana::kMaximizada) {
        PonerWindowState(ventana::kMaximizada);
        // Until it has settled, the second click must not be taken for a drag.
        maximizando_ = true;
        timerMaximitzat_.start();
    }
}

} // namespace zv

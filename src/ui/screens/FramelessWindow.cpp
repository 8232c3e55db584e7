// Header, dragging and top-most order of the borderless windows.
#include "ui/screens/FramelessWindow.h"

#include "platform/StringLiterals.h"
#include "ui/Claves.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QToolButton>
#include <QWindow>

namespace zv {

namespace {

constexpr int kBordeVentana = 1;
constexpr int kLetraTitulo = 18;
constexpr int kLetraTituloLargo = 13;

} // namespace

void VentanaEncima(QWidget& ventana, bool activar) {
    QWidget* tope = ventana.window();
    Qt::WindowFlags marcas = tope->windowFlags();
    if (marcas.testFlag(Qt::WindowStaysOnTopHint) != activar) {
        marcas.setFlag(Qt::WindowStaysOnTopHint, activar);
        // setWindowFlags would hide the window and make a new one.
        tope->overrideWindowFlags(marcas);
        if (QWindow* nativa = tope->windowHandle()) {
            nativa->setFlags(marcas);
        }
    }
    if (activar && tope->isVisible()) {
        tope->raise();
    }
}

int BordeDerecho(const QWidget& control) {
    return control.x() + control.width();
}
int BordeInferior(const QWidget& control) {
    return control.y() + control.height();
}

Arrastre::Arrastre(QWidget& ventana, std::function<bool()> puede)
    : ventana_(ventana), puede_(std::move(puede)) {}

void Arrastre::Añadir(QWidget& asidero) {
    asidero.installEventFilter(this);
}

bool Arrastre::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::MouseButtonPress) {
        const auto* raton = static_cast<QMouseEvent*>(evento);
        activo_ = raton->button() == Qt::LeftButton && (!puede_ || puede_());
        desde_ = raton->globalPosition().toPoint() - ventana_.pos();
        // Wayland lets no window place itself: the compositor moves it.
        if (activo_ && ventana_.windowHandle() != nullptr &&
            QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
            activo_ = !ventana_.windowHandle()->startSystemMove();
        }
    } else if (evento->type() == QEvent::MouseMove) {
        const auto* raton = static_cast<QMouseEvent*>(evento);
        if (activo_ && raton->buttons().testFlag(Qt::LeftButton)) {
            ventana_.move(raton->globalPosition().toPoint() - desde_);
        }
    } else if (evento->type() == QEvent::MouseButtonRelease) {
        activo_ = false;
    }
    return QObject::eventFilter(objeto, evento);
}

FramelessWindow::FramelessWindow(const QString& nombre, QWidget* padre)
    : QDialog(padre, Qt::Dialog | Qt::FramelessWindowHint), frameCab_(new QFrame(this)),
      lbTitulo_(new QLabel(frameCab_)), btnCerrar_(new QToolButton(frameCab_)),
      cabecera_(new QHBoxLayout(frameCab_)), cuerpo_(new QVBoxLayout), arrastre_(*this) {
    setObjectName(nombre);
    setModal(true);

    frameCab_->setObjectName(u"frameCab"_s);
    frameCab_->setFixedHeight(tema::kAltoCabecera);
    cabecera_->setContentsMargins(20, 0, 6, 0);
    cabecera_->setSpacing(8);

    lbTitulo_->setObjectName(u"lbTitulo"_s);
    lbTitulo_->setTextFormat(Qt::PlainText);
    lbTitulo_->setFont(tema::Fuente(kLetraTitulo, true));
    lbTitulo_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    cabecera_->addWidget(lbTitulo_, 1);

    Nombrar(*btnCerrar_, texto::kCerrar);
    tema::PonerPapel(*btnCerrar_, tema::Papel::Cabecera);
    btnCerrar_->setIcon(tema::Icono(u"window-close"_s, tema::kCabeceraTexto));
    cabecera_->addWidget(btnCerrar_);
    connect(btnCerrar_, &QToolButton::clicked, this, &QDialog::reject);

    arrastre_.Añadir(*frameCab_);
    arrastre_.Añadir(*lbTitulo_);

    cuerpo_->setContentsMargins(20, 18, 20, 18);
    cuerpo_->setSpacing(18);
    auto* todo = new QVBoxLayout(this);
    todo->setContentsMargins(kBordeVentana, 0, kBordeVentana, kBordeVentana);
    todo->setSpacing(0);
    todo->addWidget(frameCab_);
    todo->addLayout(cuerpo_, 1);
}

void FramelessWindow::setVisible(bool visible) {
    // QDialog's own place allows for a frame, which these windows do not have.
    if (visible && !isVisible() && !testAttribute(Qt::WA_Moved)) {
        Centrar();
    }
    QDialog::setVisible(visible);
}

void FramelessWindow::Centrar() {
    Pulir();
    if (!testAttribute(Qt::WA_Resized)) {
        adjustSize();
    }
    const QWidget* sobre = parentWidget();
    const QRect marco =
        sobre != nullptr ? sobre->window()->geometry() : screen()->availableGeometry();
    QRect sitio(QPoint(0, 0), size());
    sitio.moveCenter(marco.center());
    const QRect dentro = screen()->availableGeometry();
    sitio.moveRight(qMin(sitio.right(), dentro.right()));
    sitio.moveBottom(qMin(sitio.bottom(), dentro.bottom()));
    move(qMax(sitio.left(), dentro.left()), qMax(sitio.top(), dentro.top()));
}

void FramelessWindow::PonerTitulo(const QString& titulo) {
    lbTitulo_->setText(tema::Rotulo(titulo));
    AjustarTitulo();
}

QString FramelessWindow::Titulo() const {
    return lbTitulo_->text();
}

QToolButton* FramelessWindow::PonerLogo(const QIcon& icono) {
    auto* btnLogo = new QToolButton(frameCab_);
    btnLogo->setObjectName(u"btnLogo"_s);
    btnLogo->setAccessibleName(u"ZVMonitor"_s);
    btnLogo->setFocusPolicy(Qt::NoFocus);
    btnLogo->setIcon(icono);
    btnLogo->setIconSize(QSize(32, 32));
    btnLogo->setFixedSize(tema::kToqueMinimo, tema::kToqueMinimo);
    cabecera_->insertWidget(0, btnLogo);
    arrastre_.Añadir(*btnLogo);
    return btnLogo;
}

int FramelessWindow::AnchoCabecera() const {
    const QMargins m = cabecera_->contentsMargins();
    int ancho = m.left() + m.right() + 2 * kBordeVentana;
    for (int i = 0; i < cabecera_->count(); ++i) {
        const QWidget* w = cabecera_->itemAt(i)->widget();
        if (w == nullptr) {
            continue;
        }
        // One pixel more, for fractions of the text's width.
        ancho += w == lbTitulo_ ? lbTitulo_->fontMetrics().size(0, lbTitulo_->text()).width() + 1
                                : qMax(w->minimumSizeHint().width(), w->minimumWidth());
        ancho += i > 0 ? cabecera_->spacing() : 0;
    }
    return ancho;
}

QSize FramelessWindow::TamañoMaximo() const {
    const QScreen* pantalla = screen();
    const QSize disponible = pantalla != nullptr ? pantalla->availableSize() : QSize(1024, 768);
    return disponible - QSize(24, 24);
}

void FramelessWindow::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), tema::kCabecera);
    p.fillRect(rect().adjusted(kBordeVentana, 0, -kBordeVentana, -kBordeVentana), tema::kCuerpo);
}

void FramelessWindow::resizeEvent(QResizeEvent* evento) {
    QDialog::resizeEvent(evento);
    AjustarTitulo();
}

void FramelessWindow::AjustarTitulo() {
    lbTitulo_->setFont(tema::Fuente(kLetraTitulo, true));
    const int necesario = AnchoCabecera();
    lbTitulo_->setWordWrap(necesario > width());
    // Two lines hold a little less than twice the text of one.
    if (necesario > width() * 9 / 5) {
        lbTitulo_->setFont(tema::Fuente(kLetraTituloLargo, true));
    }
}

void FramelessWindow::Pulir() {
    ensurePolished();
    const auto controles = findChildren<QWidget*>();
    for (QWidget* control : controles) {
        control->ensurePolished();
    }
}

} // namespace zv

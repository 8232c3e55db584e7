#include "engine/screens/frmBotonAcceso.h"

#include "platform/StringLiterals.h"
#include "ui/screens/Tema.h"

#include <QBitmap>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QRadialGradient>
#include <QScreen>

#include <cmath>

namespace zv {

namespace {

// Pixels at scale 1.
constexpr double kLado = 96;
constexpr double kRadio = 42; // of the disc with its rim
constexpr double kAro = 4;    // the rim
constexpr double kAltura = 3; // of the disc above its shadow
constexpr int kMonedas = 50;
constexpr int kSigno = 26;
constexpr int kOrillaSombra = 60; // alpha of the shadow where it ends

} // namespace

frmBotonAcceso::frmBotonAcceso(BotonAcceso& boton, const QString& nombre)
    : QAbstractButton(nullptr), boton_(boton), arrastre_(*this, {}, Qt::RightButton) {
    setObjectName(u"frmBotonAcceso"_s);
    setAccessibleName(nombre);
    setWindowTitle(nombre);
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint |
                   Qt::WindowDoesNotAcceptFocus);
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_X11NetWmWindowTypeUtility); // no entry in a task bar
    setAttribute(Qt::WA_QuitOnClose, false);
    setFocusPolicy(Qt::NoFocus);

    const QRect pantalla = screen()->geometry();
    const int lado = tema::Px(static_cast<int>(kLado), tema::EscalaDe(pantalla.size()));
    setFixedSize(lado, lado);
    suelto_ = Dibujar(false, devicePixelRatioF());
    pulsado_ = Dibujar(true, devicePixelRatioF());
    // Round also where nothing mixes windows with what lies beneath them, which leaves the corners
    // black.
    setMask(Dibujar(false, 1).mask());

    arrastre_.Añadir(*this);
    arrastre_.PonerLimite([this](const QPoint& sitio) { return EnPantalla(sitio); });
    connect(this, &QAbstractButton::clicked, this, &frmBotonAcceso::Pulsar);
    move(EnPantalla(pantalla.topLeft() + BotonAcceso::SitioInicial(pantalla.width(), size())));
    VigilarPantallas();
}

// Another resolution, or a screen that goes, must not leave it out of sight.
void frmBotonAcceso::VigilarPantallas() {
    const auto vigilar = [this](QScreen* pantalla) {
        connect(pantalla, &QScreen::availableGeometryChanged, this,
                [this] { move(EnPantalla(pos())); });
    };
    const auto pantallas = QGuiApplication::screens();
    for (QScreen* pantalla : pantallas) {
        vigilar(pantalla);
    }
    connect(qGuiApp, &QGuiApplication::screenAdded, this, vigilar);
    connect(
        qGuiApp, &QGuiApplication::screenRemoved, this, [this] { move(EnPantalla(pos())); },
        Qt::QueuedConnection);
}

QPoint frmBotonAcceso::EnPantalla(const QPoint& sitio) const {
    const QScreen* pantalla = QGuiApplication::screenAt(QRect(sitio, size()).center());
    if (pantalla == nullptr) {
        pantalla = screen();
    }
    return BotonAcceso::Entero(sitio, size(), pantalla->availableGeometry());
}

// A light rim around a dark disc stands out from any ground. What shows outside the disc is its
// shadow; pressed, the disc has gone down on it. Money, and the sign of a charge in the queue.
QPixmap frmBotonAcceso::Dibujar(bool pulsado, double puntos) const {
    QPixmap dibujo(size() * puntos);
    dibujo.setDevicePixelRatio(puntos);
    dibujo.fill(Qt::transparent);
    QPainter p(&dibujo);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.scale(width() / kLado, width() / kLado);
    const auto disco = [&p](const QPointF& centro, double radio, const QBrush& pincel) {
        p.setBrush(pincel);
        p.drawEllipse(centro, radio, radio);
    };
    const auto icono = [&p](const QString& nombre, const QColor& color, const QPointF& centro,
                            int lado) {
        QRect cuadro(0, 0, lado, lado);
        cuadro.moveCenter(centro.toPoint());
        tema::Icono(nombre, color).paint(&p, cuadro);
    };
    const QPointF suelo(kLado / 2, kLado / 2);
    QRadialGradient sombra(suelo, kLado / 2);
    sombra.setColorAt(kRadio / kLado * 2 - kAro / kLado * 2, tema::kSombra);
    QColor fuera = tema::kSombra;
    fuera.setAlpha(kOrillaSombra);
    sombra.setColorAt(1, fuera);
    disco(suelo, kLado / 2, sombra);

    const QPointF centro = suelo - QPointF(0, pulsado ? 0 : kAltura);
    disco(centro, kRadio, pulsado ? tema::kAmbar : tema::kCuerpo);
    disco(centro, kRadio - kAro, tema::kCabecera);
    icono(u"zvmonitor"_s, {}, centro - QPointF(5, 3), kMonedas);
    icono(u"list-add"_s, tema::kVerde, centro + QPointF(21, 17), kSigno);
    return dibujo;
}

void frmBotonAcceso::paintEvent(QPaintEvent* /*evento*/) {
    QPainter p(this);
    p.drawPixmap(0, 0, isDown() ? pulsado_ : suelto_);
}

bool frmBotonAcceso::hitButton(const QPoint& sitio) const {
    const QPointF desde = QPointF(sitio) - QPointF(rect().center());
    return std::hypot(desde.x(), desde.y()) <= width() / 2.0;
}

void frmBotonAcceso::mousePressEvent(QMouseEvent* evento) {
    if (evento->button() == Qt::LeftButton && hitButton(evento->position().toPoint())) {
        Pulsar();
    }
}

// The press has done it all.
void frmBotonAcceso::mouseReleaseEvent(QMouseEvent* evento) {
    evento->accept();
}

void frmBotonAcceso::Pulsar() {
    // A box that is up holds it as it holds the mouse: its name on the bus would reach it.
    if (QGuiApplication::modalWindow() != nullptr) {
        return;
    }
    setDown(true);
    repaint(); // the charge keeps the event loop for as long as it lasts
    boton_.Pulsar();
    setDown(false);
}

void frmBotonAcceso::closeEvent(QCloseEvent* evento) {
    // It stays for as long as the program does.
    evento->ignore();
}

} // namespace zv

#include "ui/screens/FramelessWindow.h"

#include "platform/StringLiterals.h"
#include "ui/Claves.h"
#include "ui/screens/Escalable.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"
#include "ui/screens/ZonaTexto.h"

#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QToolButton>
#include <QWindow>

#include <algorithm>

namespace zv {

namespace {

constexpr int kBordeVentana = 1;
constexpr int kLetraTitulo = 18;
constexpr int kLetraTituloLargo = 13;
constexpr int kLogo = 32;
constexpr int kMargenPantalla = 24; // between a dialog and the edges of its screen
// Wider dialogs are tried when a text would be higher than this at the least width.
constexpr int kAltoTextoComodo = 230;
constexpr int kAnchosTexto[] = {480, 600, 720, 860};

// What a window comes up over.
QSize SitioDe(const QWidget* padre, const QScreen* pantalla) {
    if (padre != nullptr) {
        return padre->window()->size();
    }
    return pantalla != nullptr ? pantalla->availableSize() : QSize(1024, 768);
}

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

QWidget* PadreVisible(const std::function<QWidget*()>& padre) {
    QWidget* ventana = padre ? padre() : nullptr;
    return ventana != nullptr && ventana->isVisible() && !ventana->isMinimized() ? ventana
                                                                                 : nullptr;
}

int BordeDerecho(const QWidget& control) {
    return control.x() + control.width();
}
int BordeInferior(const QWidget& control) {
    return control.y() + control.height();
}

Arrastre::Arrastre(QWidget& ventana, std::function<bool()> puede, Qt::MouseButton boton)
    : ventana_(ventana), puede_(std::move(puede)), boton_(boton) {}

void Arrastre::Añadir(QWidget& asidero) {
    asidero.installEventFilter(this);
}

bool Arrastre::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::MouseButtonPress) {
        const auto* raton = static_cast<QMouseEvent*>(evento);
        activo_ = raton->button() == boton_ && (!puede_ || puede_());
        desde_ = raton->globalPosition().toPoint() - ventana_.pos();
        // Wayland lets no window place itself: the compositor moves it.
        if (activo_ && ventana_.windowHandle() != nullptr &&
            QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
            activo_ = !ventana_.windowHandle()->startSystemMove();
        }
    } else if (evento->type() == QEvent::MouseMove) {
        const auto* raton = static_cast<QMouseEvent*>(evento);
        if (activo_ && raton->buttons().testFlag(boton_)) {
            const QPoint sitio = raton->globalPosition().toPoint() - desde_;
            ventana_.move(limite_ ? limite_(sitio) : sitio);
        }
    } else if (evento->type() == QEvent::MouseButtonRelease) {
        activo_ = false;
    }
    return QObject::eventFilter(objeto, evento);
}

FramelessWindow::FramelessWindow(const QString& nombre, QWidget* padre)
    : QDialog(padre, Qt::Dialog | Qt::FramelessWindowHint), frameCab_(new QFrame(this)),
      lbTitulo_(new QLabel(frameCab_)), btnCerrar_(new QToolButton(frameCab_)),
      cabecera_(new QHBoxLayout(frameCab_)), centro_(new QHBoxLayout), cuerpo_(new QVBoxLayout),
      escala_(tema::EscalaDe(SitioDe(padre, screen()))), arrastre_(*this) {
    setObjectName(nombre);
    setModal(true);

    frameCab_->setObjectName(u"frameCab"_s);
    lbTitulo_->setObjectName(u"lbTitulo"_s);
    lbTitulo_->setTextFormat(Qt::PlainText);
    lbTitulo_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    cabecera_->addWidget(lbTitulo_, 1);

    Nombrar(*btnCerrar_, texto::kCerrar);
    tema::PonerPapel(*btnCerrar_, tema::Papel::Cabecera);
    btnCerrar_->setIcon(tema::Icono(u"window-close"_s, tema::kCabeceraTexto));
    cabecera_->addWidget(btnCerrar_);
    connect(btnCerrar_, &QToolButton::clicked, this, &QDialog::reject);

    arrastre_.Añadir(*frameCab_);
    arrastre_.Añadir(*lbTitulo_);

    centro_->setSpacing(0);
    centro_->addLayout(cuerpo_, 1);
    auto* todo = new QVBoxLayout(this);
    todo->setContentsMargins(kBordeVentana, 0, kBordeVentana, kBordeVentana);
    todo->setSpacing(0);
    todo->addWidget(frameCab_);
    todo->addLayout(centro_, 1);
    PonerMedidas();
}

int FramelessWindow::Px(int pixeles) const {
    return tema::Px(pixeles, escala_);
}

void FramelessWindow::PonerMedidas() {
    tema::PonerEscala(*this, escala_);
    tema::PonerPapel(*btnCerrar_, tema::Papel::Cabecera, escala_);
    frameCab_->setFixedHeight(Px(tema::kAltoCabecera));
    cabecera_->setContentsMargins(Px(btnLogo_ == nullptr ? 20 : 8), 0, Px(6), 0);
    cabecera_->setSpacing(Px(8));
    if (btnLogo_ != nullptr) {
        btnLogo_->setIconSize(QSize(Px(kLogo), Px(kLogo)));
        btnLogo_->setFixedSize(Px(tema::kToqueMinimo), Px(tema::kToqueMinimo));
    }
    cuerpo_->setContentsMargins(Px(20), Px(18), Px(20), Px(18));
    cuerpo_->setSpacing(Px(18));
    AjustarTitulo();
}

void FramelessWindow::Escalar(double escala) {
    if (escala_ != escala) {
        escala_ = escala;
        PonerMedidas();
    }
    const auto botones = findChildren<QAbstractButton*>();
    for (QAbstractButton* cada : botones) {
        tema::EscalarPapel(*cada, escala_);
    }
    const auto controles = findChildren<QWidget*>();
    for (QWidget* control : controles) {
        if (auto* escalable = dynamic_cast<Escalable*>(control)) {
            escalable->Escalar(escala_);
        }
    }
}

void FramelessWindow::PonerAlLado(QWidget& control) {
    centro_->addWidget(&control);
}

void FramelessWindow::AjustarCuerpo(ZonaTexto& texto, const QSize& minimo) {
    Pulir();
    const QSize maximo = TamañoMaximo();
    const QMargins m = cuerpo_->contentsMargins();
    const int alrededor = m.left() + m.right() + 2 * kBordeVentana;
    texto.setMinimumHeight(1);
    layout()->activate();
    const QSize resto = layout()->totalMinimumSize() - QSize(0, 1);
    const int ancho =
        qMin(std::max({minimo.width(), AnchoCabecera(), resto.width()}), maximo.width());
    const int cabe = qMax(1, maximo.height() - resto.height());

    // The least width will do for a short text; a long one takes the first width at which it is
    // comfortable, or else the first at which it fits the screen, or else it scrolls.
    int elegido = 0;
    const auto probar = [&](int candidato, int limite) {
        if (elegido == 0 && candidato >= ancho && candidato <= maximo.width() &&
            texto.AltoPara(candidato - alrededor) <= limite) {
            elegido = candidato;
        }
    };
    for (const int limite : {qMin(Px(kAltoTextoComodo), cabe), cabe}) {
        probar(ancho, limite);
        for (const int candidato : kAnchosTexto) {
            probar(Px(candidato), limite);
        }
        probar(maximo.width(), limite);
    }
    if (elegido == 0) {
        elegido = maximo.width();
    }
    texto.Medir(elegido - alrededor, cabe);
    layout()->activate();
    const int alto = resto.height() + texto.minimumHeight();
    setFixedSize(elegido, qMin(qMax(minimo.height(), alto), maximo.height()));
}

void FramelessWindow::setVisible(bool visible) {
    // QDialog's own place allows for a frame, which these windows do not have.
    // Its title may have been translated since it was put.
    setAccessibleName(Titulo());
    if (visible && !isVisible() && !testAttribute(Qt::WA_Moved)) {
        Colocar();
    }
    QDialog::setVisible(visible);
}

void FramelessWindow::Colocar() {
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
    setAccessibleName(titulo);
    AjustarTitulo();
}

QString FramelessWindow::Titulo() const {
    return lbTitulo_->text();
}

QToolButton* FramelessWindow::PonerLogo(const QIcon& icono) {
    btnLogo_ = new QToolButton(frameCab_);
    btnLogo_->setObjectName(u"btnLogo"_s);
    btnLogo_->setAccessibleName(u"ZVMonitor"_s);
    btnLogo_->setFocusPolicy(Qt::NoFocus);
    btnLogo_->setIcon(icono);
    cabecera_->insertWidget(0, btnLogo_);
    arrastre_.Añadir(*btnLogo_);
    PonerMedidas();
    return btnLogo_;
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
    return disponible - QSize(kMargenPantalla, kMargenPantalla);
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
    lbTitulo_->setFont(tema::Fuente(Px(kLetraTitulo), true));
    const int necesario = AnchoCabecera();
    lbTitulo_->setWordWrap(necesario > width());
    // Two lines hold a little less than twice the text of one.
    if (necesario > width() * 9 / 5) {
        lbTitulo_->setFont(tema::Fuente(Px(kLetraTituloLargo), true));
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

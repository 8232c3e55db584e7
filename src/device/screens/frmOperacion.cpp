#include "device/screens/frmOperacion.h"

#include "device/Claves.h"
#include "device/screens/BarraActividad.h"
#include "platform/StringLiterals.h"
#include "ui/Importes.h"
#include "ui/Textos.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace zv {

namespace {

constexpr int kAncho = 600;
constexpr int kLetraRotulo = 20;
constexpr int kLetraImporte = 34;
constexpr int kLetraPrincipal = 52;
constexpr int kAltoTecla = 72;

// What the window says in each kind of operation.
struct TextosClase {
    OperationKind clase;
    const Clave& titulo;
    const Clave& instruccion;
    const Clave& pedido = texto::kLbACobrar;
    const Clave& salido = texto::kLbSalido;
};

const TextosClase& TextosDe(OperationKind clase) {
    static constexpr TextosClase kTextos[] = {
        {OperationKind::Cobro, texto::kTituloCobro, texto::kHacerCobro},
        {OperationKind::Abono, texto::kTituloAbono, texto::kHacerAbono, texto::kLbADevolver},
        {OperationKind::Cambio, texto::kTituloCambio, texto::kHacerCambio},
        {OperationKind::MeterCambio, texto::kTituloMeterCambio, texto::kHacerMeterCambio},
        {OperationKind::Pago, texto::kTituloPago, texto::kHacerPago, texto::kLbAPagar,
         texto::kLbPagado},
        {OperationKind::ControlCajones, texto::kTituloControlCajones, texto::kHacerControlCajones},
        {OperationKind::VaciadoCajon, texto::kTituloVaciadoCajon, texto::kHacerVaciadoCajon},
        {OperationKind::Pendiente, texto::kTituloPendiente, texto::kHacerPendiente}};
    return *std::find_if(std::begin(kTextos), std::end(kTextos) - 1,
                         [clase](const TextosClase& t) { return t.clase == clase; });
}

// A label's colour is a style sheet of its own, which costs more than looking first.
void PonerColor(QLabel& etiqueta, const QColor& color) {
    if (etiqueta.property("color").value<QColor>() != color) {
        etiqueta.setProperty("color", color);
        tema::PonerColorTexto(etiqueta, color);
    }
}

} // namespace

frmOperacion::frmOperacion(const Textos& textos, const Importes& importes,
                           std::function<QWidget*()> padre)
    : FramelessWindow(u"frmOperacion"_s, nullptr), textos_(textos), importes_(importes),
      padre_(std::move(padre)), lbInstruccion_(new QLabel(this)), lbTerminar_(new QLabel(this)),
      lineas_(new QGridLayout), actividad_(new BarraActividad(this)),
      btnCancelar_(CrearTecla(u"btnCancelar"_s, u"dialog-cancel"_s)),
      btnTerminar_(CrearTecla(u"btnTerminar"_s, u"dialog-ok-apply"_s)) {
    setWindowModality(Qt::ApplicationModal);
    // The cross would promise to close a window that stays until the device has ended.
    btnW(1)->hide();
    lbInstruccion_->setObjectName(u"lbInstruccion"_s);
    lbInstruccion_->setFont(tema::Fuente(Px(18)));
    lbInstruccion_->setWordWrap(true);
    lbInstruccion_->setTextFormat(Qt::PlainText);
    // Room for two lines: a note that comes and goes does not move the amounts.
    lbInstruccion_->setMinimumHeight(2 * lbInstruccion_->fontMetrics().lineSpacing());
    Cuerpo()->addWidget(lbInstruccion_);
    lbTerminar_->setObjectName(u"lbTerminar"_s);
    lbTerminar_->setFont(tema::Fuente(Px(18), true));
    lbTerminar_->setWordWrap(true);
    lbTerminar_->setTextFormat(Qt::PlainText);
    Cuerpo()->addWidget(lbTerminar_);
    CrearLineas();
    CrearPie();
    VentanaEncima(*this, true);
}

void frmOperacion::CrearLineas() {
    static constexpr const char* kNombres[] = {"Pedido", "Entrado", "Salido", "Falta"};
    lineas_->setHorizontalSpacing(Px(24));
    lineas_->setVerticalSpacing(Px(6));
    lineas_->setColumnStretch(1, 1);
    for (std::size_t i = 0; i < kLineas; ++i) {
        const QString nombre = QString::fromLatin1(kNombres[i]);
        const bool principal = i == Falta;
        rotulo_[i] = new QLabel(this);
        rotulo_[i]->setObjectName(u"lb"_s + nombre);
        rotulo_[i]->setFont(tema::Fuente(Px(kLetraRotulo), principal));
        valor_[i] = new QLabel(this);
        valor_[i]->setObjectName(u"lbImporte"_s + nombre);
        valor_[i]->setFont(tema::FuenteImporte(Px(principal ? kLetraPrincipal : kLetraImporte)));
        valor_[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        valor_[i]->setTextFormat(Qt::PlainText);
        rotulo_[i]->setBuddy(valor_[i]);
        lineas_->addWidget(rotulo_[i], static_cast<int>(i), 0, Qt::AlignLeft | Qt::AlignVCenter);
        lineas_->addWidget(valor_[i], static_cast<int>(i), 1);
    }
    Cuerpo()->addLayout(lineas_);
}

QPushButton* frmOperacion::CrearTecla(const QString& nombre, const QString& icono) {
    auto* tecla = new QPushButton(this);
    tecla->setObjectName(nombre);
    tecla->setMinimumHeight(Px(kAltoTecla));
    tecla->setIcon(tema::Icono(icono));
    tecla->setIconSize(QSize(Px(28), Px(28)));
    // A barcode scanner types into whatever has the focus and ends with Enter: it must never
    // cancel a sale, nor end a change. Escape is the keyboard's way.
    tecla->setAutoDefault(false);
    tecla->setFocusPolicy(Qt::NoFocus);
    return tecla;
}

void frmOperacion::CrearPie() {
    Cuerpo()->addStretch(1);
    Cuerpo()->addWidget(actividad_);
    connect(btnCancelar_, &QPushButton::clicked, this, &frmOperacion::Cancelar);
    connect(btnTerminar_, &QPushButton::clicked, this, &frmOperacion::Terminar);
    auto* teclas = new QHBoxLayout;
    teclas->setSpacing(Px(24));
    teclas->addWidget(btnCancelar_, 1);
    teclas->addWidget(btnTerminar_, 1);
    Cuerpo()->addLayout(teclas);
}

void frmOperacion::PonerTextos() {
    const TextosClase& textos = TextosDe(clase_);
    TraducirVentana(*this, textos_);
    PonerTitulo(textos_.Traduce(textos.titulo));
    PonerInstruccion(textos.instruccion);
    PonerTexto(*lbTerminar_, textos_, texto::kPulseTerminar);
    PonerTexto(*rotulo_[Pedido], textos_, textos.pedido);
    PonerTexto(*rotulo_[Entrado], textos_, texto::kLbEntrado);
    PonerTexto(*rotulo_[Salido], textos_, textos.salido);
    PonerTexto(*rotulo_[Falta], textos_, texto::kLbFalta);
    PonerPie(texto::kBtnCancelar, texto::kBtnTerminar, true);
}

void frmOperacion::PonerPie(const Clave& cancelar, const Clave& terminar, bool habilitadas) {
    PonerTexto(*btnCancelar_, textos_, cancelar);
    PonerTexto(*btnTerminar_, textos_, terminar);
    btnCancelar_->setEnabled(habilitadas);
    btnTerminar_->setEnabled(habilitadas);
}

void frmOperacion::PonerInstruccion(const Clave& texto) {
    instruccion_ = textos_.Traduce(texto);
    MostrarInstruccion();
}

void frmOperacion::MostrarInstruccion() {
    const bool aviso = !aviso_.isEmpty();
    PonerCaption(*lbInstruccion_, aviso ? aviso_ : instruccion_);
    PonerColor(*lbInstruccion_, aviso ? tema::kRojoTexto : tema::kTexto);
}

void frmOperacion::MostrarLinea(Linea linea, bool visible) {
    rotulo_[linea]->setVisible(visible);
    valor_[linea]->setVisible(visible);
}

void frmOperacion::PonerImporte(Linea linea, qint64 importe) {
    valor_[linea]->setText(importes_.FormatoImporte(Currency::DeEntero(importe)));
    valor_[linea]->setAccessibleName(rotulo_[linea]->text() + u' ' + valor_[linea]->text());
}

void frmOperacion::Abrir(OperationKind kind, qint32 importe, std::function<void()> cancelar,
                         std::function<void()> terminar) {
    clase_ = kind;
    importe_ = importe;
    cancelar_ = std::move(cancelar);
    terminar_ = std::move(terminar);
    aviso_.clear();
    PonerTextos();
    const bool cobro = kind == OperationKind::Cobro;
    const bool salida = kind == OperationKind::Abono || kind == OperationKind::Pago;
    const bool cajones =
        kind == OperationKind::ControlCajones || kind == OperationKind::VaciadoCajon;
    MostrarLinea(Pedido, cobro || salida);
    MostrarLinea(Entrado, !salida && !cajones);
    MostrarLinea(Salido, !cajones && kind != OperationKind::MeterCambio);
    MostrarLinea(Falta, cobro || salida);
    PonerImporte(Pedido, importe);
    Progreso(0, 0);
    btnCancelar_->setVisible(static_cast<bool>(cancelar_));
    btnTerminar_->setVisible(static_cast<bool>(terminar_));
    lbTerminar_->setVisible(static_cast<bool>(terminar_));
    Colocar();
    show();
    raise();
}

void frmOperacion::Colocar() {
    layout()->activate();
    setFixedSize(Px(kAncho), layout()->totalHeightForWidth(Px(kAncho)));
    const QWidget* sobre = padre_ ? padre_() : nullptr;
    const QRect marco =
        sobre != nullptr ? sobre->window()->geometry() : screen()->availableGeometry();
    move(marco.center() - rect().center());
}

void frmOperacion::Progreso(qint32 paidIn, qint32 paidOut) {
    hayDinero_ = paidIn > 0;
    PonerImporte(Entrado, paidIn);
    PonerImporte(Salido, paidOut);
    // A charge waits for money, a payment for what has to come out.
    const qint64 movido = clase_ == OperationKind::Cobro ? paidIn : paidOut;
    const qint64 falta = qMax<qint64>(0, importe_ - movido);
    PonerImporte(Falta, falta);
    PonerColor(*valor_[Falta], falta > 0 ? tema::kTexto : tema::kTextoTenue);
}

void frmOperacion::Aviso(const QString& texto) {
    aviso_ = texto;
    MostrarInstruccion();
}

void frmOperacion::SinTerminar() {
    btnTerminar_->hide();
    terminar_ = nullptr;
    PonerTexto(*lbTerminar_, textos_, texto::kTermineEnZorvex);
    if (cancelar_) { // not pressed either
        PonerPie(texto::kBtnCancelar, texto::kBtnTerminar, true);
        PonerInstruccion(TextosDe(clase_).instruccion);
    }
}

void frmOperacion::Cerrar() {
    cancelar_ = nullptr;
    terminar_ = nullptr;
    hide();
}

void frmOperacion::Cancelar() {
    if (!cancelar_ || !btnCancelar_->isEnabled()) {
        return;
    }
    PonerPie(texto::kCancelando, texto::kBtnTerminar, false);
    PonerCaption(*lbTerminar_, {});
    if (hayDinero_) {
        PonerInstruccion(texto::kDevolviendo);
    }
    // Taken out first: what it leads to may close this window.
    const std::function<void()> cancelar = std::exchange(cancelar_, nullptr);
    cancelar();
}

// The other key goes off with it: money may already be on its way out.
void frmOperacion::Terminar() {
    if (!terminar_ || !btnTerminar_->isEnabled()) {
        return;
    }
    PonerPie(texto::kBtnCancelar, texto::kTerminando, false);
    PonerCaption(*lbTerminar_, {});
    PonerInstruccion(clase_ == OperationKind::Cambio && hayDinero_ ? texto::kRecojaCambio
                                                                   : texto::kEspere);
    const std::function<void()> terminar = std::exchange(terminar_, nullptr);
    terminar();
}

void frmOperacion::reject() {
    Cancelar();
}

void frmOperacion::closeEvent(QCloseEvent* evento) {
    // The window system asks for a cancel; the end of the program must not be held up.
    if (evento->spontaneous()) {
        Cancelar();
        evento->ignore();
    } else {
        evento->accept();
    }
}

void frmOperacion::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape) {
        Cancelar();
    }
    evento->accept(); // nothing typed here reaches anything else
}

} // namespace zv

// Texts, lines and keys of the window of a running operation.
#include "device/screens/frmOperacion.h"

#include "device/screens/BarraActividad.h"
#include "ui/Importes.h"
#include "ui/Textos.h"
#include "ui/screens/Tema.h"

#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

namespace zv {

namespace {

constexpr int kAncho = 600;
constexpr int kLetraRotulo = 20;
constexpr int kLetraImporte = 34;
constexpr int kLetraPrincipal = 52;
constexpr int kAltoCancelar = 72;

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
    : VentanaSinBorde(QStringLiteral("frmOperacion"), nullptr), textos_(textos),
      importes_(importes), padre_(std::move(padre)), lbInstruccion_(new QLabel(this)),
      lineas_(new QGridLayout), actividad_(new BarraActividad(this)),
      btnCancelar_(new QPushButton(this)) {
    setWindowModality(Qt::ApplicationModal);
    // The cross would promise to close a window that stays until the device has ended.
    btnW(1)->hide();
    lbInstruccion_->setObjectName(QStringLiteral("lbInstruccion"));
    lbInstruccion_->setFont(tema::Fuente(18));
    lbInstruccion_->setWordWrap(true);
    lbInstruccion_->setTextFormat(Qt::PlainText);
    // Room for two lines: a note that comes and goes does not move the amounts.
    lbInstruccion_->setMinimumHeight(2 * lbInstruccion_->fontMetrics().lineSpacing());
    Cuerpo()->addWidget(lbInstruccion_);
    CrearLineas();
    CrearPie();
    VentanaEncima(*this, true);
}

void frmOperacion::CrearLineas() {
    static constexpr const char* kNombres[] = {"Pedido", "Entrado", "Salido", "Falta"};
    lineas_->setHorizontalSpacing(24);
    lineas_->setVerticalSpacing(6);
    lineas_->setColumnStretch(1, 1);
    for (std::size_t i = 0; i < kLineas; ++i) {
        const QString nombre = QString::fromLatin1(kNombres[i]);
        const bool principal = i == Falta;
        rotulo_[i] = new QLabel(this);
        rotulo_[i]->setObjectName(QStringLiteral("lb") + nombre);
        rotulo_[i]->setFont(tema::Fuente(kLetraRotulo, principal));
        valor_[i] = new QLabel(this);
        valor_[i]->setObjectName(QStringLiteral("lbImporte") + nombre);
        valor_[i]->setFont(tema::FuenteImporte(principal ? kLetraPrincipal : kLetraImporte));
        valor_[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        valor_[i]->setTextFormat(Qt::PlainText);
        rotulo_[i]->setBuddy(valor_[i]);
        lineas_->addWidget(rotulo_[i], static_cast<int>(i), 0, Qt::AlignLeft | Qt::AlignVCenter);
        lineas_->addWidget(valor_[i], static_cast<int>(i), 1);
    }
    Cuerpo()->addLayout(lineas_);
}

void frmOperacion::CrearPie() {
    Cuerpo()->addStretch(1);
    Cuerpo()->addWidget(actividad_);
    btnCancelar_->setObjectName(QStringLiteral("btnCancelar"));
    btnCancelar_->setMinimumHeight(kAltoCancelar);
    btnCancelar_->setIcon(tema::Icono(QStringLiteral("dialog-cancel")));
    btnCancelar_->setIconSize(QSize(28, 28));
    // A barcode scanner types into whatever has the focus and ends with Enter: it must never
    // cancel a sale. Escape is the keyboard's way.
    btnCancelar_->setAutoDefault(false);
    btnCancelar_->setFocusPolicy(Qt::NoFocus);
    connect(btnCancelar_, &QPushButton::clicked, this, &frmOperacion::Cancelar);
    Cuerpo()->addWidget(btnCancelar_);
}

QString frmOperacion::Texto(const char* clave, const QString& porDefecto) const {
    return tema::Rotulo(
        textos_.TextoForm(QStringLiteral("frmOperacion"), QString::fromLatin1(clave), porDefecto));
}

void frmOperacion::PonerTextos() {
    setWindowTitle(textos_.TextoIdioma(QStringLiteral("GEN"), QStringLiteral("FrmCaption"),
                                       QStringLiteral("Zorvex ®")));
    rotulo_[Entrado]->setText(Texto("lbEntrado", QStringLiteral("Introducido")));
    rotulo_[Salido]->setText(Texto("lbSalido", QStringLiteral("Devuelto")));
    rotulo_[Falta]->setText(Texto("lbFalta", QStringLiteral("Pendiente")));
    switch (clase_) {
    case ClaseOperacion::Cobro:
        PonerTitulo(Texto("TituloCobro", QStringLiteral("Cobro")));
        instruccion_ = Texto("Cobro", QStringLiteral("Introduzca el dinero en Zorvex"));
        rotulo_[Pedido]->setText(Texto("lbACobrar", QStringLiteral("A cobrar")));
        break;
    case ClaseOperacion::Abono:
        PonerTitulo(Texto("TituloAbono", QStringLiteral("Abono")));
        instruccion_ = Texto("Abono", QStringLiteral("Retire el dinero de Zorvex"));
        rotulo_[Pedido]->setText(Texto("lbADevolver", QStringLiteral("A devolver")));
        break;
    case ClaseOperacion::Cambio:
        PonerTitulo(Texto("TituloCambio", QStringLiteral("Dar cambio")));
        instruccion_ = Texto("Cambio", QStringLiteral("Introduzca el dinero que quiere cambiar"));
        break;
    case ClaseOperacion::MeterCambio:
        PonerTitulo(Texto("TituloMeterCambio", QStringLiteral("Añadir cambio")));
        instruccion_ = Texto("MeterCambio", QStringLiteral("Introduzca el cambio en Zorvex"));
        break;
    case ClaseOperacion::Pago:
        PonerTitulo(Texto("TituloPago", QStringLiteral("Pago")));
        instruccion_ = Texto("Pago", QStringLiteral("Retire el dinero de Zorvex"));
        rotulo_[Pedido]->setText(Texto("lbAPagar", QStringLiteral("A pagar")));
        rotulo_[Salido]->setText(Texto("lbPagado", QStringLiteral("Entregado")));
        break;
    case ClaseOperacion::ControlCajones:
        PonerTitulo(Texto("TituloControlCajones", QStringLiteral("Cierre de caja")));
        instruccion_ =
            Texto("ControlCajones", QStringLiteral("Zorvex está pasando dinero a los cajones"));
        break;
    case ClaseOperacion::VaciadoCajon:
        PonerTitulo(Texto("TituloVaciadoCajon", QStringLiteral("Vaciado de cajón")));
        instruccion_ = Texto("VaciadoCajon", QStringLiteral("Vacíe el cajón de Zorvex"));
        break;
    case ClaseOperacion::Pendiente:
        PonerTitulo(Texto("TituloPendiente", QStringLiteral("Operación pendiente")));
        instruccion_ = Texto("Pendiente",
                             QStringLiteral("Se está cancelando una operación anterior que seguía "
                                            "abierta en Zorvex"));
        break;
    }
}

void frmOperacion::MostrarLinea(Linea linea, bool visible) {
    rotulo_[linea]->setVisible(visible);
    valor_[linea]->setVisible(visible);
}

void frmOperacion::PonerImporte(Linea linea, qint64 importe) {
    valor_[linea]->setText(importes_.FormatoImporte(Currency::DeEntero(importe)));
    valor_[linea]->setAccessibleName(rotulo_[linea]->text());
}

void frmOperacion::Abrir(ClaseOperacion clase, qint32 importe, std::function<void()> cancelar) {
    clase_ = clase;
    importe_ = importe;
    cancelar_ = std::move(cancelar);
    PonerTextos();
    const bool cobro = clase == ClaseOperacion::Cobro;
    const bool salida = clase == ClaseOperacion::Abono || clase == ClaseOperacion::Pago;
    const bool cajones =
        clase == ClaseOperacion::ControlCajones || clase == ClaseOperacion::VaciadoCajon;
    MostrarLinea(Pedido, cobro || salida);
    MostrarLinea(Entrado, !salida && !cajones);
    MostrarLinea(Salido, !cajones && clase != ClaseOperacion::MeterCambio);
    MostrarLinea(Falta, cobro || salida);
    PonerImporte(Pedido, importe);
    Progreso(0, 0);
    Aviso({});
    btnCancelar_->setText(Texto("btnCancelar", QStringLiteral("Cancelar")));
    btnCancelar_->setVisible(static_cast<bool>(cancelar_));
    btnCancelar_->setEnabled(true);
    Colocar();
    show();
    raise();
}

void frmOperacion::Colocar() {
    layout()->activate();
    setFixedSize(kAncho, layout()->totalHeightForWidth(kAncho));
    const QWidget* sobre = padre_ ? padre_() : nullptr;
    const QRect marco =
        sobre != nullptr ? sobre->window()->geometry() : screen()->availableGeometry();
    move(marco.center() - rect().center());
}

void frmOperacion::Progreso(qint32 paidIn, qint32 paidOut) {
    PonerImporte(Entrado, paidIn);
    PonerImporte(Salido, paidOut);
    // A charge waits for money, a payment for what has to come out.
    const qint64 movido = clase_ == ClaseOperacion::Cobro ? paidIn : paidOut;
    const qint64 falta = qMax<qint64>(0, importe_ - movido);
    PonerImporte(Falta, falta);
    PonerColor(*valor_[Falta], falta > 0 ? tema::kTexto : tema::kTextoTenue);
}

void frmOperacion::Aviso(const QString& texto) {
    const bool aviso = !texto.isEmpty();
    lbInstruccion_->setText(aviso ? tema::Rotulo(texto) : instruccion_);
    PonerColor(*lbInstruccion_, aviso ? tema::kRojoTexto : tema::kTexto);
}

void frmOperacion::Cerrar() {
    cancelar_ = nullptr;
    hide();
}

void frmOperacion::Cancelar() {
    if (!cancelar_ || !btnCancelar_->isEnabled()) {
        return;
    }
    btnCancelar_->setEnabled(false);
    btnCancelar_->setText(Texto("Cancelando", QStringLiteral("Cancelando…")));
    // Taken out first: what it leads to may close this window.
    const std::function<void()> cancelar = std::exchange(cancelar_, nullptr);
    cancelar();
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

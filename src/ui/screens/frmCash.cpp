// The amount prompt.
#include "ui/screens/frmCash.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "ui/Claves.h"
#include "ui/Importes.h"
#include "ui/screens/EtiquetaTexto.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace zv {

namespace {

constexpr int kEntrar = 11;
constexpr int kCancelar = 12;
constexpr int kRetroceso = 13;
constexpr int kSinImporte = 14;
constexpr int kDecimal = 10;

constexpr QSize kTecla(92, 72);
constexpr int kAnchoOrdenes = 168;

} // namespace

frmCash::frmCash(const Textos& textos, const Importes& importes, QWidget* padre)
    : FramelessWindow(u"frmCash"_s, padre), importes_(importes),
      lbImporte_(new EtiquetaTexto(this)), tbImporte_(new QLineEdit(this)) {
    BuscarMarcas();
    lbImporte_->setObjectName(u"lbImporte"_s);
    lbImporte_->setFont(tema::Fuente(18));
    lbImporte_->setBuddy(tbImporte_);
    tbImporte_->setObjectName(u"tbImporte"_s);
    tbImporte_->setProperty("papel", u"importe"_s);
    tbImporte_->setFont(tema::FuenteImporte(34));
    tbImporte_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    tbImporte_->setInputMethodHints(Qt::ImhFormattedNumbersOnly);
    tbImporte_->installEventFilter(this);
    Cuerpo()->addWidget(lbImporte_);
    Cuerpo()->addWidget(tbImporte_);
    CrearTeclado();
    TraducirPantalla(*this, textos);
    VentanaEncima(*this, true);
}

void frmCash::BuscarMarcas() {
    const QString muestra = importes_.Formato().FormatoCurrency(1234.5);
    const qsizetype uno = muestra.indexOf(QLatin1Char('1'));
    const qsizetype cuatro = muestra.indexOf(QLatin1Char('4'));
    if (uno >= 0 && uno + 1 < muestra.size() && muestra[uno + 1] != QLatin1Char('2')) {
        miles_ = muestra[uno + 1];
    }
    decimal_ = cuatro >= 0 && cuatro + 1 < muestra.size() ? muestra[cuatro + 1] : QChar(u'.');
    // A currency without decimals has none to find: the region's own mark serves.
    if (!decimal_.isPunct()) {
        decimal_ = importes_.Formato().MarcaDecimal();
    }
}

void frmCash::CrearTeclado() {
    auto* rejilla = new QGridLayout;
    rejilla_ = rejilla;
    rejilla->setSpacing(8);
    static constexpr const char* kCifras[] = {"9", "4", "5", "6", "1", "2", "3", "7", "8", "0"};
    static constexpr int kFila[] = {0, 1, 1, 1, 2, 2, 2, 0, 0, 3, 3};
    static constexpr int kColumna[] = {2, 0, 1, 2, 0, 1, 2, 0, 1, 0, 1};
    for (int i = 0; i <= kDecimal; ++i) {
        const QString texto = i == kDecimal ? QString(decimal_) : QString::fromLatin1(kCifras[i]);
        auto* tecla = new QPushButton(texto, this);
        tecla->setProperty("Tag", texto);
        tema::PonerPapel(*tecla, tema::Papel::Tecla);
        connect(tecla, &QPushButton::clicked, this,
                [this, tecla] { Teclear(tecla->property("Tag").toString()); });
        rejilla->addWidget(tecla, kFila[i], kColumna[i]);
        teci_[static_cast<std::size_t>(i)] = tecla;
    }
    auto* retroceso = new QToolButton(this);
    Rotular(*retroceso, texto::kCashRetroceso);
    retroceso->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    tema::PonerPapel(*retroceso, tema::Papel::Tecla);
    retroceso->setIcon(tema::Icono(u"edit-clear"_s));
    retroceso->setAutoRepeat(true);
    connect(retroceso, &QToolButton::clicked, this, [this] { Teclear(u"{BACKSPACE}"_s); });
    rejilla->addWidget(retroceso, 3, 2);
    teci_[kRetroceso] = retroceso;

    const auto orden = [this](int indice, const Clave& clave) {
        auto* boton = new QPushButton(this);
        Rotular(*boton, clave);
        boton->setAutoDefault(false);
        boton->setFixedWidth(kAnchoOrdenes);
        boton->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
        teci_[static_cast<std::size_t>(indice)] = boton;
        return boton;
    };
    QPushButton* cancelar = orden(kCancelar, texto::kCashCancelar);
    QPushButton* sinImporte = orden(kSinImporte, texto::kCashSinImporte);
    QPushButton* entrar = orden(kEntrar, texto::kCashEntrar);
    tema::PonerPapel(*entrar, tema::Papel::Principal);
    entrar->setFixedWidth(kAnchoOrdenes);
    entrar->setDefault(true);
    sinImporte->hide();
    rejilla->setColumnMinimumWidth(3, 8);
    rejilla->addWidget(cancelar, 0, 4);
    rejilla->addWidget(sinImporte, 1, 4);
    rejilla->addWidget(entrar, 1, 4, 3, 1);
    connect(entrar, &QPushButton::clicked, this, &frmCash::Entrar);
    connect(cancelar, &QPushButton::clicked, this, &frmCash::Cancelar);
    connect(sinImporte, &QPushButton::clicked, this, &frmCash::Cancelar);

    for (int fila = 0; fila < 4; ++fila) {
        rejilla->setRowMinimumHeight(fila, kTecla.height());
    }
    for (int columna = 0; columna < 3; ++columna) {
        rejilla->setColumnMinimumWidth(columna, kTecla.width());
    }
    for (std::size_t i = 0; i <= kDecimal; ++i) {
        teci_[i]->setObjectName(u"teci_%1"_s.arg(i));
    }
    setTabOrder(tbImporte_, entrar);
    setTabOrder(entrar, sinImporte);
    setTabOrder(sinImporte, cancelar);
    Cuerpo()->addLayout(rejilla, 1);
}

void frmCash::Preparar(const QString& titulo, const QString& prompt, Currency porDefecto,
                       bool sinImporte) {
    PonerTitulo(titulo);
    lbImporte_->setText(tema::Rotulo(prompt));
    tbImporte_->setAccessibleName(prompt);
    tbImporte_->setText(importes_.FormatoImporte(porDefecto));
    tbImporte_->selectAll();
    tbImporte_->setFocus();
    teci_[kSinImporte]->setVisible(sinImporte);
    // Its place belongs to teci(11) when it is not offered.
    if (sinImporte) {
        rejilla_->addWidget(teci_[kEntrar], 2, 4, 2, 1);
    }
    Ajustar();
}

void frmCash::Ajustar() {
    Pulir();
    const QSize maximo = TamañoMaximo();
    const int ancho =
        qMin(qMax(layout()->totalMinimumSize().width(), AnchoCabecera()), maximo.width());
    const QMargins m = Cuerpo()->contentsMargins();
    lbImporte_->setMinimumHeight(lbImporte_->heightForWidth(ancho - m.left() - m.right() - 2));
    setFixedSize(ancho, qMin(layout()->totalMinimumSize().height(), maximo.height()));
}

void frmCash::Teclear(const QString& teclas) {
    tbImporte_->setFocus();
    EnviaTeclas(teclas);
}

void frmCash::Entrar() {
    const QString texto = tbImporte_->text();
    if (!importes_.Formato().EsNumerico(texto)) {
        tbImporte_->setFocus();
        tbImporte_->selectAll();
        return;
    }
    try {
        const qint64 valor = importes_.Formato().LeerCurrency(texto).Diezmilesimas();
        qint64 producto = 0;
        if (__builtin_mul_overflow(valor, qint64{importes_.Multiplicador()}, &producto)) {
            throw errores::Desbordamiento();
        }
        importe_ = Currency::DeDiezmilesimas(producto);
        static_cast<void>(importe_.AEntero32()); // raises beyond 32 bits
    } catch (const ErrorEjecucion&) {
        // Not out of a slot: the caller of the dialog receives it.
        fallo_ = std::current_exception();
    }
    done(QDialog::Accepted);
}

void frmCash::Cancelar() {
    cancelado = true;
    done(QDialog::Rejected);
}

void frmCash::reject() {
    Cancelar();
}

Currency frmCash::Importe() const {
    if (fallo_) {
        std::rethrow_exception(fallo_);
    }
    return importe_; // 0 unless teci(11) has taken an amount
}

bool frmCash::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == tbImporte_ && evento->type() == QEvent::KeyPress) {
        const auto* pulsada = static_cast<QKeyEvent*>(evento);
        switch (pulsada->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            teci_[kEntrar]->click();
            return true;
        case Qt::Key_Escape:
            teci_[kCancelar]->click();
            return true;
        default:
            break;
        }
        // The point of a numeric pad enters the region's comma, and the other way round.
        if (!miles_.isNull() && pulsada->text() == QString(miles_)) {
            tbImporte_->insert(QString(decimal_));
            return true;
        }
    }
    return FramelessWindow::eventFilter(objeto, evento);
}

} // namespace zv

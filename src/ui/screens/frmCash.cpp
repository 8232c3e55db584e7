#include "ui/screens/frmCash.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "ui/Claves.h"
#include "ui/Importes.h"
#include "ui/screens/EtiquetaTexto.h"
#include "ui/screens/TecladoNumerico.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"
#include "ui/screens/ZonaTexto.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

namespace zv {

namespace {

constexpr int kAnchoOrdenes = 168;

} // namespace

frmCash::frmCash(const Textos& textos, const Importes& importes, QWidget* padre)
    : FramelessWindow(u"frmCash"_s, padre), importes_(importes),
      zonaImporte_(new ZonaTexto(u"lbImporte"_s, this)), tbImporte_(new QLineEdit(this)) {
    BuscarMarcas();
    zonaImporte_->Etiqueta().setBuddy(tbImporte_);
    tbImporte_->setObjectName(u"tbImporte"_s);
    tbImporte_->setProperty("papel", u"importe"_s);
    tbImporte_->setFont(tema::FuenteImporte(Px(34)));
    tbImporte_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    tbImporte_->setInputMethodHints(Qt::ImhFormattedNumbersOnly);
    tbImporte_->installEventFilter(this);
    Cuerpo()->addWidget(zonaImporte_);
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

QPushButton* frmCash::CrearOrden(const Clave& clave, void (frmCash::*al)()) {
    auto* boton = new QPushButton(this);
    Rotular(*boton, clave);
    boton->setAutoDefault(false);
    boton->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    connect(boton, &QPushButton::clicked, this, al);
    return boton;
}

void frmCash::CrearTeclado() {
    teclado_ = new TecladoNumerico(texto::kCashRetroceso, decimal_, this);
    teclado_->Escalar(Escala());
    teclado_->Servir(*tbImporte_);

    cancelar_ = CrearOrden(texto::kCashCancelar, &frmCash::Cancelar);
    sinImporte_ = CrearOrden(texto::kCashSinImporte, &frmCash::SinImporte);
    entrar_ = CrearOrden(texto::kCashEntrar, &frmCash::Entrar);
    tema::PonerPapel(*entrar_, tema::Papel::Principal, Escala());
    entrar_->setDefault(true);
    sinImporte_->hide();
    // Rows as high as those of the keypad beside them.
    ordenes_ = new QGridLayout;
    ordenes_->setVerticalSpacing(teclado_->Hueco());
    ordenes_->addWidget(cancelar_, 0, 0);
    ordenes_->addWidget(sinImporte_, 1, 0);
    ordenes_->addWidget(entrar_, 1, 0, 3, 1);
    for (int fila = 0; fila < 4; ++fila) {
        ordenes_->setRowStretch(fila, 1);
    }
    for (QPushButton* orden : {cancelar_, sinImporte_, entrar_}) {
        orden->setFixedWidth(Px(kAnchoOrdenes));
    }
    setTabOrder(tbImporte_, entrar_);
    setTabOrder(entrar_, sinImporte_);
    setTabOrder(sinImporte_, cancelar_);
    auto* fila = new QHBoxLayout;
    fila->setSpacing(3 * teclado_->Hueco());
    fila->addWidget(teclado_, 1);
    fila->addLayout(ordenes_);
    Cuerpo()->addLayout(fila, 1);
}

void frmCash::Preparar(const QString& titulo, const QString& prompt, Currency porDefecto,
                       bool sinImporte) {
    PonerTitulo(titulo);
    zonaImporte_->PonerTexto(prompt);
    tbImporte_->setAccessibleName(prompt);
    tbImporte_->setText(importes_.FormatoImporte(porDefecto));
    tbImporte_->selectAll();
    tbImporte_->setFocus();
    sinImporte_->setVisible(sinImporte);
    // Its place belongs to teci(11) when it is not offered.
    if (sinImporte) {
        ordenes_->addWidget(entrar_, 2, 0, 2, 1);
    }
    AjustarCuerpo(*zonaImporte_, QSize());
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

void frmCash::SinImporte() {
    elegidoSinImporte = true;
    Cancelar();
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
            entrar_->click();
            return true;
        case Qt::Key_Escape:
            cancelar_->click();
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

// The text prompt.
#include "ui/screens/frmTexto.h"

#include "platform/StringLiterals.h"
#include "ui/Claves.h"
#include "ui/screens/EtiquetaTexto.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>

namespace zv {

namespace {

constexpr int kAncho = 560;

} // namespace

frmTexto::frmTexto(const Textos& textos, std::function<void()> abrirTeclado, QWidget* padre)
    : FramelessWindow(u"frmTexto"_s, padre), abrirTeclado_(std::move(abrirTeclado)),
      lbTexto_(new EtiquetaTexto(this)), tbTexto_(new QLineEdit(this)),
      teclado_(new QToolButton(this)) {
    lbTexto_->setObjectName(u"lbTexto"_s);
    lbTexto_->setFont(tema::Fuente(18));
    lbTexto_->setBuddy(tbTexto_);
    tbTexto_->setObjectName(u"tbTexto"_s);
    tbTexto_->installEventFilter(this);

    Nombrar(*teclado_, texto::kTextoTeclado, Pista::Si);
    tema::PonerPapel(*teclado_, tema::Papel::Normal);
    teclado_->setIcon(tema::Icono(u"input-keyboard"_s));
    teclado_->setIconSize(QSize(32, 32));
    teclado_->setFixedSize(tema::kTeclaMinima, 52);
    connect(teclado_, &QToolButton::clicked, this, &frmTexto::AbrirTeclado);

    auto* entrada = new QHBoxLayout;
    entrada->setSpacing(10);
    entrada->addWidget(tbTexto_, 1);
    entrada->addWidget(teclado_);

    auto* fila = new QHBoxLayout;
    fila->setSpacing(16);
    fila->addStretch(1);
    const Clave* const claves[] = {&texto::kTextoAceptar, &texto::kTextoCancelar};
    for (int i = 0; i < 2; ++i) {
        boton_[i] = new QPushButton(this);
        Rotular(*boton_[i], *claves[i]);
        boton_[i]->setMinimumWidth(172);
        fila->addWidget(boton_[i]);
        connect(boton_[i], &QPushButton::clicked, this, [this, i] { Terminar(i + 1); });
    }
    boton_[0]->setDefault(true);

    Cuerpo()->addWidget(lbTexto_);
    Cuerpo()->addLayout(entrada);
    Cuerpo()->addStretch(1);
    Cuerpo()->addLayout(fila);
    setTabOrder(tbTexto_, boton_[0]);
    setTabOrder(boton_[0], boton_[1]);
    setTabOrder(boton_[1], teclado_);
    TraducirPantalla(*this, textos);
    VentanaEncima(*this, true);
}

void frmTexto::Preparar(const QString& titulo, const QString& texto, const QString& porDefecto) {
    PonerTitulo(titulo);
    lbTexto_->setText(tema::Rotulo(texto));
    tbTexto_->setAccessibleName(texto);
    tbTexto_->setText(porDefecto);
    tbTexto_->selectAll();
    tbTexto_->setFocus();
    Ajustar();
}

QString frmTexto::Texto() const {
    return tbTexto_->text();
}

void frmTexto::Terminar(int con) {
    resultado = con;
    done(con == 1 ? QDialog::Accepted : QDialog::Rejected);
}

void frmTexto::reject() {
    Terminar(2);
}

void frmTexto::AbrirTeclado() {
    // Keyboards come up at the lower edge: the box must stay in sight above it.
    if (const QScreen* pantalla = screen()) {
        move(x(), qMin(y(), pantalla->availableGeometry().top() + 24));
    }
    if (abrirTeclado_) {
        abrirTeclado_();
    }
    tbTexto_->setFocus();
}

void frmTexto::Ajustar() {
    Pulir();
    const QSize maximo = TamañoMaximo();
    const int ancho = qMin(qMax(kAncho, AnchoCabecera()), maximo.width());
    const QMargins m = Cuerpo()->contentsMargins();
    lbTexto_->setMinimumHeight(lbTexto_->heightForWidth(ancho - m.left() - m.right() - 2));
    setFixedSize(ancho, qMin(layout()->totalMinimumSize().height(), maximo.height()));
}

bool frmTexto::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == tbTexto_ && evento->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent*>(evento)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            boton_[0]->click();
            return true;
        }
        if (tecla == Qt::Key_Escape) {
            boton_[1]->click();
            return true;
        }
    }
    return FramelessWindow::eventFilter(objeto, evento);
}

} // namespace zv

#include "ui/screens/frmTexto.h"

#include "platform/StringLiterals.h"
#include "ui/Claves.h"
#include "ui/screens/EtiquetaTexto.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"
#include "ui/screens/ZonaTexto.h"

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
      zonaTexto_(new ZonaTexto(u"lbTexto"_s, this)), tbTexto_(new QLineEdit(this)),
      teclado_(new QToolButton(this)) {
    zonaTexto_->Etiqueta().setBuddy(tbTexto_);
    tbTexto_->setObjectName(u"tbTexto"_s);
    tbTexto_->installEventFilter(this);

    Nombrar(*teclado_, texto::kTextoTeclado, Pista::Si);
    tema::PonerPapel(*teclado_, tema::Papel::Normal, Escala());
    teclado_->setIcon(tema::Icono(u"input-keyboard"_s));
    teclado_->setIconSize(QSize(Px(32), Px(32)));
    teclado_->setFixedSize(Px(tema::kTeclaMinima), Px(52));
    connect(teclado_, &QToolButton::clicked, this, &frmTexto::AbrirTeclado);

    auto* entrada = new QHBoxLayout;
    entrada->setSpacing(Px(10));
    entrada->addWidget(tbTexto_, 1);
    entrada->addWidget(teclado_);

    auto* fila = new QHBoxLayout;
    fila->setSpacing(Px(16));
    fila->addStretch(1);
    const Clave* const claves[] = {&texto::kTextoAceptar, &texto::kTextoCancelar};
    for (int i = 0; i < 2; ++i) {
        boton_[i] = new QPushButton(this);
        Rotular(*boton_[i], *claves[i]);
        boton_[i]->setMinimumWidth(Px(172));
        fila->addWidget(boton_[i]);
        connect(boton_[i], &QPushButton::clicked, this, [this, i] { Terminar(i + 1); });
    }
    boton_[0]->setDefault(true);

    Cuerpo()->addWidget(zonaTexto_);
    Cuerpo()->addLayout(entrada);
    Cuerpo()->addLayout(fila);
    setTabOrder(tbTexto_, boton_[0]);
    setTabOrder(boton_[0], boton_[1]);
    setTabOrder(boton_[1], teclado_);
    TraducirPantalla(*this, textos);
    VentanaEncima(*this, true);
}

void frmTexto::Preparar(const QString& titulo, const QString& texto, const QString& porDefecto) {
    PonerTitulo(titulo);
    zonaTexto_->PonerTexto(texto);
    tbTexto_->setAccessibleName(texto);
    tbTexto_->setText(porDefecto);
    tbTexto_->selectAll();
    tbTexto_->setFocus();
    AjustarCuerpo(*zonaTexto_, QSize(Px(kAncho), 0));
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
        move(x(), qMin(y(), pantalla->availableGeometry().top() + Px(24)));
    }
    if (abrirTeclado_) {
        abrirTeclado_();
    }
    tbTexto_->setFocus();
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

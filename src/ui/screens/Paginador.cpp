#include "ui/screens/Paginador.h"

#include "platform/StringLiterals.h"
#include "ui/Claves.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QToolButton>
#include <QVBoxLayout>

namespace zv {

namespace {

constexpr int kAncho = 76;

} // namespace

Paginador::Paginador(const QString& nombre, QWidget* padre)
    : QFrame(padre), btnArriba_(Boton(texto::kPaginaAnterior, u"go-up"_s)),
      btnAbajo_(Boton(texto::kPaginaSiguiente, u"go-down"_s)) {
    setObjectName(nombre);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(btnArriba_);
    columna->addStretch(1);
    columna->addWidget(btnAbajo_);
    Escalar(1);
}

QToolButton* Paginador::Boton(const Clave& clave, const QString& icono) {
    auto* boton = new QToolButton(this);
    Nombrar(*boton, clave);
    boton->setIcon(tema::Icono(icono));
    boton->setFocusPolicy(Qt::NoFocus);
    return boton;
}

void Paginador::PonerExtremos() {
    btnTop_ = Boton(texto::kPrimeraFila, u"go-top"_s);
    btnBottom_ = Boton(texto::kUltimaFila, u"go-bottom"_s);
    auto* columna = static_cast<QVBoxLayout*>(layout());
    columna->insertWidget(0, btnTop_);
    columna->addWidget(btnBottom_);
    Escalar(escala_);
}

void Paginador::Tumbar() {
    tumbado_ = true;
    static_cast<QVBoxLayout*>(layout())->setDirection(QBoxLayout::LeftToRight);
    setMinimumWidth(0);
    setMaximumWidth(QWIDGETSIZE_MAX);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    Escalar(escala_);
}

void Paginador::Escalar(double escala) {
    escala_ = escala;
    const auto px = [escala](int pixeles) { return tema::Px(pixeles, escala); };
    if (!tumbado_) {
        setFixedWidth(px(kAncho));
    }
    layout()->setContentsMargins(px(6), px(6), px(6), px(6));
    for (QToolButton* boton : {btnTop_, btnArriba_, btnAbajo_, btnBottom_}) {
        if (boton == nullptr) {
            continue;
        }
        boton->setIconSize(QSize(px(36), px(36)));
        const QSize lados(px(tema::kTeclaMinima), px(tema::kTeclaMinima + 16));
        boton->setFixedSize(tumbado_ ? lados.transposed() : lados);
    }
}

void Paginador::Habilitar(bool arriba, bool abajo) {
    btnArriba_->setEnabled(arriba);
    btnAbajo_->setEnabled(abajo);
    if (btnTop_ != nullptr) {
        btnTop_->setEnabled(arriba);
        btnBottom_->setEnabled(abajo);
    }
}

} // namespace zv

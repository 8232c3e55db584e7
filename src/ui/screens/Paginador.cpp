// Layout of the page buttons.
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
    setFixedWidth(kAncho);
    auto* columna = new QVBoxLayout(this);
    columna->setContentsMargins(6, 6, 6, 6);
    columna->addWidget(btnArriba_);
    columna->addStretch(1);
    columna->addWidget(btnAbajo_);
}

QToolButton* Paginador::Boton(const Clave& clave, const QString& icono) {
    auto* boton = new QToolButton(this);
    Nombrar(*boton, clave);
    boton->setIcon(tema::Icono(icono));
    boton->setIconSize(QSize(36, 36));
    boton->setFixedSize(tema::kTeclaMinima, tema::kTeclaMinima + 16);
    boton->setFocusPolicy(Qt::NoFocus);
    return boton;
}

void Paginador::Habilitar(bool arriba, bool abajo) {
    btnArriba_->setEnabled(arriba);
    btnAbajo_->setEnabled(abajo);
}

} // namespace zv

// Layout of the page buttons.
#include "ui/screens/Paginador.h"

#include "platform/StringLiterals.h"
#include "ui/screens/Tema.h"

#include <QToolButton>
#include <QVBoxLayout>

namespace zv {

namespace {

constexpr int kAncho = 76;

} // namespace

Paginador::Paginador(const QString& nombre, QWidget* padre)
    : QFrame(padre), btnArriba_(Boton(u"btnArriba"_s, u"Página anterior"_s, u"go-up"_s)),
      btnAbajo_(Boton(u"btnAbajo"_s, u"Página siguiente"_s, u"go-down"_s)) {
    setObjectName(nombre);
    setFixedWidth(kAncho);
    auto* columna = new QVBoxLayout(this);
    columna->setContentsMargins(6, 6, 6, 6);
    columna->addWidget(btnArriba_);
    columna->addStretch(1);
    columna->addWidget(btnAbajo_);
}

QToolButton* Paginador::Boton(const QString& nombre, const QString& accesible,
                              const QString& icono) {
    auto* boton = new QToolButton(this);
    boton->setObjectName(nombre);
    boton->setAccessibleName(accesible);
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

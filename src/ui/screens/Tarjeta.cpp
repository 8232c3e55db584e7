// Spaces of a card; its look is the theme's.
#include "ui/screens/Tarjeta.h"

#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QVBoxLayout>

namespace zv {

Tarjeta::Tarjeta(const Clave& titulo, QWidget* padre)
    : QGroupBox(padre), cuerpo_(new QVBoxLayout(this)) {
    Rotular(*this, titulo);
    Escalar(1);
}

void Tarjeta::Escalar(double escala) {
    const auto px = [escala](int pixeles) { return tema::Px(pixeles, escala); };
    cuerpo_->setContentsMargins(px(16), px(4), px(16), px(14));
    cuerpo_->setSpacing(px(10));
}

} // namespace zv

// Three buttons that release each other.
#include "ui/screens/SelectorTres.h"

#include "platform/StringLiterals.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace zv {

SelectorTres::SelectorTres(const Clave& grupo, const std::array<const Clave*, 3>& partes,
                           QWidget* padre)
    : QGroupBox(padre) {
    Nombrar(*this, grupo);
    auto* fila = new QHBoxLayout(this);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->setSpacing(0);
    for (int i = 0; i < 3; ++i) {
        auto* parte = new QPushButton(this);
        Rotular(*parte, *partes[static_cast<std::size_t>(i)]);
        parte->setCheckable(true);
        parte->setAutoExclusive(true);
        parte->setAutoDefault(false);
        connect(parte, &QPushButton::clicked, this, [this, i] {
            // The one that is chosen already stays so, and nothing has happened.
            if (i != elegida_) {
                elegida_ = i;
                Q_EMIT Elegido(i);
            }
        });
        fila->addWidget(parte, 1);
        parte->setProperty("lugar", i == 0 ? u"primera"_s : i == 2 ? u"ultima"_s : u"media"_s);
        partes_[static_cast<std::size_t>(i)] = parte;
    }
    // The base class measured itself by the rules of its own name, before it had this one.
    setContentsMargins(0, 0, 0, 0);
    Escalar(1);
}

int SelectorTres::Elegida() const {
    for (int i = 0; i < 3; ++i) {
        if (Parte(i)->isChecked()) {
            return i;
        }
    }
    return kNinguna;
}

void SelectorTres::Elegir(int indice) {
    elegida_ = indice;
    for (int i = 0; i < 3; ++i) {
        // Exclusive buttons keep one of them down.
        Parte(i)->setAutoExclusive(false);
        Parte(i)->setChecked(i == indice);
        Parte(i)->setAutoExclusive(true);
    }
}

void SelectorTres::Escalar(double escala) {
    for (QPushButton* parte : partes_) {
        tema::PonerPapel(*parte, tema::Papel::Parte, escala);
    }
}

} // namespace zv

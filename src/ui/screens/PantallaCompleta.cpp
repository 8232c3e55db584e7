#include "ui/screens/PantallaCompleta.h"

#include "platform/StringLiterals.h"
#include "ui/screens/Paginador.h"
#include "ui/screens/Tema.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace zv {

PantallaCompleta::PantallaCompleta(const QString& nombre, std::span<const EntradaPie> pie,
                                   QWidget* padre)
    : FramelessWindow(nombre, padre), pie_(new BarraPie(pie, this)) {
    PonerLogo(tema::Icono(u"zvmonitor"_s));
    static_cast<QVBoxLayout*>(layout())->addWidget(pie_);
    connect(pie_, &BarraPie::Pulsado, this, [this](int indice) {
        if (boton(indice) == pie_->BotonSalir()) {
            reject();
        } else {
            Pulsado(indice);
        }
    });
}

Paginador* PantallaCompleta::PonerPaginador() {
    auto* paginador = new Paginador(u"pctScrollBar"_s, this);
    PonerAlLado(*paginador);
    return paginador;
}

void PantallaCompleta::setVisible(bool visible) {
    if (visible && !isVisible()) {
        // Of the buttons of a dialog one would be filled, and pressed by Enter.
        const auto botones = findChildren<QPushButton*>();
        for (QPushButton* cada : botones) {
            cada->setAutoDefault(false);
        }
        // Nor is a button the one that a key presses first.
        if (focusWidget() == nullptr) {
            setFocus();
        }
    }
    FramelessWindow::setVisible(visible);
}

void PantallaCompleta::reject() {
    if (PuedeSalir()) {
        QDialog::reject();
    }
}

void PantallaCompleta::Colocar() {
    // The till's window may reach beyond the work area, and may be smaller than it.
    QRect sitio = screen()->availableGeometry();
    if (const QWidget* sobre = parentWidget();
        sobre != nullptr && sobre->window()->isVisible() && !sobre->window()->isMinimized()) {
        sitio |= sobre->window()->geometry();
    }
    setGeometry(sitio);
}

void PantallaCompleta::keyPressEvent(QKeyEvent* evento) {
    switch (evento->key()) {
    case Qt::Key_Escape:
        if (EscapeSale()) {
            reject();
        }
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // A scanner ends with Enter: a full screen has no button that it presses.
        return;
    default:
        FramelessWindow::keyPressEvent(evento);
    }
}

void PantallaCompleta::resizeEvent(QResizeEvent* evento) {
    Escalar(tema::EscalaDe(size()));
    FramelessWindow::resizeEvent(evento);
}

} // namespace zv

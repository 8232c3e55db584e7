#include "ui/screens/ZonaTexto.h"

#include "ui/screens/EtiquetaTexto.h"
#include "ui/screens/Tema.h"

#include <QScrollBar>

namespace zv {

ZonaTexto::ZonaTexto(const QString& nombre, QWidget* padre)
    : QScrollArea(padre), etiqueta_(new EtiquetaTexto) {
    etiqueta_->setObjectName(nombre);
    tema::PonerLetra(*etiqueta_, tema::Letra::Texto);
    setWidget(etiqueta_);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setMinimumHeight(1); // one line of text is less than a scroll area asks for
    viewport()->setAutoFillBackground(false);
    etiqueta_->setAutoFillBackground(false);
}

void ZonaTexto::PonerTexto(const QString& texto) {
    etiqueta_->setText(tema::Rotulo(texto));
}

int ZonaTexto::AltoPara(int ancho) const {
    return etiqueta_->heightForWidth(ancho);
}

void ZonaTexto::Medir(int ancho, int altoMaximo) {
    const bool desplaza = AltoPara(ancho) > altoMaximo;
    setVerticalScrollBarPolicy(desplaza ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    const int anchoTexto = desplaza ? ancho - verticalScrollBar()->sizeHint().width() - 4 : ancho;
    const int alto = AltoPara(anchoTexto);
    etiqueta_->resize(anchoTexto, alto);
    setMinimumHeight(qMax(1, qMin(alto, altoMaximo)));
}

} // namespace zv

#include "ui/screens/EtiquetaTexto.h"

#include <QPainter>
#include <QTextLayout>

#include <cmath>

namespace zv {

namespace {

QString Preparado(const QString& texto) {
    QString t = texto;
    t.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    t.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return t.replace(QLatin1Char('\n'), QChar::LineSeparator);
}

// Lays the text out at a width; answers its height.
qreal Componer(QTextLayout& capa, qreal ancho) {
    QTextOption opciones;
    opciones.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    capa.setTextOption(opciones);
    qreal alto = 0;
    capa.beginLayout();
    while (true) {
        QTextLine linea = capa.createLine();
        if (!linea.isValid()) {
            break;
        }
        linea.setLineWidth(ancho);
        linea.setPosition(QPointF(0, alto));
        alto += linea.height();
    }
    capa.endLayout();
    return alto;
}

} // namespace

EtiquetaTexto::EtiquetaTexto(QWidget* padre) : QLabel(padre) {
    setTextFormat(Qt::PlainText);
    QSizePolicy politica(QSizePolicy::Expanding, QSizePolicy::Preferred);
    politica.setHeightForWidth(true);
    setSizePolicy(politica);
}

int EtiquetaTexto::heightForWidth(int ancho) const {
    QTextLayout capa(Preparado(text()), font());
    return static_cast<int>(std::ceil(Componer(capa, qMax(1, ancho))));
}

QSize EtiquetaTexto::sizeHint() const {
    const int ancho = qMax(1, width());
    return {ancho, heightForWidth(ancho)};
}

QSize EtiquetaTexto::minimumSizeHint() const {
    return {fontMetrics().maxWidth(), 0};
}

void EtiquetaTexto::paintEvent(QPaintEvent*) {
    QTextLayout capa(Preparado(text()), font());
    Componer(capa, width());
    QPainter p(this);
    p.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, foregroundRole()));
    capa.draw(&p, QPointF(0, 0));
}

} // namespace zv

#include "ui/screens/DelegadoRejilla.h"

#include "ui/screens/Tema.h"

#include <QAbstractButton>
#include <QPainter>

namespace zv {

namespace {

// As in the header, where a line one pixel wide ends each section.
constexpr int kMargenIzquierdo = 6;
constexpr int kMargenDerecho = 7;
constexpr int kMarca = 3;           // lines above and below the current row
constexpr int kOscuroPulsado = 130; // per cent
constexpr double kVeloApagado = 0.35;
constexpr int kOscuroSobreColor = 170; // per cent

// Letters, icons and gaps grow with the rows.
int Escalado(int pixeles, const QRect& celda) {
    return pixeles * celda.height() / tema::kAltoFila;
}

// A coloured text on a coloured ground would hardly be read: it is darkened there.
QColor ColorTexto(const Aspecto& aspecto) {
    if (aspecto.texto == 0) {
        return tema::kTexto;
    }
    const QColor color(aspecto.texto);
    return aspecto.fondo == 0 ? color : color.darker(kOscuroSobreColor);
}

} // namespace

DelegadoRejilla::DelegadoRejilla(const Rejilla& rejilla, QObject* parent)
    : QStyledItemDelegate(parent), rejilla_(rejilla) {}

void DelegadoRejilla::PonerImagen(Imagen imagen, const QAbstractButton& boton,
                                  const QColor& fondo) {
    imagenes_[static_cast<std::size_t>(imagen)] = {&boton, fondo};
}

void DelegadoRejilla::PonerApagada(int columna, bool apagada) {
    if (apagada) {
        apagadas_.insert(columna);
    } else {
        apagadas_.erase(columna);
    }
}

void DelegadoRejilla::PonerPulsada(int fila, int columna) {
    filaPulsada_ = fila;
    columnaPulsada_ = columna;
}

DelegadoRejilla::Boton DelegadoRejilla::EstadoDe(int fila, int columna) const {
    if (EstaApagada(columna)) {
        return Boton::Apagado;
    }
    return fila == filaPulsada_ && columna == columnaPulsada_ ? Boton::Pulsado : Boton::Normal;
}

void DelegadoRejilla::PintarImagen(QPainter& painter, const QRect& celda, Imagen imagen,
                                   Boton estado) const {
    const Dibujo& dibujo = imagenes_[static_cast<std::size_t>(imagen)];
    if (dibujo.boton == nullptr) {
        return;
    }
    const QRect marco = celda.adjusted(8, 4, -8, -4);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool pulsado = estado == Boton::Pulsado;
    painter.setPen(pulsado ? QPen(tema::kTexto, 2) : QPen(Qt::NoPen));
    painter.setBrush(estado == Boton::Apagado ? tema::kBotonApagado
                     : pulsado                ? dibujo.fondo.darker(kOscuroPulsado)
                                              : dibujo.fondo);
    painter.drawRoundedRect(marco, 6, 6);
    const int lado = qMin(Escalado(28, celda), marco.height() - 8);
    QRect icono(0, 0, lado, lado);
    icono.moveCenter(marco.center());
    painter.setOpacity(estado == Boton::Apagado ? kVeloApagado : 1);
    dibujo.boton->icon().paint(&painter, icono);
}

void DelegadoRejilla::PintarTexto(QPainter& painter, const QRect& caja, int alineacion,
                                  const QString& texto, bool negrita) const {
    painter.setFont(tema::Fuente(Escalado(16, caja), negrita));
    if (painter.fontMetrics().horizontalAdvance(texto) <= caja.width()) {
        painter.drawText(caja, alineacion, texto);
        return;
    }
    // A narrow column shows two lines of smaller text; only what exceeds those is cut.
    painter.setFont(tema::Fuente(Escalado(13, caja), negrita));
    const QFontMetrics medidas = painter.fontMetrics();
    QString corte = texto;
    // Words stay whole unless one of them is wider than the cell.
    const int porPalabras = alineacion | Qt::TextWordWrap;
    const QRect hoja(0, 0, caja.width(), 1000);
    const bool enteras = medidas.boundingRect(hoja, porPalabras, texto).width() <= caja.width();
    const int flags = enteras ? porPalabras : alineacion | Qt::TextWrapAnywhere;
    // Below three lines: of two the height is rounded up, that of one may be rounded down.
    while (corte.size() > 1 &&
           2 * medidas.boundingRect(hoja, flags, corte).height() > 5 * medidas.lineSpacing()) {
        corte.chop(corte.endsWith(QChar(0x2026)) ? 2 : 1);
        corte += QChar(0x2026);
    }
    painter.drawText(caja, flags, corte);
}

void DelegadoRejilla::PintarImporte(QPainter& painter, const QRect& caja, int alineacion,
                                    const QString& importe) const {
    QString texto = importe;
    QFont fuente = tema::FuenteImporte(Escalado(20, caja));
    painter.setFont(fuente);
    const auto ancho = [&] { return painter.fontMetrics().horizontalAdvance(texto); };
    QRect resto = caja;
    const qsizetype marca = texto.lastIndexOf(QLatin1Char('>')) + 1;
    if (marca > 0 && ancho() > caja.width()) {
        // The mark before an amount goes above it.
        painter.setFont(tema::Fuente(Escalado(13, caja), true));
        painter.drawText(
            QRect(caja.left(), caja.top() + Escalado(3, caja), caja.width(), Escalado(18, caja)),
            alineacion, texto.left(marca));
        texto = texto.mid(marca).trimmed();
        resto.setTop(caja.top() + Escalado(16, caja));
        painter.setFont(fuente);
    }
    if (ancho() > resto.width() && resto.width() > 0) {
        // An amount that is cut would be a wrong amount: it is shrunk instead.
        fuente.setPixelSize(qMax(10, fuente.pixelSize() * resto.width() / ancho()));
        painter.setFont(fuente);
    }
    painter.drawText(resto, alineacion, texto);
}

void DelegadoRejilla::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    const int fila = index.row() + 1;
    if (fila > rejilla_.FilasDatos() || index.column() >= rejilla_.Columnas()) {
        return;
    }
    const Columna& columna = rejilla_.ColumnaDe(index.column());
    const Aspecto aspecto = rejilla_.AspectoDe(fila, index.column());
    const bool actual = señalaActual_ && fila == rejilla_.FilaActual();
    painter->save();
    painter->fillRect(option.rect, aspecto.fondo != 0 ? QColor(aspecto.fondo)
                                   : actual           ? tema::kFilaActual
                                   : fila % 2 != 0    ? tema::kCuerpo
                                                      : tema::kFilaPar);
    painter->setPen(tema::kBorde);
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    if (actual) {
        painter->fillRect(QRect(option.rect.left(), option.rect.top(), option.rect.width(), kMarca),
                          tema::kResalte);
        painter->fillRect(QRect(option.rect.left(), option.rect.bottom() + 1 - kMarca,
                                option.rect.width(), kMarca),
                          tema::kResalte);
    }

    if (aspecto.imagen != Imagen::Ninguna) {
        PintarImagen(*painter, option.rect, aspecto.imagen, EstadoDe(fila, index.column()));
    } else {
        painter->setPen(ColorTexto(aspecto));
        const QRect caja = option.rect.adjusted(kMargenIzquierdo, 0, -kMargenDerecho, 0);
        const auto alineacion = static_cast<int>(columna.alineacion);
        const QString& texto = rejilla_.Texto(fila, index.column());
        if (columna.contenido == Contenido::Importe) {
            PintarImporte(*painter, caja, alineacion, texto);
        } else {
            PintarTexto(*painter, caja, alineacion, texto, aspecto.negrita);
        }
    }
    painter->restore();
}

} // namespace zv

// Painting of the queue grid's cells.
#include "engine/screens/DelegadoCola.h"

#include "engine/screens/ModeloCola.h"
#include "ui/screens/Tema.h"

#include <QAbstractButton>
#include <QPainter>

namespace zv {

namespace {

constexpr int kColumnaAnular = 0;
constexpr int kColumnaImporte = 9;
constexpr int kColumnaEnviar = 10;
// As in the header, whose sections end with a line.
constexpr int kMargenIzquierdo = 6;
constexpr int kMargenDerecho = 7;

// Letters, icons and gaps grow with the rows.
int Escalado(int pixeles, const QRect& celda) {
    return pixeles * celda.height() / tema::kAltoFila;
}

} // namespace

DelegadoCola::DelegadoCola(const QAbstractButton& btnCancelar, const QAbstractButton& btnCobro,
                           const QAbstractButton& btnAbono, QObject* parent)
    : QStyledItemDelegate(parent), btnCancelar_(btnCancelar), btnCobro_(btnCobro),
      btnAbono_(btnAbono) {}

void DelegadoCola::PintarBoton(QPainter& painter, const QRect& celda, const QAbstractButton& boton,
                               const QColor& fondo) const {
    const QRect marco = celda.adjusted(8, 4, -8, -4);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fondo);
    painter.drawRoundedRect(marco, 6, 6);
    const int lado = qMin(Escalado(28, celda), marco.height() - 8);
    QRect icono(0, 0, lado, lado);
    icono.moveCenter(marco.center());
    boton.icon().paint(&painter, icono);
}

void DelegadoCola::PintarTexto(QPainter& painter, const QRect& caja, int alineacion,
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
    while (corte.size() > 1 &&
           medidas.boundingRect(hoja, flags, corte).height() > 2 * medidas.lineSpacing()) {
        corte.chop(corte.endsWith(QChar(0x2026)) ? 2 : 1);
        corte += QChar(0x2026);
    }
    painter.drawText(caja, flags, corte);
}

void DelegadoCola::PintarImporte(QPainter& painter, const QRect& caja, int alineacion,
                                 const QModelIndex& index) const {
    QString texto = index.data().toString();
    QFont fuente = tema::FuenteImporte(Escalado(20, caja));
    painter.setFont(fuente);
    const auto ancho = [&] { return painter.fontMetrics().horizontalAdvance(texto); };
    QRect resto = caja;
    if (ancho() > caja.width() && index.data(ModeloCola::kCredito).toBool()) {
        // The mark goes above its amount.
        const qsizetype corte = texto.lastIndexOf(QLatin1Char('>')) + 1;
        painter.setFont(tema::Fuente(Escalado(13, caja), true));
        painter.drawText(
            QRect(caja.left(), caja.top() + Escalado(3, caja), caja.width(), Escalado(18, caja)),
            alineacion, texto.left(corte));
        texto = texto.mid(corte).trimmed();
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

void DelegadoCola::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    painter->save();
    painter->fillRect(option.rect, index.row() % 2 == 0 ? tema::kCuerpo : tema::kFilaPar);
    painter->setPen(tema::kBorde);
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());

    const bool abono = index.data(ModeloCola::kAbono).toBool();
    if (index.column() == kColumnaAnular) {
        PintarBoton(*painter, option.rect, btnCancelar_, tema::kFondoAnular);
    } else if (index.column() == kColumnaEnviar) {
        PintarBoton(*painter, option.rect, abono ? btnAbono_ : btnCobro_,
                    abono ? tema::kAmbar : tema::kVerde);
    } else {
        const bool manual = index.data(ModeloCola::kManual).toBool();
        painter->setPen(manual ? QColor(255, 0, 0) : tema::kTexto);
        const QRect caja = option.rect.adjusted(kMargenIzquierdo, 0, -kMargenDerecho, 0);
        const auto alineacion =
            static_cast<int>(index.data(Qt::TextAlignmentRole).value<Qt::Alignment>());
        if (index.column() == kColumnaImporte) {
            PintarImporte(*painter, caja, alineacion, index);
        } else {
            PintarTexto(*painter, caja, alineacion, index.data().toString(), manual);
        }
    }
    painter->restore();
}

} // namespace zv

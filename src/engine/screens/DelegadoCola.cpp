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
constexpr int kMargen = 12;

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
    const int lado = qMin(28, marco.height() - 8);
    QRect icono(0, 0, lado, lado);
    icono.moveCenter(marco.center());
    boton.icon().paint(&painter, icono);
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
        const bool importe = index.column() == kColumnaImporte;
        QFont fuente = importe ? tema::FuenteImporte(20) : tema::Fuente(16);
        fuente.setBold(importe || manual);
        painter->setFont(fuente);
        painter->setPen(manual ? QColor(255, 0, 0) : tema::kTexto);
        const QRect caja = option.rect.adjusted(kMargen, 0, -kMargen, 0);
        const auto alineacion = index.data(Qt::TextAlignmentRole).value<Qt::Alignment>();
        // An amount that is cut would be a wrong amount: it is shrunk instead.
        QString texto = index.data().toString();
        if (importe) {
            const int ancho = painter->fontMetrics().horizontalAdvance(texto);
            if (ancho > caja.width() && caja.width() > 0) {
                fuente.setPixelSize(qMax(11, fuente.pixelSize() * caja.width() / ancho));
                painter->setFont(fuente);
            }
        } else {
            texto = painter->fontMetrics().elidedText(texto, Qt::ElideRight, caja.width());
        }
        painter->drawText(caja, static_cast<int>(alineacion), texto);
    }
    painter->restore();
}

} // namespace zv

// Cells as they are painted, at every size of a row.
#include "ui/screens/DelegadoRejilla.h"

#include "platform/StringLiterals.h"
#include "ui/screens/Tema.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QStandardItemModel>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

// Dark pixels of those lines.
int Tinta(const QImage& imagen, int desde, int hasta) {
    int puntos = 0;
    for (int y = desde; y < hasta; ++y) {
        for (int x = 0; x < imagen.width(); ++x) {
            puntos += imagen.pixelColor(x, y).lightness() < 128 ? 1 : 0;
        }
    }
    return puntos;
}

QImage Celda(const QString& texto, const QSize& tamano) {
    Rejilla rejilla(std::vector<Columna>(1));
    rejilla.PonerTexto(rejilla.AñadirFila(), 0, texto);
    const DelegadoRejilla delegado(rejilla);
    const QStandardItemModel modelo(1, 1);
    QImage imagen(tamano, QImage::Format_RGB32);
    imagen.fill(Qt::white);
    QPainter pintor(&imagen);
    QStyleOptionViewItem opcion;
    opcion.rect = imagen.rect();
    delegado.paint(&pintor, opcion, modelo.index(0, 0));
    return imagen;
}

} // namespace

TEST(DelegadoRejilla, ATextThatIsTooLongForALineStandsWholeInTwoAtEverySize) {
    tema::Aplicar(*qApp);
    for (int alto = tema::kAltoFila; alto <= 2 * tema::kAltoFila; ++alto) {
        SCOPED_TRACE(alto);
        const QString texto = u"14/03/2026 9:05:03"_s;
        const int ancho =
            QFontMetrics(tema::Fuente(16 * alto / tema::kAltoFila)).horizontalAdvance(texto);
        const QImage dos = Celda(texto, {ancho * 3 / 4, alto});
        // One line leaves the middle of both halves white, or all but white.
        EXPECT_GT(Tinta(dos, alto / 8, alto * 3 / 8), 20);
        EXPECT_GT(Tinta(dos, alto * 5 / 8, alto * 7 / 8), 20);
    }
}

} // namespace zv::test

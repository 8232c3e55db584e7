// The main screen in windows of all sizes: nothing is cut in the smallest, nothing is lost in a
// large one.
#include "BancoPantalla.h"
#include "platform/StringLiterals.h"

#include <QHeaderView>

namespace zv::test {

class EscalaTest : public BancoPantalla {
  protected:
    void Medir(int ancho, int alto) {
        pantalla->resize(ancho, alto);
        Vuelta();
    }
    int AltoFila() const { return D().grdZV->verticalHeader()->defaultSectionSize(); }
};

TEST_F(EscalaTest, RowsFooterAndLampsGrowWithTheWindow) {
    EXPECT_EQ(AltoFila(), tema::kAltoFila);
    const int pie = D().framePie->height();
    const int letra = D().boton[BotonPie::Registro]->fontMetrics().height();
    const int lampara = D().ShapeOK->width();
    Medir(1920, 1080);
    EXPECT_EQ(AltoFila(), qRound(tema::kAltoFila * 1080 / 768.0));
    EXPECT_GT(D().framePie->height(), pie * 4 / 3);
    EXPECT_GT(D().boton[BotonPie::Registro]->fontMetrics().height(), letra * 5 / 4);
    EXPECT_GT(D().ShapeOK->width(), lampara * 4 / 3);
    EXPECT_EQ(D().frameCab->height(), tema::kAltoCabecera);
    Medir(1024, 768);
    EXPECT_EQ(AltoFila(), tema::kAltoFila);
    EXPECT_EQ(D().framePie->height(), pie);
    EXPECT_EQ(D().boton[BotonPie::Registro]->fontMetrics().height(), letra);
}

TEST_F(EscalaTest, NoWordOfAFooterCaptionIsCut) {
    Mostrar();
    for (const QSize medida :
         {QSize(1000, 600), QSize(1024, 768), QSize(1366, 768), QSize(1920, 1080)}) {
        Medir(medida.width(), medida.height());
        for (const BotonPie boton : kBotonesPie) {
            const QToolButton& b = *D().boton[boton];
            if (b.text().isEmpty()) {
                continue;
            }
            const auto palabras = b.text().replace(u'\n', u' ').split(u' ');
            for (const QString& palabra : palabras) {
                EXPECT_LE(b.fontMetrics().horizontalAdvance(palabra), b.width())
                    << medida.width() << ' ' << palabra.toStdString();
            }
            EXPECT_LE(b.geometry().right(), D().framePie->width()) << medida.width();
        }
    }
}

TEST_F(EscalaTest, GrowthHasItsLimits) {
    Medir(3840, 2160);
    EXPECT_EQ(AltoFila(), tema::kAltoFila * 3 / 2);
    Medir(1920, 768); // wide, but not high
    EXPECT_EQ(AltoFila(), tema::kAltoFila);
    Medir(1000, 600);
    EXPECT_EQ(AltoFila(), tema::kAltoFila);
}

TEST_F(EscalaTest, APageIsWhatTheRowsLeaveRoomFor) {
    for (const QSize medida : {QSize(1024, 768), QSize(1920, 1080)}) {
        Medir(medida.width(), medida.height());
        EXPECT_EQ(grid.Celdas().Pagina(), D().grdZV->height() / AltoFila() - 1) << medida.width();
    }
}

TEST_F(EscalaTest, TheColumnsTogetherFillTheGrid) {
    configuracio->COLID2 = 1;
    configuracio->COLTERMINAL = 1;
    for (const int ancho : {1000, 1024, 1152, 1280, 1366, 1440, 1600, 1920}) {
        Medir(ancho, 768);
        int suma = 0;
        for (int columna = 0; columna < ColumnaCola::Cuantas; ++columna) {
            suma += D().grdZV->columnWidth(columna);
        }
        EXPECT_LE(suma, D().grdZV->viewport()->width()) << ancho;
        EXPECT_GE(suma, D().grdZV->viewport()->width() - 2) << ancho;
    }
}

TEST_F(EscalaTest, ALongStateIsShownInSmallerLettersAndAShortOneInItsOwn) {
    const auto alto = [this] {
        return D()
            .lbEstado->fontMetrics()
            .boundingRect(QRect(0, 0, D().lbEstado->width(), 1), Qt::TextWordWrap,
                          D().lbEstado->text())
            .height();
    };
    const int normal = D().lbEstado->font().pixelSize();
    controles.Poner(&EstadoControles::lbEstado,
                    u"Error 905 - "_s +
                        u"Zorvex no ha terminado la operación cancelada "_s.repeated(3) +
                        u". Consulte con su técnico"_s);
    Vuelta();
    EXPECT_LT(D().lbEstado->font().pixelSize(), normal);
    EXPECT_LE(alto(), D().frmEstado->height());
    controles.Poner(&EstadoControles::lbEstado, u"Error"_s);
    Vuelta();
    EXPECT_EQ(D().lbEstado->font().pixelSize(), normal);
}

} // namespace zv::test

// The logical grid: cells, looks, positions, pages, and what a view is told.
#include "ui/Rejilla.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"
#include "ui/Textos.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <optional>

namespace zv::test {
namespace {

constexpr Clave kNombre{u"nombre", u"Nombre"};

class RejillaTest : public testing::Test {
  protected:
    RejillaTest() {
        rejilla.AlCambiar([this](const Rejilla::Cambio& nuevo) {
            cambio = nuevo;
            ++cambios;
        });
        rejilla.AlMover([this] { ++movimientos; });
    }
    void Filas(int cuantas) {
        const SinDibujo sinDibujo(rejilla);
        for (int i = 0; i < cuantas; ++i) {
            const int fila = rejilla.AñadirFila();
            rejilla.PonerTexto(fila, 0, u"fila %1"_s.arg(fila));
        }
    }
    void Olvidar() {
        cambio = {};
        cambios = movimientos = 0;
    }

    Rejilla rejilla{{{.clave = &kNombre, .delante = u"El "_s, .detras = u" 2"_s},
                     {.delante = u"Id"_s, .ancho = 300},
                     {.alineacion = Qt::AlignCenter, .contenido = Contenido::Imagen}}};
    Rejilla::Cambio cambio;
    int cambios = 0;
    int movimientos = 0;
};

TEST_F(RejillaTest, RowZeroHoldsTheTitles) {
    QTemporaryDir carpeta;
    const Textos textos(carpeta.path());
    EXPECT_EQ(rejilla.Texto(0, 0), QString());
    rejilla.PonerTitulos(textos);
    EXPECT_EQ(rejilla.Texto(0, 0), u"El Nombre 2"_s);
    EXPECT_EQ(rejilla.Texto(0, 1), u"Id"_s);
    EXPECT_EQ(rejilla.Texto(0, 2), QString());
    QFile fichero(carpeta.filePath(u"RWLang.ini"_s));
    ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
    fichero.write("[COMMON]\r\nnombre=name\r\n");
    fichero.close();
    EXPECT_EQ(rejilla.Texto(0, 0), u"El Nombre 2"_s);
    rejilla.PonerTitulos(textos);
    EXPECT_EQ(rejilla.Texto(0, 0), u"El name 2"_s);
    EXPECT_EQ(cambios, 2);
    EXPECT_TRUE(cambio.columnas);
    EXPECT_EQ(rejilla.Filas(), 1);
    EXPECT_EQ(rejilla.FilasDatos(), 0);
}

TEST_F(RejillaTest, HoldsTextsByRowAndColumnHiddenOnesToo) {
    EXPECT_EQ(rejilla.AñadirFila(), 1);
    EXPECT_EQ(rejilla.AñadirFila(), 2);
    EXPECT_EQ(rejilla.ColumnaDe(0).ancho, 0);
    rejilla.PonerTexto(1, 0, u"oculto"_s);
    rejilla.PonerTexto(2, 1, u"7"_s);
    EXPECT_EQ(rejilla.Texto(1, 0), u"oculto"_s);
    EXPECT_EQ(rejilla.Texto(1, 1), QString());
    EXPECT_EQ(rejilla.Texto(2, 1), u"7"_s);
    EXPECT_EQ(rejilla.Filas(), 3);
    EXPECT_EQ(rejilla.Columnas(), 3);
}

TEST_F(RejillaTest, LooksAreOfTheirCellsAlone) {
    Filas(2);
    EXPECT_EQ(rejilla.AspectoDe(2, 1), Aspecto());
    rejilla.PonerFondo(2, 1, ColorRGB(255, 190, 0));
    EXPECT_EQ(rejilla.AspectoDe(2, 1).fondo, 0xffffbe00U);
    EXPECT_EQ(rejilla.AspectoDe(1, 1), Aspecto());
    EXPECT_EQ(rejilla.AspectoDe(2, 0), Aspecto());
    EXPECT_EQ(rejilla.AspectoDe(0, 1), Aspecto());
    // Rows that join later have none; those that were there keep theirs.
    Filas(1);
    EXPECT_EQ(rejilla.AspectoDe(3, 1), Aspecto());
    EXPECT_EQ(rejilla.AspectoDe(2, 1).fondo, 0xffffbe00U);
    rejilla.PonerFondo(2, 1, 0);
    EXPECT_EQ(rejilla.AspectoDe(2, 1), Aspecto());
}

TEST_F(RejillaTest, ARowIsColouredAsAWholeAndKeepsItsPictures) {
    Filas(2);
    rejilla.PonerImagen(2, 2, Imagen::Abono);
    rejilla.PonerColorFila(2, ColorRGB(255, 0, 0), true);
    for (int columna = 0; columna < 3; ++columna) {
        EXPECT_EQ(rejilla.AspectoDe(2, columna).texto, 0xffff0000U);
        EXPECT_TRUE(rejilla.AspectoDe(2, columna).negrita);
        EXPECT_EQ(rejilla.AspectoDe(1, columna), Aspecto());
    }
    EXPECT_EQ(rejilla.AspectoDe(2, 2).imagen, Imagen::Abono);
}

TEST_F(RejillaTest, APictureSaysTheTitleOfItsColumn) {
    QTemporaryDir carpeta;
    rejilla.PonerTitulos(Textos(carpeta.path()));
    Filas(2);
    rejilla.PonerImagen(1, 1, Imagen::Enviar);
    EXPECT_EQ(rejilla.PalabraImagen(1, 1), u"Id"_s);
    EXPECT_EQ(rejilla.PalabraImagen(1, 0), QString());
    EXPECT_EQ(rejilla.PalabraImagen(2, 1), QString());
}

TEST_F(RejillaTest, EmptyingLeavesTheTitlesAndNoLooks) {
    Filas(3);
    rejilla.PonerImagen(1, 0, Imagen::Cobro);
    rejilla.PonerCeldaActual(3, 1);
    rejilla.PonerFilaSuperior(3);
    rejilla.Vaciar();
    EXPECT_EQ(rejilla.Filas(), 1);
    EXPECT_EQ(rejilla.FilaActual(), 0);
    EXPECT_EQ(rejilla.FilaSuperior(), 1);
    Filas(1);
    EXPECT_EQ(rejilla.AspectoDe(1, 0), Aspecto());
    EXPECT_EQ(rejilla.Texto(1, 1), QString());
}

TEST_F(RejillaTest, OtherColumnsMakeItEmpty) {
    Filas(2);
    Olvidar();
    rejilla.PonerColumnas({{.delante = u"a"_s}, {.delante = u"b"_s}});
    EXPECT_EQ(rejilla.Columnas(), 2);
    EXPECT_EQ(rejilla.FilasDatos(), 0);
    EXPECT_EQ(cambios, 1);
    EXPECT_TRUE(cambio.columnas);
    EXPECT_EQ(cambio.conservadas, 0);
    Filas(2);
    rejilla.PonerTexto(2, 1, u"x"_s);
    EXPECT_EQ(rejilla.Texto(2, 1), u"x"_s);
    EXPECT_EQ(rejilla.Texto(1, 1), QString());
}

// ---- notices

TEST_F(RejillaTest, WithDrawingOnEveryChangeIsTold) {
    rejilla.AñadirFila();
    EXPECT_EQ(cambios, 1);
    EXPECT_EQ(cambio.conservadas, 0);
    rejilla.PonerTexto(1, 0, u"x"_s);
    EXPECT_EQ(cambios, 2);
    EXPECT_EQ(cambio.conservadas, 1);
    EXPECT_EQ(cambio.primera, 1);
    EXPECT_EQ(cambio.ultima, 1);
    EXPECT_FALSE(cambio.columnas);
    rejilla.PonerAncho(0, 100);
    EXPECT_EQ(cambios, 3);
    EXPECT_TRUE(cambio.columnas);
    EXPECT_GT(cambio.primera, cambio.ultima);
    rejilla.PonerAncho(0, 100); // as it was
    EXPECT_EQ(cambios, 3);
    EXPECT_EQ(movimientos, 0);
}

TEST_F(RejillaTest, WithDrawingOffNoticesAreHeldAndGivenTogether) {
    Filas(5);
    Olvidar();
    rejilla.PonerDibujo(false);
    EXPECT_FALSE(rejilla.Dibujo());
    rejilla.AñadirFila();
    rejilla.PonerTexto(6, 0, u"nueva"_s);
    rejilla.PonerFondo(4, 0, ColorRGB(1, 2, 3));
    rejilla.PonerTexto(2, 0, u"x"_s);
    rejilla.PonerTexto(3, 0, u"x"_s);
    rejilla.PonerAncho(1, 77);
    rejilla.PonerFilaSuperior(3);
    EXPECT_EQ(cambios + movimientos, 0);
    rejilla.PonerDibujo(true);
    EXPECT_EQ(cambios, 1);
    EXPECT_EQ(movimientos, 1);
    EXPECT_EQ(cambio.conservadas, 5);
    EXPECT_EQ(cambio.primera, 2);
    EXPECT_EQ(cambio.ultima, 4);
    EXPECT_TRUE(cambio.columnas);
    rejilla.PonerDibujo(true); // nothing more
    EXPECT_EQ(cambios + movimientos, 2);
}

TEST_F(RejillaTest, RowsThatAreCutAndComeAgainAreNew) {
    Filas(5);
    Olvidar();
    rejilla.PonerDibujo(false);
    rejilla.PonerTexto(5, 0, u"x"_s);
    rejilla.Recortar(2);
    Filas(3);
    rejilla.PonerTexto(4, 0, u"x"_s);
    rejilla.PonerDibujo(true);
    EXPECT_EQ(rejilla.FilasDatos(), 5);
    EXPECT_EQ(cambio.conservadas, 2);
    EXPECT_GT(cambio.primera, cambio.ultima);
}

TEST_F(RejillaTest, DrawingGoesBackToWhatItWas) {
    {
        const SinDibujo fuera(rejilla);
        {
            const SinDibujo dentro(rejilla);
            rejilla.AñadirFila();
        }
        EXPECT_EQ(cambios, 0);
    }
    EXPECT_EQ(cambios, 1);
    EXPECT_TRUE(rejilla.Dibujo());
}

TEST_F(RejillaTest, AMoveThatComesBackBeforeDrawingIsNone) {
    Filas(5);
    rejilla.PonerFilaActual(2);
    Olvidar();
    {
        const SinDibujo sinDibujo(rejilla);
        rejilla.PonerFilaActual(0);
        rejilla.PonerFilaSuperior(3);
        rejilla.PonerFilaSuperior(1);
        rejilla.PonerFilaActual(2);
    }
    EXPECT_EQ(movimientos, 0);
    rejilla.PonerCeldaActual(2, 1);
    EXPECT_EQ(movimientos, 1);
    EXPECT_EQ(rejilla.ColumnaActual(), 1);
    EXPECT_EQ(cambios, 0);
}

// ---- pages

TEST_F(RejillaTest, PagesTurnAndStopAtTheEnds) {
    Filas(10);
    rejilla.PonerPagina(4);
    EXPECT_EQ(rejilla.Pagina(), 4);
    EXPECT_FALSE(rejilla.HayAnterior());
    EXPECT_TRUE(rejilla.HaySiguiente());
    rejilla.PaginaAbajo();
    EXPECT_EQ(rejilla.FilaSuperior(), 5);
    EXPECT_EQ(rejilla.FilaActual(), 5);
    EXPECT_TRUE(rejilla.HayAnterior());
    EXPECT_TRUE(rejilla.HaySiguiente());
    rejilla.PaginaAbajo();
    EXPECT_EQ(rejilla.FilaSuperior(), 9);
    EXPECT_FALSE(rejilla.HaySiguiente());
    rejilla.PaginaAbajo();
    EXPECT_EQ(rejilla.FilaSuperior(), 10);
    EXPECT_EQ(rejilla.FilaActual(), 10);
    rejilla.PaginaArriba();
    EXPECT_EQ(rejilla.FilaSuperior(), 6);
    rejilla.PaginaArriba();
    rejilla.PaginaArriba();
    EXPECT_EQ(rejilla.FilaSuperior(), 1);
    EXPECT_EQ(rejilla.FilaActual(), 1);
}

TEST_F(RejillaTest, TheLastRowMayStandOnTopAndNoneBeyondIt) {
    Filas(10);
    rejilla.PonerPagina(4);
    rejilla.PonerFilaSuperior(99);
    EXPECT_EQ(rejilla.FilaSuperior(), 10);
    rejilla.PonerFilaSuperior(6);
    EXPECT_TRUE(rejilla.HaySiguiente());
    rejilla.PonerFilaSuperior(7);
    EXPECT_FALSE(rejilla.HaySiguiente());
    rejilla.PonerFilaSuperior(-1);
    EXPECT_EQ(rejilla.FilaSuperior(), 1);
}

TEST_F(RejillaTest, RowsThatFitIntoAPageDoNotMove) {
    Filas(4);
    rejilla.PonerPagina(4);
    Olvidar();
    rejilla.PonerFilaSuperior(2);
    EXPECT_EQ(rejilla.FilaSuperior(), 1);
    EXPECT_EQ(movimientos, 0);
    rejilla.PaginaAbajo();
    EXPECT_EQ(rejilla.FilaSuperior(), 1);
    EXPECT_FALSE(rejilla.HaySiguiente());
    rejilla.AñadirFila();
    rejilla.PonerFilaSuperior(2);
    EXPECT_EQ(rejilla.FilaSuperior(), 2);
    rejilla.PonerPagina(5);
    EXPECT_EQ(rejilla.FilaSuperior(), 1);
    rejilla.PonerPagina(0);
    EXPECT_EQ(rejilla.Pagina(), 1);
}

TEST_F(RejillaTest, PagesOfAnEmptyGridChangeNothing) {
    rejilla.PaginaAbajo();
    rejilla.PaginaArriba();
    EXPECT_EQ(rejilla.FilaSuperior(), 1);
    EXPECT_EQ(rejilla.FilaActual(), 0);
    EXPECT_FALSE(rejilla.HayAnterior());
    EXPECT_FALSE(rejilla.HaySiguiente());
}

TEST_F(RejillaTest, RowsThatGoTakeThePositionWithThem) {
    Filas(10);
    rejilla.PonerFilaActual(8);
    rejilla.PonerFilaSuperior(7);
    rejilla.Recortar(5);
    EXPECT_EQ(rejilla.FilaActual(), 5);
    EXPECT_EQ(rejilla.FilaSuperior(), 5);
}

TEST_F(RejillaTest, ScrollsAsLittleAsItTakesToHaveARowInView) {
    Filas(50);
    rejilla.PonerPagina(10);
    rejilla.PonerFilaSuperior(20);
    for (const auto& [fila, superior] :
         {std::pair{20, 20}, std::pair{29, 20}, std::pair{30, 21}, std::pair{21, 21},
          std::pair{20, 20}, std::pair{50, 41}, std::pair{1, 1}}) {
        rejilla.PonerALaVista(fila);
        EXPECT_EQ(rejilla.FilaSuperior(), superior) << fila;
    }
}

// ---- texts of tables

TEST(TextoDeCeldaTest, CutsAtTheFirstNul) {
    EXPECT_EQ(TextoDeCelda(u"ab"_s + QChar(u'\0') + u"cd"_s), u"ab"_s);
    EXPECT_EQ(TextoDeCelda(QString(QChar(u'\0')) + u"cd"_s), QString());
    EXPECT_EQ(TextoDeCelda(u"sin nada"_s), u"sin nada"_s);
    EXPECT_EQ(TextoDeCelda(QString()), QString());
}

TEST(TextoDeCeldaTest, IsNoLongerThanAColumnMayBeAndPartsNoCharacter) {
    EXPECT_EQ(TextoDeCelda(QString(255, u'a')), QString(255, u'a'));
    EXPECT_EQ(TextoDeCelda(QString(256, u'a')), QString(255, u'a'));
    const QString euros = QString(254, u'a') + u"\U0001F4B6"_s;
    EXPECT_EQ(TextoDeCelda(euros), QString(254, u'a'));
}

} // namespace
} // namespace zv::test

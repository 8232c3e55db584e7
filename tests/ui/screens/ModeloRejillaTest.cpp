// What the model tells its view: rows that join, cells that change, or all anew.
#include "ui/screens/ModeloRejilla.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace zv::test {

class ModeloRejillaTest : public testing::Test {
  protected:
    ModeloRejillaTest() {
        rejilla.AlCambiar([this](const Rejilla::Cambio& cambio) { modelo.Seguir(cambio); });
    }
    void Alta(const QString& texto) {
        const SinDibujo sinDibujo(rejilla);
        rejilla.PonerTexto(rejilla.AñadirFila(), 0, texto);
    }
    // The texts that a view shows.
    QStringList Filas() const {
        QStringList filas;
        for (int i = 0; i < modelo.rowCount(); ++i) {
            filas << modelo.index(i, 0).data().toString();
        }
        return filas;
    }

    Rejilla rejilla{{{.alineacion = Qt::AlignRight | Qt::AlignVCenter},
                     {.contenido = Contenido::Imagen, .titulo = u"Enviar"_s}}};
    ModeloRejilla modelo{rejilla};
    QSignalSpy nuevas{&modelo, &QAbstractItemModel::rowsInserted};
    QSignalSpy celdas{&modelo, &QAbstractItemModel::dataChanged};
    QSignalSpy titulos{&modelo, &QAbstractItemModel::headerDataChanged};
    QSignalSpy todo{&modelo, &QAbstractItemModel::modelReset};
};

TEST_F(ModeloRejillaTest, RowsThatJoinAreToldAlone) {
    Alta(u"A"_s);
    EXPECT_EQ(todo.size(), 1);
    {
        const SinDibujo sinDibujo(rejilla);
        Alta(u"B"_s);
        Alta(u"C"_s);
    }
    EXPECT_EQ(todo.size(), 1);
    ASSERT_EQ(nuevas.size(), 1);
    EXPECT_EQ(nuevas[0][1].toInt(), 1);
    EXPECT_EQ(nuevas[0][2].toInt(), 2);
    EXPECT_EQ(Filas(), (QStringList{u"A"_s, u"B"_s, u"C"_s}));
    EXPECT_EQ(celdas.size(), 0);
}

TEST_F(ModeloRejillaTest, CellsOfRowsThatStandAreToldAlone) {
    Alta(u"A"_s);
    Alta(u"B"_s);
    Alta(u"C"_s);
    nuevas.clear();
    todo.clear();
    {
        const SinDibujo sinDibujo(rejilla);
        rejilla.PonerFondo(3, 0, ColorRGB(1, 2, 3));
        rejilla.PonerTexto(2, 0, u"Z"_s);
    }
    ASSERT_EQ(celdas.size(), 1);
    EXPECT_EQ(celdas[0][0].toModelIndex(), modelo.index(1, 0));
    EXPECT_EQ(celdas[0][1].toModelIndex(), modelo.index(2, 1));
    EXPECT_EQ(nuevas.size() + todo.size(), 0);
    EXPECT_EQ(Filas(), (QStringList{u"A"_s, u"Z"_s, u"C"_s}));
}

TEST_F(ModeloRejillaTest, RowsThatGoAreShownAnew) {
    Alta(u"A"_s);
    Alta(u"B"_s);
    todo.clear();
    nuevas.clear();
    {
        const SinDibujo sinDibujo(rejilla);
        rejilla.Recortar(1);
        Alta(u"C"_s);
        Alta(u"D"_s);
    }
    EXPECT_EQ(todo.size(), 1);
    EXPECT_EQ(nuevas.size(), 0);
    EXPECT_EQ(Filas(), (QStringList{u"A"_s, u"C"_s, u"D"_s}));
    rejilla.Vaciar();
    EXPECT_EQ(todo.size(), 2);
    EXPECT_EQ(Filas(), QStringList());
}

TEST_F(ModeloRejillaTest, ShowsNoRowOfWhichTheViewIsNotToldYet) {
    Alta(u"A"_s);
    rejilla.PonerDibujo(false);
    Alta(u"B"_s);
    EXPECT_EQ(modelo.rowCount(), 1);
    rejilla.Vaciar();
    EXPECT_EQ(modelo.rowCount(), 1);
    EXPECT_FALSE(modelo.index(0, 0).data().isValid());
    rejilla.PonerDibujo(true);
    EXPECT_EQ(modelo.rowCount(), 0);
}

TEST_F(ModeloRejillaTest, TitlesAndAlignmentsAreThoseOfTheColumns) {
    Alta(u"A"_s);
    EXPECT_EQ(modelo.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), u"Enviar"_s);
    EXPECT_FALSE(modelo.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
    EXPECT_EQ(modelo.headerData(0, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
              int{Qt::AlignRight} | int{Qt::AlignVCenter} | int{Qt::TextWordWrap});
    EXPECT_EQ(modelo.index(0, 0).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
              Qt::AlignRight | Qt::AlignVCenter);
    rejilla.PonerAncho(0, 100);
    EXPECT_EQ(titulos.size(), 1);
    EXPECT_EQ(todo.size(), 1);
    rejilla.PonerColumnas({{}, {}, {}});
    EXPECT_EQ(modelo.columnCount(), 3);
    EXPECT_EQ(modelo.rowCount(), 0);
    EXPECT_EQ(todo.size(), 2);
}

TEST_F(ModeloRejillaTest, APictureIsReadAloudByTheWordOfItsColumn) {
    Alta(u"A"_s);
    rejilla.PonerImagen(1, 1, Imagen::Cobro);
    EXPECT_EQ(modelo.index(0, 1).data(Qt::AccessibleTextRole).toString(), u"Enviar"_s);
    EXPECT_FALSE(modelo.index(0, 0).data(Qt::AccessibleTextRole).isValid());
}

} // namespace zv::test

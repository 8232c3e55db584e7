// What the model tells its view: rows that join, or all anew.
#include "engine/screens/ModeloCola.h"

#include "../BancoEngine.h"
#include "platform/StringLiterals.h"
#include "store/dades.h"

#include <QSignalSpy>

namespace zv::test {

class ModeloColaTest : public BancoEngine {
  protected:
    ModeloColaTest() { datos.Inicialitza(); }
    void Alta(const QString& id1) {
        Missatge m;
        m.ID1 = id1;
        bool resultado = false;
        datos.Inserta(m, resultado);
        ASSERT_TRUE(resultado);
    }
    void Rellenar() {
        grid.Rellenar(motor, false);
        modelo.Refrescar();
    }
    // The identifiers that a view shows.
    QStringList Filas() const {
        QStringList filas;
        for (int i = 0; i < modelo.rowCount(); ++i) {
            filas << modelo.index(i, 3).data().toString();
        }
        return filas;
    }

    dades datos{motor, reloj};
    ModeloCola modelo{grid};
    QSignalSpy nuevas{&modelo, &QAbstractItemModel::rowsInserted};
    QSignalSpy todo{&modelo, &QAbstractItemModel::modelReset};
};

TEST_F(ModeloColaTest, RowsThatTheProgramAddsJoinTheView) {
    Alta(u"A"_s);
    Rellenar();
    EXPECT_EQ(todo.size(), 1);
    Alta(u"B"_s);
    Alta(u"C"_s);
    Rellenar();
    EXPECT_EQ(todo.size(), 1);
    ASSERT_EQ(nuevas.size(), 1);
    EXPECT_EQ(nuevas[0][1].toInt(), 1);
    EXPECT_EQ(nuevas[0][2].toInt(), 2);
    EXPECT_EQ(Filas(), (QStringList{u"A"_s, u"B"_s, u"C"_s}));
    Rellenar(); // nothing new
    EXPECT_EQ(todo.size(), 1);
    EXPECT_EQ(nuevas.size(), 1);
}

TEST_F(ModeloColaTest, AnyOtherChangeShowsAllAnew) {
    Alta(u"A"_s);
    Alta(u"B"_s);
    Rellenar();
    motor.Ejecutar(u"UPDATE cola SET id1='Z' WHERE id1='A'"_s);
    Rellenar();
    EXPECT_EQ(todo.size(), 2);
    EXPECT_EQ(Filas(), (QStringList{u"Z"_s, u"B"_s}));
    motor.Ejecutar(u"DELETE FROM cola WHERE id1='Z'"_s);
    Rellenar();
    EXPECT_EQ(todo.size(), 3);
    EXPECT_EQ(Filas(), QStringList{u"B"_s});
    motor.Ejecutar(u"DELETE FROM cola"_s);
    Rellenar();
    EXPECT_EQ(modelo.rowCount(), 0);
    Alta(u"C"_s);
    Rellenar();
    EXPECT_EQ(Filas(), QStringList{u"C"_s});
    EXPECT_EQ(nuevas.size(), 0);
}

} // namespace zv::test

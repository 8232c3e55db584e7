// Contents and layout of the queue grid.
#include "BancoMotor.h"
#include "store/dades.h"
#include "support/GanchoFallos.h"

namespace zv::test {

class GridColaTest : public BancoMotor {};

TEST_F(GridColaTest, HasElevenTitledColumns) {
    QStringList titulos;
    for (int i = 0; i < kColumnasGrid; ++i) {
        titulos << grid.Titulo(i);
    }
    EXPECT_EQ(titulos, (QStringList{QStringLiteral("Anular"), QStringLiteral("IdCola"),
                                    QStringLiteral("Fecha Venta"), QStringLiteral("Id. Venta"),
                                    QStringLiteral("Id. Venta 2"), QStringLiteral("Id. Caja"),
                                    QStringLiteral("Terminal"), QStringLiteral("Vendedor"),
                                    QStringLiteral("Forma Pago"), QStringLiteral("Importe"),
                                    QStringLiteral("Enviar")}));
}

TEST_F(GridColaTest, ShowsARowInItsColumns) {
    const qint32 id = PonerFila(125000);
    grid.Rellenar(motor, false);
    ASSERT_EQ(grid.FilasDatos(), 1);
    QStringList celdas;
    for (int i = 0; i < kColumnasGrid; ++i) {
        celdas << grid.Texto(1, i);
    }
    EXPECT_EQ(celdas,
              (QStringList{QString(), QString::number(id), QStringLiteral("14/03/26 10:20:30"),
                           QStringLiteral("T1"), QStringLiteral("L2"), QStringLiteral("3"),
                           QStringLiteral("TPV1"), QStringLiteral("Ana"),
                           QStringLiteral("EFECTIVO"), QStringLiteral("1.250,00 €"), QString()}));
    EXPECT_FALSE(grid.Linea(1).abono);
    EXPECT_FALSE(grid.Linea(1).manual);
    EXPECT_EQ(grid.FilaActual(), 1);
    EXPECT_EQ(grid.FilaSuperior(), 1);
}

TEST_F(GridColaTest, DropsTheTimeWhenAsked) {
    PonerFila(100);
    grid.Rellenar(motor, true);
    EXPECT_EQ(grid.Texto(1, 2), QStringLiteral("14/03/26"));
}

TEST_F(GridColaTest, MarksCreditRefundAndManualRows) {
    const qint32 credito = PonerFila(1000);
    PonerCredito(credito, 400);
    PonerFila(-500);
    PonerFila(100, QStringLiteral("M"), true);
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Texto(1, 9), QStringLiteral("! >>> 10,00 €"));
    EXPECT_TRUE(grid.Linea(1).credito);
    EXPECT_EQ(grid.Texto(2, 9), QStringLiteral("-5,00 €"));
    EXPECT_TRUE(grid.Linea(2).abono);
    EXPECT_TRUE(grid.Linea(3).manual);
    EXPECT_EQ(grid.Abonos(), 1);
}

TEST_F(GridColaTest, ANullCreditIsNotMarked) {
    const qint32 id = PonerFila(1000);
    PonerCredito(id, QVariant());
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Texto(1, 9), QStringLiteral("10,00 €"));
}

TEST_F(GridColaTest, ARowOfNullsShowsEmptyCells) {
    motor.Ejecutar(QStringLiteral("INSERT INTO cola (manual) VALUES (0)"));
    grid.Rellenar(motor, false);
    for (const int columna : {2, 3, 4, 5, 6, 7, 8}) {
        EXPECT_EQ(grid.Texto(1, columna), QString()) << columna;
    }
    EXPECT_EQ(grid.Texto(1, 9), QStringLiteral("0,00 €"));
}

TEST_F(GridColaTest, AnAmountThatCannotBeShownLeavesItsCellEmpty) {
    PonerFila(3000000000LL);
    PonerFila(100);
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Texto(1, 9), QString());
    EXPECT_EQ(grid.Texto(2, 9), QStringLiteral("1,00 €"));
    cliente.PonerMultiplier(0);
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Texto(2, 9), QString());
}

TEST_F(GridColaTest, RowsComeInQueueOrder) {
    for (int i = 0; i < 5; ++i) {
        PonerFila(i, QString::number(i));
    }
    grid.Rellenar(motor, false);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(grid.Texto(i + 1, 3), QString::number(i));
    }
}

TEST_F(GridColaTest, TitlesComeFromTheLanguageFileOnceAtTheStart) {
    QFile fichero(carpeta.filePath(QStringLiteral("RWLang.ini")));
    ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
    fichero.write("[COMMON]\r\nanular=a\r\nfechaVenta=b\r\nidVenta=c\r\ncaja2=d\r\nterminal=e\r\n"
                  "vendedor=f\r\nformapago=g\r\nimporte2=h\r\nenviar=i\r\n");
    fichero.close();
    grid.PonerTitulos();
    EXPECT_TRUE(fichero.remove());
    QStringList titulos;
    for (int i = 0; i < kColumnasGrid; ++i) {
        titulos << grid.Titulo(i);
    }
    EXPECT_EQ(titulos.join(QLatin1Char('|')), QStringLiteral("a|IdCola|b|c|c 2|Id. d|e|f|g|h|i"));
}

TEST_F(GridColaTest, ACreditMarksTheWholeAmountOfARefundToo) {
    const qint32 id = PonerFila(-1000);
    PonerCredito(id, -400);
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Texto(1, 9), QStringLiteral("! >>> -10,00 €"));
    EXPECT_TRUE(grid.Linea(1).abono);
}

TEST_F(GridColaTest, ARefillGoesBackToTheFirstRow) {
    PonerFila(1);
    PonerFila(2);
    grid.Rellenar(motor, false);
    grid.PonerFilaSuperior(2);
    int avisos = 0;
    grid.AlRellenar([&] { ++avisos; });
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.FilaSuperior(), 1);
    EXPECT_EQ(avisos, 1);
}

TEST_F(GridColaTest, WidthsAreSharedByTheVisibleColumns) {
    grid.ColocarColumnas(*configuracio, 15000, 300, 500, 48);
    // 15000 - 2 * 1300 - 300, shared by three columns.
    EXPECT_EQ(grid.AnchoColumna(0), 1300);
    EXPECT_EQ(grid.AnchoColumna(1), 0);
    EXPECT_EQ(grid.AnchoColumna(2), 4033);
    EXPECT_EQ(grid.AnchoColumna(3), 4033);
    for (const int columna : {4, 5, 6, 7, 8}) {
        EXPECT_EQ(grid.AnchoColumna(columna), 0) << columna;
    }
    EXPECT_EQ(grid.AnchoColumna(9), 4033);
    EXPECT_EQ(grid.AnchoColumna(10), 1300);
    EXPECT_EQ(grid.Pagina(), 9);
}

TEST_F(GridColaTest, EverySettingShowsItsOwnColumn) {
    const std::vector<std::pair<quint8 Configuracio::*, int>> ajustes{
        {&Configuracio::COLID2, 4},
        {&Configuracio::COLIDCAJA, 5},
        {&Configuracio::COLTERMINAL, 6},
        {&Configuracio::COLVENDEDOR, 7},
        {&Configuracio::COLFORMAPAGO, 8}};
    for (const auto& [ajuste, columna] : ajustes) {
        (*configuracio).*ajuste = 1;
        grid.ColocarColumnas(*configuracio, 15000, 300, 500, 48);
        for (int i = 4; i <= 8; ++i) {
            EXPECT_EQ(grid.AnchoColumna(i), i == columna ? 12100 / 4 : 0) << columna << ' ' << i;
        }
        (*configuracio).*ajuste = 2; // only exactly 1 counts
        grid.ColocarColumnas(*configuracio, 15000, 300, 500, 48);
        EXPECT_EQ(grid.AnchoColumna(columna), 0);
        (*configuracio).*ajuste = 0;
    }
}

TEST_F(GridColaTest, AGridTooNarrowHidesInsteadOfTurningNegative) {
    grid.ColocarColumnas(*configuracio, 1000, 300, 10, 48);
    EXPECT_EQ(grid.AnchoColumna(9), 0);
    EXPECT_EQ(grid.Pagina(), 1);
}

// ---- refills that keep what stands

// The rows of the grid, by their id1 and amount.
class GridColaAltasTest : public GridColaTest {
  protected:
    GridColaAltasTest() { datos.Inicialitza(); }
    void Alta(const QString& id1, qint32 importe = 100) {
        Missatge m;
        m.ID1 = id1;
        m.Importe = importe;
        bool resultado = false;
        datos.Inserta(m, resultado);
        ASSERT_TRUE(resultado);
    }
    QString Rellena(bool sinHora = false) {
        grid.Rellenar(motor, sinHora);
        QStringList filas;
        for (int i = 1; i <= grid.FilasDatos(); ++i) {
            filas << grid.Texto(i, 3) + u'=' + grid.Texto(i, 9);
        }
        return filas.join(u' ');
    }
    std::unique_ptr<MotorBD> OtroMotor() const {
        auto otro = std::make_unique<MotorSQLite>();
        otro->Abrir(
            CadenaConexion(QStringLiteral("MDB"), {}, RutaBaseDatos(carpeta.path()), {}, {}));
        return otro;
    }
    dades datos{motor, reloj};
};

TEST_F(GridColaAltasTest, RowsAddedByTheProgramJoinThoseThatStand) {
    Alta(QStringLiteral("A"));
    EXPECT_EQ(Rellena(), QStringLiteral("A=1,00 €"));
    EXPECT_EQ(grid.FilasConservadas(), 0);
    grid.PonerFilaSuperior(1);
    grid.PonerFilaActual(0);
    Alta(QStringLiteral("B"), -250);
    Alta(QStringLiteral("C"));
    EXPECT_EQ(Rellena(), QStringLiteral("A=1,00 € B=-2,50 € C=1,00 €"));
    EXPECT_EQ(grid.FilasConservadas(), 1);
    EXPECT_EQ(grid.Abonos(), 1);
    EXPECT_EQ(grid.FilaActual(), 1);
    EXPECT_EQ(Rellena(), QStringLiteral("A=1,00 € B=-2,50 € C=1,00 €"));
    EXPECT_EQ(grid.FilasConservadas(), 3);
    EXPECT_EQ(grid.Abonos(), 1);
}

TEST_F(GridColaAltasTest, AnyOtherChangeReadsAllAgain) {
    Alta(QStringLiteral("A"));
    Rellena();
    Alta(QStringLiteral("B"));
    motor.Ejecutar(QStringLiteral("UPDATE cola SET importe=300 WHERE id1='A'"));
    EXPECT_EQ(Rellena(), QStringLiteral("A=3,00 € B=1,00 €"));
    motor.Ejecutar(QStringLiteral("UPDATE cola SET importe=-300 WHERE id1='A'"));
    Rellena();
    EXPECT_EQ(grid.Abonos(), 1);
    motor.Ejecutar(QStringLiteral("UPDATE cola SET importe=-400 WHERE id1='A'"));
    Rellena();
    EXPECT_EQ(grid.Abonos(), 1);
    Alta(QStringLiteral("C"));
    const auto otro = OtroMotor();
    otro->Ejecutar(QStringLiteral("UPDATE cola SET importe=400 WHERE id1='A'"));
    EXPECT_EQ(Rellena(), QStringLiteral("A=4,00 € B=1,00 € C=1,00 €"));
    otro->Ejecutar(QStringLiteral("DELETE FROM cola WHERE id1='B'"));
    EXPECT_EQ(Rellena(), QStringLiteral("A=4,00 € C=1,00 €"));
    const auto tabla = motor.AbrirTabla(QStringLiteral("cola"));
    ASSERT_TRUE(tabla->Buscar(1));
    tabla->Poner(QStringLiteral("importe"), 500);
    tabla->Actualizar();
    EXPECT_EQ(Rellena(), QStringLiteral("A=5,00 € C=1,00 €"));
    tabla->Borrar();
    EXPECT_EQ(Rellena(), QStringLiteral("C=1,00 €"));
}

TEST_F(GridColaAltasTest, ARowThatIsRolledBackGoesAgain) {
    Alta(QStringLiteral("A"));
    Rellena();
    motor.Comenzar();
    Alta(QStringLiteral("B"));
    EXPECT_EQ(Rellena(), QStringLiteral("A=1,00 € B=1,00 €"));
    motor.Deshacer();
    EXPECT_EQ(Rellena(), QStringLiteral("A=1,00 €"));
}

TEST_F(GridColaAltasTest, AnotherDateFormOrMultiplierReadsAllAgain) {
    Alta(QStringLiteral("A"));
    Rellena(false);
    EXPECT_EQ(grid.Texto(1, 2), QStringLiteral("14/03/26 18:04:11"));
    Rellena(true);
    EXPECT_EQ(grid.Texto(1, 2), QStringLiteral("14/03/26"));
    cliente.PonerMultiplier(10);
    EXPECT_EQ(Rellena(true), QStringLiteral("A=10,00 €"));
}

TEST_F(GridColaAltasTest, AfterAFailureAllIsReadAgain) {
    Alta(QStringLiteral("A"));
    Rellena();
    {
        GanchoFallos fallos(motor);
        fallos.Falla(Sentencia::Clase::Lectura, QStringLiteral("FROM cola"), 1);
        int avisos = 0;
        grid.AlRellenar([&] { ++avisos; });
        EXPECT_THROW(grid.Rellenar(motor, false), ErrorEjecucion);
        EXPECT_EQ(avisos, 1); // the screen shows how far it got
        grid.AlRellenar({});
    }
    EXPECT_EQ(Rellena(), QStringLiteral("A=1,00 €"));
    EXPECT_EQ(grid.FilasConservadas(), 0);
}

} // namespace zv::test

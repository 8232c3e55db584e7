// Contents and layout of the queue grid.
#include "BancoEngine.h"
#include "platform/StringLiterals.h"
#include "store/dades.h"
#include "support/GanchoFallos.h"

namespace zv::test {

class GridColaTest : public BancoEngine {};

TEST_F(GridColaTest, HasElevenTitledColumns) {
    QStringList titulos;
    for (int i = 0; i < kColumnasGrid; ++i) {
        titulos << grid.Titulo(i);
    }
    EXPECT_EQ(titulos, (QStringList{u"Anular"_s, u"IdCola"_s, u"Fecha Venta"_s, u"Id. Venta"_s,
                                    u"Id. Venta 2"_s, u"Id. Caja"_s, u"Terminal"_s, u"Vendedor"_s,
                                    u"Forma Pago"_s, u"Importe"_s, u"Enviar"_s}));
}

TEST_F(GridColaTest, ShowsARowInItsColumns) {
    const qint32 id = PonerFila(125000);
    grid.Rellenar(motor, false);
    ASSERT_EQ(grid.FilasDatos(), 1);
    QStringList celdas;
    for (int i = 0; i < kColumnasGrid; ++i) {
        celdas << grid.Texto(1, i);
    }
    EXPECT_EQ(celdas, (QStringList{QString(), QString::number(id), u"14/03/26 10:20:30"_s, u"T1"_s,
                                   u"L2"_s, u"3"_s, u"TPV1"_s, u"Ana"_s, u"EFECTIVO"_s,
                                   u"1.250,00 €"_s, QString()}));
    EXPECT_FALSE(grid.Linea(1).abono);
    EXPECT_FALSE(grid.Linea(1).manual);
    EXPECT_EQ(grid.FilaActual(), 1);
    EXPECT_EQ(grid.FilaSuperior(), 1);
}

TEST_F(GridColaTest, DropsTheTimeWhenAsked) {
    PonerFila(100);
    grid.Rellenar(motor, true);
    EXPECT_EQ(grid.Texto(1, 2), u"14/03/26"_s);
}

TEST_F(GridColaTest, MarksCreditRefundAndManualRows) {
    const qint32 credito = PonerFila(1000);
    PonerCredito(credito, 400);
    PonerFila(-500);
    PonerFila(100, u"M"_s, true);
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Texto(1, 9), u"! >>> 10,00 €"_s);
    EXPECT_TRUE(grid.Linea(1).credito);
    EXPECT_EQ(grid.Texto(2, 9), u"-5,00 €"_s);
    EXPECT_TRUE(grid.Linea(2).abono);
    EXPECT_TRUE(grid.Linea(3).manual);
    EXPECT_EQ(grid.Abonos(), 1);
}

TEST_F(GridColaTest, ANullCreditIsNotMarked) {
    const qint32 id = PonerFila(1000);
    PonerCredito(id, QVariant());
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Texto(1, 9), u"10,00 €"_s);
}

TEST_F(GridColaTest, ARowOfNullsShowsEmptyCells) {
    motor.Ejecutar(u"INSERT INTO cola (manual) VALUES (0)"_s);
    grid.Rellenar(motor, false);
    for (const int columna : {2, 3, 4, 5, 6, 7, 8}) {
        EXPECT_EQ(grid.Texto(1, columna), QString()) << columna;
    }
    EXPECT_EQ(grid.Texto(1, 9), u"0,00 €"_s);
}

TEST_F(GridColaTest, AnAmountThatCannotBeShownLeavesItsCellEmpty) {
    PonerFila(3000000000LL);
    PonerFila(100);
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Texto(1, 9), QString());
    EXPECT_EQ(grid.Texto(2, 9), u"1,00 €"_s);
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
    QFile fichero(carpeta.filePath(u"RWLang.ini"_s));
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
    EXPECT_EQ(titulos.join(QLatin1Char('|')), u"a|IdCola|b|c|c 2|Id. d|e|f|g|h|i"_s);
}

TEST_F(GridColaTest, ACreditMarksTheWholeAmountOfARefundToo) {
    const qint32 id = PonerFila(-1000);
    PonerCredito(id, -400);
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Texto(1, 9), u"! >>> -10,00 €"_s);
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
    std::unique_ptr<DatabaseEngine> OtroMotor() const {
        auto otro = std::make_unique<SqliteEngine>();
        otro->Abrir(CadenaConexion(u"MDB"_s, {}, RutaBaseDatos(carpeta.path()), {}, {}));
        return otro;
    }
    dades datos{motor, reloj};
};

TEST_F(GridColaAltasTest, RowsAddedByTheProgramJoinThoseThatStand) {
    Alta(u"A"_s);
    EXPECT_EQ(Rellena(), u"A=1,00 €"_s);
    EXPECT_EQ(grid.FilasConservadas(), 0);
    grid.PonerFilaSuperior(1);
    grid.PonerFilaActual(0);
    Alta(u"B"_s, -250);
    Alta(u"C"_s);
    EXPECT_EQ(Rellena(), u"A=1,00 € B=-2,50 € C=1,00 €"_s);
    EXPECT_EQ(grid.FilasConservadas(), 1);
    EXPECT_EQ(grid.Abonos(), 1);
    EXPECT_EQ(grid.FilaActual(), 1);
    EXPECT_EQ(Rellena(), u"A=1,00 € B=-2,50 € C=1,00 €"_s);
    EXPECT_EQ(grid.FilasConservadas(), 3);
    EXPECT_EQ(grid.Abonos(), 1);
}

TEST_F(GridColaAltasTest, AnyOtherChangeReadsAllAgain) {
    Alta(u"A"_s);
    Rellena();
    Alta(u"B"_s);
    motor.Ejecutar(u"UPDATE cola SET importe=300 WHERE id1='A'"_s);
    EXPECT_EQ(Rellena(), u"A=3,00 € B=1,00 €"_s);
    motor.Ejecutar(u"UPDATE cola SET importe=-300 WHERE id1='A'"_s);
    Rellena();
    EXPECT_EQ(grid.Abonos(), 1);
    motor.Ejecutar(u"UPDATE cola SET importe=-400 WHERE id1='A'"_s);
    Rellena();
    EXPECT_EQ(grid.Abonos(), 1);
    Alta(u"C"_s);
    const auto otro = OtroMotor();
    otro->Ejecutar(u"UPDATE cola SET importe=400 WHERE id1='A'"_s);
    EXPECT_EQ(Rellena(), u"A=4,00 € B=1,00 € C=1,00 €"_s);
    otro->Ejecutar(u"DELETE FROM cola WHERE id1='B'"_s);
    EXPECT_EQ(Rellena(), u"A=4,00 € C=1,00 €"_s);
    const auto tabla = motor.AbrirTabla(u"cola"_s);
    ASSERT_TRUE(tabla->Buscar(1));
    tabla->Poner(u"importe"_s, 500);
    tabla->Actualizar();
    EXPECT_EQ(Rellena(), u"A=5,00 € C=1,00 €"_s);
    tabla->Borrar();
    EXPECT_EQ(Rellena(), u"C=1,00 €"_s);
}

TEST_F(GridColaAltasTest, ARowThatIsRolledBackGoesAgain) {
    Alta(u"A"_s);
    Rellena();
    motor.Comenzar();
    Alta(u"B"_s);
    EXPECT_EQ(Rellena(), u"A=1,00 € B=1,00 €"_s);
    motor.Deshacer();
    EXPECT_EQ(Rellena(), u"A=1,00 €"_s);
}

TEST_F(GridColaAltasTest, AnotherDateFormOrMultiplierReadsAllAgain) {
    Alta(u"A"_s);
    Rellena(false);
    EXPECT_EQ(grid.Texto(1, 2), u"14/03/26 18:04:11"_s);
    Rellena(true);
    EXPECT_EQ(grid.Texto(1, 2), u"14/03/26"_s);
    cliente.PonerMultiplier(10);
    EXPECT_EQ(Rellena(true), u"A=10,00 €"_s);
}

TEST_F(GridColaAltasTest, AfterAFailureAllIsReadAgain) {
    Alta(u"A"_s);
    Rellena();
    {
        GanchoFallos fallos(motor);
        fallos.Falla(Statement::Kind::Lectura, u"FROM cola"_s, 1);
        int avisos = 0;
        grid.AlRellenar([&] { ++avisos; });
        EXPECT_THROW(grid.Rellenar(motor, false), ErrorEjecucion);
        EXPECT_EQ(avisos, 1); // the screen shows how far it got
        grid.AlRellenar({});
    }
    EXPECT_EQ(Rellena(), u"A=1,00 €"_s);
    EXPECT_EQ(grid.FilasConservadas(), 0);
}

} // namespace zv::test

// Contents and layout of the queue grid.
#include "BancoEngine.h"
#include "platform/StringLiterals.h"
#include "store/dades.h"
#include "support/GanchoFallos.h"

namespace zv::test {

class GridColaTest : public BancoEngine {
  protected:
    Imagen ImagenEnviar(int fila) const {
        return grid.Celdas().AspectoDe(fila, ColumnaCola::Enviar).imagen;
    }
    // Every cell of the row is bold and red; false when none is.
    bool EsRoja(int fila) const {
        int rojas = 0;
        for (int columna = 0; columna < ColumnaCola::Cuantas; ++columna) {
            const Aspecto aspecto = grid.Celdas().AspectoDe(fila, columna);
            rojas += aspecto.negrita && aspecto.texto == ColorRGB(255, 0, 0) ? 1 : 0;
        }
        EXPECT_TRUE(rojas == 0 || rojas == ColumnaCola::Cuantas) << rojas;
        return rojas > 0;
    }
};

TEST_F(GridColaTest, HasElevenTitledColumns) {
    QStringList titulos;
    for (int i = 0; i < ColumnaCola::Cuantas; ++i) {
        titulos << grid.Celdas().Texto(0, i);
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
    for (int i = 0; i < ColumnaCola::Cuantas; ++i) {
        celdas << grid.Celdas().Texto(1, i);
    }
    EXPECT_EQ(celdas, (QStringList{QString(), QString::number(id), u"14/03/26 10:20:30"_s, u"T1"_s,
                                   u"L2"_s, u"3"_s, u"TPV1"_s, u"Ana"_s, u"EFECTIVO"_s,
                                   u"1.250,00 €"_s, QString()}));
    EXPECT_EQ(ImagenEnviar(1), Imagen::Cobro);
    EXPECT_EQ(grid.Celdas().AspectoDe(1, ColumnaCola::Anular).imagen, Imagen::Cancelar);
    EXPECT_FALSE(EsRoja(1));
    EXPECT_EQ(grid.Celdas().FilaActual(), 1);
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 1);
}

TEST_F(GridColaTest, DropsTheTimeWhenAsked) {
    PonerFila(100);
    grid.Rellenar(motor, true);
    EXPECT_EQ(grid.Celdas().Texto(1, 2), u"14/03/26"_s);
}

TEST_F(GridColaTest, MarksCreditRefundAndManualRows) {
    const qint32 credito = PonerFila(1000);
    PonerCredito(credito, 400);
    PonerFila(-500);
    PonerFila(100, u"M"_s, true);
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Celdas().Texto(1, 9), u"! >>> 10,00 €"_s);
    EXPECT_EQ(grid.Celdas().Texto(2, 9), u"-5,00 €"_s);
    EXPECT_EQ(ImagenEnviar(1), Imagen::Cobro);
    EXPECT_EQ(ImagenEnviar(2), Imagen::Abono);
    EXPECT_EQ(ImagenEnviar(3), Imagen::Cobro);
    EXPECT_FALSE(EsRoja(2));
    EXPECT_TRUE(EsRoja(3));
    EXPECT_EQ(grid.Abonos(), 1);
}

TEST_F(GridColaTest, ANullCreditIsNotMarked) {
    const qint32 id = PonerFila(1000);
    PonerCredito(id, QVariant());
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Celdas().Texto(1, 9), u"10,00 €"_s);
}

TEST_F(GridColaTest, ARowOfNullsShowsEmptyCells) {
    motor.Ejecutar(u"INSERT INTO cola (manual) VALUES (0)"_s);
    grid.Rellenar(motor, false);
    for (const int columna : {2, 3, 4, 5, 6, 7, 8}) {
        EXPECT_EQ(grid.Celdas().Texto(1, columna), QString()) << columna;
    }
    EXPECT_EQ(grid.Celdas().Texto(1, 9), u"0,00 €"_s);
}

TEST_F(GridColaTest, AnAmountThatCannotBeShownLeavesItsCellEmpty) {
    PonerFila(3000000000LL);
    PonerFila(100);
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Celdas().Texto(1, 9), QString());
    EXPECT_EQ(grid.Celdas().Texto(2, 9), u"1,00 €"_s);
    cliente.PonerMultiplier(0);
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Celdas().Texto(2, 9), QString());
}

TEST_F(GridColaTest, RowsComeInQueueOrder) {
    for (int i = 0; i < 5; ++i) {
        PonerFila(i, QString::number(i));
    }
    grid.Rellenar(motor, false);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(grid.Celdas().Texto(i + 1, 3), QString::number(i));
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
    for (int i = 0; i < ColumnaCola::Cuantas; ++i) {
        titulos << grid.Celdas().Texto(0, i);
    }
    EXPECT_EQ(titulos.join(QLatin1Char('|')), u"a|IdCola|b|c|c 2|Id. d|e|f|g|h|i"_s);
}

TEST_F(GridColaTest, ACreditMarksTheWholeAmountOfARefundToo) {
    const qint32 id = PonerFila(-1000);
    PonerCredito(id, -400);
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Celdas().Texto(1, 9), u"! >>> -10,00 €"_s);
    EXPECT_EQ(ImagenEnviar(1), Imagen::Abono);
}

TEST_F(GridColaTest, ARefillGoesBackToTheFirstRow) {
    PonerFila(1);
    PonerFila(2);
    grid.Rellenar(motor, false);
    grid.Celdas().PonerFilaSuperior(2);
    ASSERT_EQ(grid.Celdas().FilaSuperior(), 2);
    int avisos = 0;
    grid.Celdas().AlMover([&] { ++avisos; });
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 1);
    EXPECT_EQ(avisos, 1);
}

TEST_F(GridColaTest, WidthsAreSharedByTheVisibleColumns) {
    grid.ColocarColumnas(*configuracio, 15000, 300, 500, 48);
    // 15000 - 2 * 1300 - 300, shared by three columns.
    EXPECT_EQ(grid.Celdas().ColumnaDe(0).ancho, 1300);
    EXPECT_EQ(grid.Celdas().ColumnaDe(1).ancho, 0);
    EXPECT_EQ(grid.Celdas().ColumnaDe(2).ancho, 4033);
    EXPECT_EQ(grid.Celdas().ColumnaDe(3).ancho, 4033);
    for (const int columna : {4, 5, 6, 7, 8}) {
        EXPECT_EQ(grid.Celdas().ColumnaDe(columna).ancho, 0) << columna;
    }
    EXPECT_EQ(grid.Celdas().ColumnaDe(9).ancho, 4033);
    EXPECT_EQ(grid.Celdas().ColumnaDe(10).ancho, 1300);
    EXPECT_EQ(grid.Celdas().Pagina(), 9);
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
            EXPECT_EQ(grid.Celdas().ColumnaDe(i).ancho, i == columna ? 12100 / 4 : 0)
                << columna << ' ' << i;
        }
        (*configuracio).*ajuste = 2; // only exactly 1 counts
        grid.ColocarColumnas(*configuracio, 15000, 300, 500, 48);
        EXPECT_EQ(grid.Celdas().ColumnaDe(columna).ancho, 0);
        (*configuracio).*ajuste = 0;
    }
}

TEST_F(GridColaTest, AGridTooNarrowHidesInsteadOfTurningNegative) {
    grid.ColocarColumnas(*configuracio, 1000, 300, 10, 48);
    EXPECT_EQ(grid.Celdas().ColumnaDe(9).ancho, 0);
    EXPECT_EQ(grid.Celdas().Pagina(), 1);
}

// ---- rows that other programs wrote

// A table without the checks of ours.
class GridColaAjenaTest : public GridColaTest {
  protected:
    GridColaAjenaTest() {
        motor.Ejecutar(u"DROP TABLE cola"_s);
        motor.Ejecutar(u"CREATE TABLE cola (importe, idZV INTEGER PRIMARY KEY, fecha, manual, id1, "
                       "id2, idcaja, terminal, vendedor, formapago, creditoError)"_s);
    }
    void Fila(const QVariant& importe, const QVariant& credito = {}, const QVariant& id1 = {}) {
        motor.Ejecutar(u"INSERT INTO cola (importe,creditoError,id1) VALUES (?,?,?)"_s,
                       {importe, credito, id1});
    }
    QString Importe(int fila) const { return grid.Celdas().Texto(fila, ColumnaCola::Importe); }
};

TEST_F(GridColaAjenaTest, NoAmountMakesTheRefillFail) {
    const std::vector<std::pair<QVariant, QString>> filas{
        {100, u"1,00 €"_s},
        {2147483647, u"21.474.836,47 €"_s},
        {2147483648LL, QString()},
        {-2147483648LL, u"-21.474.836,48 €"_s},
        {-2147483649LL, QString()},
        {922337203685477.5807, QString()},
        {-922337203685477.5807, QString()},
        {922337203685478LL, QString()},
        {-922337203685478LL, QString()},
        {std::numeric_limits<qint64>::min(), QString()},
        {1e300, QString()},
        {-1e300, QString()},
        {u"doce"_s, QString()},
        {QByteArray(""), QString()},
        {-200, u"-2,00 €"_s}};
    for (const auto& fila : filas) {
        Fila(fila.first);
    }
    grid.Rellenar(motor, false);
    ASSERT_EQ(grid.FilasDatos(), static_cast<int>(filas.size()));
    QList<int> abonos;
    for (int i = 1; i <= grid.FilasDatos(); ++i) {
        EXPECT_EQ(Importe(i), filas[static_cast<std::size_t>(i) - 1].second) << i;
        if (ImagenEnviar(i) == Imagen::Abono) {
            abonos << i;
        }
    }
    EXPECT_EQ(abonos, (QList<int>{4, 5, 7, 9, 10, 12, 15}));
    EXPECT_EQ(grid.Abonos(), abonos.size());
}

TEST_F(GridColaAjenaTest, ACreditThatCannotBeReadIsNotZero) {
    Fila(100, 1e300);
    Fila(100, u"x"_s);
    Fila(100, 0);
    Fila(100);
    grid.Rellenar(motor, false);
    EXPECT_EQ(Importe(1), u"! >>> 1,00 €"_s);
    EXPECT_EQ(Importe(2), u"! >>> 1,00 €"_s);
    EXPECT_EQ(Importe(3), u"1,00 €"_s);
    EXPECT_EQ(Importe(4), u"1,00 €"_s);
}

TEST_F(GridColaAjenaTest, ANullManualCountsAsFalse) {
    Fila(100);
    grid.Rellenar(motor, false);
    EXPECT_FALSE(EsRoja(1));
}

TEST_F(GridColaAjenaTest, ATextIsShownUpToItsNulAndNoLongerThanAColumnMayBe) {
    Fila(100, {}, u"T1"_s + QChar(u'\0') + QString(200000, u'x'));
    Fila(100, {}, QString(200000, u'y'));
    grid.Rellenar(motor, false);
    EXPECT_EQ(grid.Celdas().Texto(1, ColumnaCola::Id1), u"T1"_s);
    EXPECT_EQ(grid.Celdas().Texto(2, ColumnaCola::Id1), QString(255, u'y'));
}

TEST_F(GridColaAjenaTest, ARowThatFailsIsNotLeftHalf) {
    Fila(100, {}, u"A"_s);
    motor.Ejecutar(u"INSERT INTO cola (importe,fecha) VALUES (200,'ayer')"_s);
    EXPECT_THROW(grid.Rellenar(motor, false), ErrorEjecucion);
    EXPECT_EQ(grid.FilasDatos(), 1);
    EXPECT_EQ(grid.Celdas().FilaActual(), 0);
}

// ---- refills that keep what stands

// The rows of the grid, by their id1 and amount.
class GridColaAltasTest : public GridColaTest {
  protected:
    GridColaAltasTest() {
        datos.Inicialitza();
        grid.Celdas().AlCambiar(
            [this](const Rejilla::Cambio& cambio) { conservadas = cambio.conservadas; });
    }
    void Alta(const QString& id1, qint32 importe = 100) {
        Missatge m;
        m.ID1 = id1;
        m.Importe = importe;
        bool resultado = false;
        datos.Inserta(m, resultado);
        ASSERT_TRUE(resultado);
    }
    QString Rellena(bool sinHora = false) {
        conservadas.reset();
        grid.Rellenar(motor, sinHora);
        QStringList filas;
        for (int i = 1; i <= grid.FilasDatos(); ++i) {
            filas << grid.Celdas().Texto(i, 3) + u'=' + grid.Celdas().Texto(i, 9);
        }
        return filas.join(u' ');
    }
    std::unique_ptr<DatabaseEngine> OtroMotor() const {
        auto otro = std::make_unique<SqliteEngine>();
        otro->Abrir(CadenaConexion(u"MDB"_s, {}, RutaBaseDatos(carpeta.path()), {}, {}));
        return otro;
    }
    dades datos{motor, reloj};
    std::optional<int> conservadas; // by the last refill's notice; none when it gave none
};

TEST_F(GridColaAltasTest, RowsAddedByTheProgramJoinThoseThatStand) {
    Alta(u"A"_s);
    EXPECT_EQ(Rellena(), u"A=1,00 €"_s);
    EXPECT_EQ(conservadas, 0);
    grid.Celdas().PonerFilaActual(0);
    Alta(u"B"_s, -250);
    Alta(u"C"_s);
    EXPECT_EQ(Rellena(), u"A=1,00 € B=-2,50 € C=1,00 €"_s);
    EXPECT_EQ(conservadas, 1);
    EXPECT_EQ(grid.Abonos(), 1);
    EXPECT_EQ(grid.Celdas().FilaActual(), 1);
    EXPECT_EQ(Rellena(), u"A=1,00 € B=-2,50 € C=1,00 €"_s);
    EXPECT_EQ(conservadas, std::nullopt);
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
    EXPECT_EQ(grid.Celdas().Texto(1, 2), u"14/03/26 18:04:11"_s);
    Rellena(true);
    EXPECT_EQ(grid.Celdas().Texto(1, 2), u"14/03/26"_s);
    cliente.PonerMultiplier(10);
    EXPECT_EQ(Rellena(true), u"A=10,00 €"_s);
}

TEST_F(GridColaAltasTest, AfterAFailureAllIsReadAgain) {
    Alta(u"A"_s);
    Rellena();
    motor.Ejecutar(u"UPDATE cola SET importe=300"_s);
    {
        GanchoFallos fallos(motor);
        fallos.Falla(Statement::Kind::Lectura, u"FROM cola"_s, 1);
        conservadas.reset();
        EXPECT_THROW(grid.Rellenar(motor, false), ErrorEjecucion);
        EXPECT_EQ(conservadas, 0); // the screen shows how far it got
        EXPECT_EQ(grid.FilasDatos(), 0);
        EXPECT_TRUE(grid.Celdas().Dibujo());
    }
    EXPECT_EQ(Rellena(), u"A=3,00 €"_s);
    EXPECT_EQ(conservadas, 0);
    {
        GanchoFallos fallos(motor);
        fallos.Falla(Statement::Kind::Lectura, u"FROM cola"_s, 1);
        EXPECT_THROW(grid.Rellenar(motor, false), ErrorEjecucion);
    }
    EXPECT_EQ(Rellena(), u"A=3,00 €"_s);
    EXPECT_EQ(conservadas, 0);
}

} // namespace zv::test

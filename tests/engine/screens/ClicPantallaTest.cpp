// The queue on the real main screen worked by clicks: marking, annulling and sending by touch, the
// line that says what goes on, and what a screen reader is told of it.
#include "BancoPantalla.h"
#include "till/ResultadoEnvio.h"

#include <QAccessible>
#include <QFrame>
#include <QMouseEvent>
#include <QStyleHints>

namespace zv::test {

class ClicPantallaTest : public BancoPantalla {
  protected:
    void SetUp() override {
        configuracio->PREGUNTARANULAR = 0;
        ConectarCon(50000);
        PonerFila(1250, u"A"_s);
        PonerFila(250, u"B"_s);
        PonerFila(-100, u"C"_s);
        Tick();
    }

    void Tick() {
        pulso.ProcesarCola();
        Vuelta();
        // No tick comes by itself.
        controles.Poner(&EstadoControles::timerCola, false);
        Vuelta();
        log.Toma();
    }
    QPoint Centro(int fila, int columna) const {
        const QTableView& vista = *D().grdZV;
        return vista.visualRect(vista.model()->index(fila - 1, columna)).center();
    }
    void ClicCelda(int fila, int columna) {
        QTest::mouseClick(D().grdZV->viewport(), Qt::LeftButton, {}, Centro(fila, columna));
        controles.Poner(&EstadoControles::timerCola, false);
        Vuelta();
    }
    // A press and its release, at that time of the system.
    void TocarA(const QPoint& donde, quint64 cuando) {
        QWidget* zona = D().grdZV->viewport();
        for (const QEvent::Type tipo : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const bool abajo = tipo == QEvent::MouseButtonPress;
            QMouseEvent evento(tipo, donde, zona->mapToGlobal(donde), Qt::LeftButton,
                               abajo ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
            evento.setTimestamp(cuando);
            QApplication::sendEvent(zona, &evento);
        }
        controles.Poner(&EstadoControles::timerCola, false);
        Vuelta();
    }
    void ClicAgrupar() {
        Clic(D().boton[BotonPie::AgruparCobros]);
        controles.Poner(&EstadoControles::timerCola, false);
        Vuelta();
    }
    QColor Fondo(int fila, int columna) const {
        const QTableView& vista = *D().grdZV;
        const QRect celda = vista.visualRect(vista.model()->index(fila - 1, columna));
        // Its upper left corner, where nothing else is drawn.
        return vista.viewport()->grab(celda).toImage().pixelColor(2, 2);
    }
    QColor FondoAviso() const {
        return D().frmAviso->grab().toImage().pixelColor(3, D().frmAviso->height() / 2);
    }
    static QString Nombre(QWidget* control) {
        return QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name);
    }
    QString NombreCelda(int fila, int columna) const {
        return QAccessible::queryAccessibleInterface(D().grdZV)
            ->tableInterface()
            ->cellAt(fila - 1, columna)
            ->text(QAccessible::Name);
    }
};

TEST_F(ClicPantallaTest, RowsAreMarkedByTouchAndPaidTogether) {
    ClicAgrupar();
    EXPECT_TRUE(D().framePie->isEnabled());
    EXPECT_TRUE(D().grdZV->isEnabled());
    EXPECT_TRUE(D().boton[BotonPie::AgruparCobros]->isEnabled());
    EXPECT_TRUE(D().boton[BotonPie::AgruparCobros]->isChecked());
    EXPECT_FALSE(pantalla->findChild<QTimer*>(u"timerCola"_s)->isActive());
    const QColor ambar(255, 190, 0);
    const QColor verde(145, 207, 77);
    ClicCelda(1, ColumnaCola::Importe);
    ClicCelda(2, ColumnaCola::Anular);
    for (const int fila : {1, 2}) {
        EXPECT_EQ(Fondo(fila, ColumnaCola::Anular), verde);
        EXPECT_EQ(Fondo(fila, ColumnaCola::Enviar), verde);
        EXPECT_EQ(Fondo(fila, ColumnaCola::Importe), ambar);
        EXPECT_EQ(Fondo(fila, ColumnaCola::Fecha), ambar);
    }
    EXPECT_NE(Fondo(3, ColumnaCola::Importe), ambar);
    ClicCelda(3, ColumnaCola::Enviar);
    ClicCelda(3, ColumnaCola::Enviar);
    EXPECT_NE(Fondo(3, ColumnaCola::Importe), ambar);
    EXPECT_EQ(Nombre(D().lbAviso), u"Marcados: 2. Pulse Agrupar cobros para cobrarlos"_s);
    EXPECT_EQ(Nombre(D().lbSumaAviso), u"Suma: 15,00 €"_s);
    EXPECT_EQ(FondoAviso(), ambar);

    pantallas.EsperaValidar(2, u"authCobro"_s, true);
    cliente.EsperaCharge(1500, 1500, 0, FinGuion::Ok().Durante([this] {
        Vuelta();
        EXPECT_FALSE(D().framePie->isEnabled());
    }));
    ClicAgrupar();
    EXPECT_EQ(D().grdZV->model()->rowCount(), 1);
    EXPECT_NE(Fondo(1, ColumnaCola::Importe), ambar);
    EXPECT_EQ(D().lbContador->text(), u"0 cobros / 1 abonos"_s);
    EXPECT_EQ(D().lbAviso->text(), QString());
    EXPECT_EQ(D().lbSumaAviso->text(), QString());
    EXPECT_FALSE(D().boton[BotonPie::AgruparCobros]->isCheckable());
    EXPECT_EQ(Procesados().size(), 3U);
}

TEST_F(ClicPantallaTest, MarksGoWithTheMarkingThoughTheRowsStand) {
    ClicAgrupar();
    ClicCelda(1, ColumnaCola::Importe);
    pantallas.EsperaValidar(2, u"authCobro"_s, false);
    ClicAgrupar();
    EXPECT_NE(Fondo(1, ColumnaCola::Importe), QColor(255, 190, 0));
    EXPECT_EQ(D().grdZV->model()->rowCount(), 3);
}

TEST_F(ClicPantallaTest, AQuickSecondTouchUnmarks) {
    ClicAgrupar();
    ClicCelda(1, ColumnaCola::Importe);
    QTest::mouseDClick(D().grdZV->viewport(), Qt::LeftButton, {}, Centro(1, ColumnaCola::Importe));
    QTest::mouseRelease(D().grdZV->viewport(), Qt::LeftButton, {}, Centro(1, ColumnaCola::Importe));
    EXPECT_NE(Fondo(1, ColumnaCola::Importe), QColor(255, 190, 0));
    ClicAgrupar(); // nobody is asked
}

TEST_F(ClicPantallaTest, TheButtonIsPressedTwiceInARow) {
    auto* boton = D().boton[BotonPie::AgruparCobros];
    QTest::mouseClick(boton, Qt::LeftButton);
    QTest::mouseClick(boton, Qt::LeftButton);
    Vuelta();
    EXPECT_FALSE(estado.Agrupando());
    EXPECT_FALSE(boton->isCheckable());
    EXPECT_TRUE(pulso.Armado());
}

TEST_F(ClicPantallaTest, OneTouchAnnulsAndASecondOneDoesNotAnnulTheNext) {
    pantallas.EsperaValidar(1, u"authRegistro"_s, true);
    const QPoint donde = Centro(1, ColumnaCola::Anular);
    QTest::mouseClick(D().grdZV->viewport(), Qt::LeftButton, {}, donde);
    QTest::mouseDClick(D().grdZV->viewport(), Qt::LeftButton, {}, donde);
    QTest::mouseRelease(D().grdZV->viewport(), Qt::LeftButton, {}, donde);
    Vuelta();
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_EQ(D().grdZV->model()->rowCount(), 2);
    EXPECT_EQ(D().lbContador->text(), u"1 cobros / 1 abonos"_s);
}

// Fingers do not come down twice at the same point, and some of them come down three times.
TEST_F(ClicPantallaTest, QuickTouchesElsewhereDoNotAnnulTheNextEither) {
    pantallas.EsperaValidar(1, u"authRegistro"_s, true);
    const QPoint donde = Centro(1, ColumnaCola::Anular);
    TocarA(donde, 10'000);
    const int pausa = QGuiApplication::styleHints()->mouseDoubleClickInterval();
    TocarA(donde + QPoint(12, 3), 10'000 + pausa - 50);
    TocarA(donde + QPoint(-9, 0), 10'000 + 2 * pausa - 100); // counted from the one before
    TocarA(Centro(2, ColumnaCola::Anular), 10'000 + 2 * pausa - 80);
    EXPECT_EQ(Cola().size(), 2U);
    // Nobody is in such a hurry.
    pantallas.EsperaValidar(1, u"authRegistro"_s, true);
    TocarA(donde, 10'000 + 4 * pausa);
    EXPECT_EQ(Cola().size(), 1U);
}

TEST_F(ClicPantallaTest, QuickTouchesOnRowsThatStandAllCount) {
    ClicAgrupar();
    for (int fila = 1; fila <= 3; ++fila) {
        TocarA(Centro(fila, ColumnaCola::Importe), 10'000 + static_cast<quint64>(fila) * 20);
    }
    for (int fila = 1; fila <= 3; ++fila) {
        EXPECT_EQ(Fondo(fila, ColumnaCola::Importe), QColor(255, 190, 0)) << fila;
    }
}

TEST_F(ClicPantallaTest, OneTouchSendsThatRow) {
    pantallas.EsperaValidar(2, u"authCobroManual"_s, true);
    cliente.EsperaCharge(250, 250, 0, FinGuion::Ok().Durante([this] {
        // The customer pays: what is touched meanwhile is touched in vain.
        Vuelta();
        EXPECT_FALSE(D().grdZV->isEnabled());
        ClicCelda(1, ColumnaCola::Enviar);
        ClicCelda(1, ColumnaCola::Anular);
        Clic(D().boton[BotonPie::AgruparCobros]);
    }));
    ClicCelda(2, ColumnaCola::Enviar);
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_EQ(D().grdZV->model()->rowCount(), 2);
    EXPECT_TRUE(D().grdZV->isEnabled());
}

// Its second touch comes while the operation of the first one runs, or is asked about.
TEST_F(ClicPantallaTest, AButtonOfTheFootThatIsTouchedTwiceWorksOnce) {
    const auto otraVez = [this](BotonPie boton) {
        return [this, boton] {
            Vuelta();
            EXPECT_FALSE(D().framePie->isEnabled());
            QTest::mouseDClick(D().boton[boton], Qt::LeftButton);
            Vuelta();
        };
    };
    cliente.EsperaChange(0, 0, FinGuion::Ok().Durante(otraVez(BotonPie::DarCambio)));
    Clic(D().boton[BotonPie::DarCambio]);
    cliente.EsperaAddChange(0, FinGuion::Ok().Durante(otraVez(BotonPie::AnadirCambio)));
    Clic(D().boton[BotonPie::AnadirCambio]);
    pantallas.EsperaValidar(1, u"authPago"_s, false, otraVez(BotonPie::Pago));
    Clic(D().boton[BotonPie::Pago]);
    pantallas.EsperaValidar(2, u"authCobro"_s, false, otraVez(BotonPie::CobroManual));
    Clic(D().boton[BotonPie::CobroManual]);
    EXPECT_TRUE(cliente.Agotado());
    EXPECT_EQ(pantallas.Pendientes(), 0U);
    EXPECT_TRUE(pulso.Armado());
}

TEST_F(ClicPantallaTest, CellsAreNamedByTheirColumnsAndActByThem) {
    EXPECT_EQ(NombreCelda(2, ColumnaCola::Anular), u"Anular"_s);
    EXPECT_EQ(NombreCelda(2, ColumnaCola::Enviar), u"Enviar"_s);
    EXPECT_EQ(NombreCelda(2, ColumnaCola::Id1), u"B"_s);
    pantallas.EsperaValidar(1, u"authRegistro"_s, true);
    QAccessibleActionInterface* accion = QAccessible::queryAccessibleInterface(D().grdZV)
                                             ->tableInterface()
                                             ->cellAt(1, ColumnaCola::Anular)
                                             ->actionInterface();
    accion->doAction(accion->actionNames().value(0));
    Vuelta();
    ASSERT_EQ(Procesados().size(), 1U);
    EXPECT_EQ(Procesados().front().LeerTexto(u"id1"_s), u"B"_s);
}

TEST_F(ClicPantallaTest, WithoutADeviceTheScreenSaysSoAndWhatToPress) {
    cliente.EsperaDisconnect();
    Clic(D().boton[BotonPie::Desconectar]);
    EXPECT_EQ(Nombre(D().lbAviso), u"Sin conexión: pulse Conectar"_s);
    EXPECT_TRUE(D().boton[BotonPie::Conectar]->isEnabled());
    const QColor aviso = FondoAviso();
    EXPECT_NE(aviso, tema::kCuerpo);

    pulso.ArrancaTimer();
    ClicCelda(1, ColumnaCola::Fecha);
    EXPECT_EQ(D().lbAviso->text(), u"Sin conexión y con la cola parada: minimice y abra la "
                                   "ventana, y pulse Conectar"_s);
    EXPECT_NE(FondoAviso(), aviso);
    EXPECT_FALSE(D().framePie->isEnabled());
    EXPECT_FALSE(D().grdZV->isEnabled());
    EXPECT_TRUE(D().btnW[0]->isEnabled());

    // As it says.
    Clic(D().btnW[0]);
    pantalla->PonerWindowState(ventana::kMaximizada);
    Vuelta();
    EXPECT_TRUE(D().boton[BotonPie::Conectar]->isEnabled());
    cliente.EsperaConnect();
    Clic(D().boton[BotonPie::Conectar]);
    EXPECT_EQ(D().lbAviso->text(), QString());
    EXPECT_EQ(FondoAviso(), tema::kCuerpo);
}

TEST_F(ClicPantallaTest, TheLineStandsBetweenGridAndFooterWhateverItSays) {
    const int alto = D().grdZV->height();
    const auto medir = [&] {
        const QRect linea(D().frmAviso->mapTo(pantalla.get(), QPoint()), D().frmAviso->size());
        const QRect grdZV(D().grdZV->mapTo(pantalla.get(), QPoint()), D().grdZV->size());
        const QRect pie(D().framePie->mapTo(pantalla.get(), QPoint()), D().framePie->size());
        EXPECT_EQ(linea.top(), grdZV.bottom() + 1);
        EXPECT_EQ(pie.top(), linea.bottom() + 1);
        EXPECT_EQ(D().grdZV->height(), alto);
    };
    medir();
    ClicAgrupar();
    medir();
    ClicCelda(1, ColumnaCola::Importe);
    medir();
}

} // namespace zv::test

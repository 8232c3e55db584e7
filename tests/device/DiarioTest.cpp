// The journal lines, letter by letter.
#include "device/Diario.h"

#include "support/ImprimeQt.h"
#include "support/LogMemoria.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

QString Linea(const std::function<void(Diario&)>& escribir) {
    test::LogMemoria log;
    Diario diario(log);
    escribir(diario);
    EXPECT_EQ(log.lineas.size(), 1);
    return log.lineas.value(0);
}

const QString kOk = QStringLiteral("OK");

TEST(Diario, WritesEachOperationWithItsFields) {
    EXPECT_EQ(Linea([](Diario& d) {
                  d.Connect(QStringLiteral("CONECTARZORV"), QStringLiteral("CONNECT_OK"));
              }),
              QStringLiteral("ZVCONNECT_CONECTARZORV_CONNECT_OK"));
    EXPECT_EQ(
        Linea([](Diario& d) { d.Charge(QStringLiteral("ENVIARZV_7"), kOk, 1000, 2000, 1000); }),
        QStringLiteral("ZVCHARGE_ENVIARZV_7_OK: VALUEINCENTS=1000 PAIDINVALUE=2000 "
                       "PAIDOUTVALUE=1000"));
    EXPECT_EQ(Linea([](Diario& d) {
                  d.GetLevels(QStringLiteral("MOSTRARNIVEL"), kOk, 4, QStringLiteral("1,2"),
                              QStringLiteral("0,1"));
              }),
              QStringLiteral("ZVGETLEVELS_MOSTRARNIVEL_OK: LEVELTYPE=4 NOMS=1,2 LEVELS=0,1"));
    EXPECT_EQ(Linea([](Diario& d) {
                  d.Change(QStringLiteral("DARCAMBIO"), QStringLiteral("CANCEL"), 500, 500);
              }),
              QStringLiteral("ZVCHANGE_DARCAMBIO_CANCEL: PAIDINVALUE=500 PAIDOUTVALUE=500"));
    EXPECT_EQ(Linea([](Diario& d) { d.AddChange(QStringLiteral("X"), kOk, 5000); }),
              QStringLiteral("ZVADDCHANGE_X_OK: PAIDINVALUE=5000"));
    EXPECT_EQ(
        Linea([](Diario& d) { d.Pay(QStringLiteral("PAGO"), QStringLiteral("ERROR_4"), 1503, 0); }),
        QStringLiteral("ZVPAY_PAGO_ERROR_4: VALUEINCENTS=1503 PAIDOUTVALUE=0"));
    EXPECT_EQ(Linea([](Diario& d) {
                  d.CashBoxControl(QStringLiteral("CIERRE"), kOk, 15, 1250, 34000, 10000);
              }),
              QStringLiteral("ZVCASHBOXCONTROL_CIERRE_OK: COINSVALUEINCB=1250 "
                             "NOTESVALUEINCB=34000 REMAININGCHANGE=10000"));
    EXPECT_EQ(Linea([](Diario& d) { d.EmptyCB(QStringLiteral("VACIADO"), kOk, 1, 34000); }),
              QStringLiteral("ZVEMPTYCB_VACIADO_OK: DEVICE=1 VALUE=34000"));
}

TEST(Diario, LeavesTheUnderscoreOfAnEmptyTagOut) {
    EXPECT_EQ(Linea([](Diario& d) { d.Charge({}, kOk, -300, 0, 300); }),
              QStringLiteral("ZVCHARGE_OK: VALUEINCENTS=-300 PAIDINVALUE=0 PAIDOUTVALUE=300"));
    EXPECT_EQ(Linea([](Diario& d) { d.Connect({}, QStringLiteral("DISCONNECT_OK")); }),
              QStringLiteral("ZVCONNECT_DISCONNECT_OK"));
}

TEST(Diario, WritesListsAsTheyAre) {
    EXPECT_EQ(Linea([](Diario& d) {
                  d.GetLevels({}, QStringLiteral("%2"), 2, QStringLiteral("%3"),
                              QStringLiteral("%1"));
              }),
              QStringLiteral("ZVGETLEVELS_%2: LEVELTYPE=2 NOMS=%3 LEVELS=%1"));
}

} // namespace
} // namespace zv

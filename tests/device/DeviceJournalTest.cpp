// The journal lines, letter by letter.
#include "device/DeviceJournal.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"
#include "support/LogMemoria.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

QString Linea(const std::function<void(DeviceJournal&)>& escribir) {
    test::LogMemoria log;
    DeviceJournal diario(log);
    escribir(diario);
    EXPECT_EQ(log.lineas.size(), 1);
    return log.lineas.value(0);
}

const QString kOk = u"OK"_s;

TEST(DeviceJournal, WritesEachOperationWithItsFields) {
    EXPECT_EQ(Linea([](DeviceJournal& d) { d.Connect(u"CONECTARZORV"_s, u"CONNECT_OK"_s); }),
              u"ZVCONNECT_CONECTARZORV_CONNECT_OK"_s);
    EXPECT_EQ(Linea([](DeviceJournal& d) { d.Charge(u"ENVIARZV_7"_s, kOk, 1000, 2000, 1000); }),
              u"ZVCHARGE_ENVIARZV_7_OK: VALUEINCENTS=1000 PAIDINVALUE=2000 "
              "PAIDOUTVALUE=1000"_s);
    EXPECT_EQ(
        Linea([](DeviceJournal& d) { d.GetLevels(u"MOSTRARNIVEL"_s, kOk, 4, u"1,2"_s, u"0,1"_s); }),
        u"ZVGETLEVELS_MOSTRARNIVEL_OK: LEVELTYPE=4 NOMS=1,2 LEVELS=0,1"_s);
    EXPECT_EQ(Linea([](DeviceJournal& d) { d.Change(u"DARCAMBIO"_s, u"CANCEL"_s, 500, 500); }),
              u"ZVCHANGE_DARCAMBIO_CANCEL: PAIDINVALUE=500 PAIDOUTVALUE=500"_s);
    EXPECT_EQ(Linea([](DeviceJournal& d) { d.AddChange(u"X"_s, kOk, 5000); }),
              u"ZVADDCHANGE_X_OK: PAIDINVALUE=5000"_s);
    EXPECT_EQ(Linea([](DeviceJournal& d) { d.Pay(u"PAGO"_s, u"ERROR_4"_s, 1503, 0); }),
              u"ZVPAY_PAGO_ERROR_4: VALUEINCENTS=1503 PAIDOUTVALUE=0"_s);
    EXPECT_EQ(
        Linea([](DeviceJournal& d) { d.CashBoxControl(u"CIERRE"_s, kOk, 15, 1250, 34000, 10000); }),
        u"ZVCASHBOXCONTROL_CIERRE_OK: COINSVALUEINCB=1250 "
        "NOTESVALUEINCB=34000 REMAININGCHANGE=10000"_s);
    EXPECT_EQ(Linea([](DeviceJournal& d) { d.EmptyCB(u"VACIADO"_s, kOk, 1, 34000); }),
              u"ZVEMPTYCB_VACIADO_OK: DEVICE=1 VALUE=34000"_s);
}

TEST(DeviceJournal, LeavesTheUnderscoreOfAnEmptyTagOut) {
    EXPECT_EQ(Linea([](DeviceJournal& d) { d.Charge({}, kOk, -300, 0, 300); }),
              u"ZVCHARGE_OK: VALUEINCENTS=-300 PAIDINVALUE=0 PAIDOUTVALUE=300"_s);
    EXPECT_EQ(Linea([](DeviceJournal& d) { d.Connect({}, u"DISCONNECT_OK"_s); }),
              u"ZVCONNECT_DISCONNECT_OK"_s);
}

TEST(DeviceJournal, WritesListsAsTheyAre) {
    EXPECT_EQ(Linea([](DeviceJournal& d) { d.GetLevels({}, u"%2"_s, 2, u"%3"_s, u"%1"_s); }),
              u"ZVGETLEVELS_%2: LEVELTYPE=2 NOMS=%3 LEVELS=%1"_s);
}

} // namespace
} // namespace zv

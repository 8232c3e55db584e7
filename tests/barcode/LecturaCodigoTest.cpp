// Parts of a code by its layout. What is charged for one is tested with the scans.
#include "barcode/LecturaCodigo.h"

#include "BancoBalanza.h"
#include "barcode/Claves.h"

namespace zv::test {
namespace {

class LecturaCodigoTest : public BancoBalanza {
  protected:
    LecturaCodigo Lee(const QString& codigo) {
        return LeerCodigo(codigo, LayoutDe(cfg), importes, reloj.Ahora());
    }
    static QString Zonas(const LayoutCodigo& layout, int hasta) {
        QString zonas;
        for (int i = 1; i <= hasta; ++i) {
            const ZonaCodigo zona = ZonaDe(layout, i);
            zonas += zona == ZonaCodigo::Ticket ? u'T' : zona == ZonaCodigo::Importe ? u'I' : u'.';
        }
        return zonas;
    }
};

TEST_F(LecturaCodigoTest, TakesTicketAndAmountFromTheirPositions) {
    const LecturaCodigo leido = Lee(u"2ABCDEF012509"_s);
    EXPECT_EQ(leido.reparo, nullptr);
    EXPECT_EQ(leido.ticket, u"ABCDEF"_s);
    EXPECT_EQ(leido.importe, Currency::DeEntero(1250));
}

TEST_F(LecturaCodigoTest, TellsWhyACodeIsNotCharged) {
    EXPECT_EQ(Lee(u"2ABCDEF01250"_s).reparo, &texto::kErrorLongitudCodigo);
    EXPECT_EQ(Lee(u"2ABCDEF01x509"_s).reparo, &texto::kErrorImporteCodigo);
    cfg.BCTINI = 0;
    EXPECT_EQ(Lee(u"2ABCDEF012509"_s).reparo, &texto::kErrorConfiguracionCodigo);
    cfg.BCTPRE = false;
    const LecturaCodigo leido = Lee(u"2ABCDEF012509"_s);
    EXPECT_EQ(leido.reparo, nullptr);
    EXPECT_EQ(leido.ticket, u"03/04/2026-08:04:01"_s);
}

TEST_F(LecturaCodigoTest, EachPositionIsPartOfOneFieldOrOfNone) {
    LayoutCodigo layout = LayoutDe(cfg);
    EXPECT_EQ(Zonas(layout, 15), u".TTTTTTIIIII..."_s);
    layout.conTicket = false;
    EXPECT_EQ(Zonas(layout, 13), u".......IIIII."_s);
    layout = {4, true, 1, 4, 2, 9, 0};
    EXPECT_EQ(Zonas(layout, 6), u"TIII.."_s); // nothing stands beyond the code
    layout = {4, true, 0, 4, 0, 4, 0};
    EXPECT_EQ(Zonas(layout, 4), u"...."_s); // a field without a beginning is none
}

} // namespace
} // namespace zv::test

// The concepts of the cash office: text and totals of each kind of record.
#include "till/ConceptoRegistro.h"

#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/IdiomaIngles.h"
#include "support/ImprimeQt.h"
#include "ui/Textos.h"

#include <gtest/gtest.h>

namespace zv::test {
namespace {

// As "Cobros+150 Pagos+20".
QString Efecto(const DatosConcepto& datos) {
    static const QString kNombres[] = {u"Cobros"_s, u"Abonos"_s, u"Pagos"_s, u"Ingresos"_s};
    QStringList efectos;
    const ReglaConcepto& regla = kConceptosCaja.Regla(kConceptosCaja.Clasificar(datos));
    for (const auto& [suma, aporte] : regla.apuntes) {
        if (const Currency valor = ValorDe(aporte, datos); !valor.EsCero()) {
            efectos << kNombres[static_cast<std::size_t>(suma)] + u'+' + valor.ATexto();
        }
    }
    return efectos.join(u' ');
}

struct Caso {
    QString terminal;
    QString id1;
    int venta;
    int cobrado;
    int devuelto;
    QString texto;
    QString efecto;
};

// What is told behind the text is "x".
const Caso kCasos[] = {
    {u"ZV"_s, u"COBRO_MANUAL"_s, -500, 0, 500, u"Abono Manual -x"_s, u"Abonos+500"_s},
    {u"ZV"_s, u"COBRO_MANUAL"_s, 500, 700, 200, u"Cobro Manual -x"_s, u"Cobros+500"_s},
    {u"ZV"_s, u"COBRO_MANUAL"_s, 500, 0, 0, u"Cobro Manual -x"_s, {}},
    {u"ZV"_s, u"COBRO_MANUAL"_s, 500, 1, 200, u"Cobro Manual -x"_s, u"Cobros+-199"_s},
    {u"ZV"_s, u"CASHBOXCONTROL"_s, -300, 300, 0, u"Ajuste por descuadre"_s, u"Ingresos+300"_s},
    {u"ZV"_s, u"CASHBOXCONTROL"_s, -300, 0, 300, u"Ajuste por descuadre"_s, u"Pagos+300"_s},
    {u"ZV"_s, u"CASHBOXCONTROL"_s, 0, 30, 20, u"Ajuste por descuadre"_s, u"Ingresos+30 Pagos+20"_s},
    {u"ZV"_s, u"CASHBOXCONTROL"_s, 0, -30, -20, u"Ajuste por descuadre"_s, {}},
    {u"ZV"_s, u"VACIADOCAJONES"_s, -80, 5, 80, u"Vaciado de cajones"_s, u"Pagos+80"_s},
    {u"ZV"_s, u"ARQUEOCAJA"_s, -80, 5, 80, u"Arqueo de caja"_s, u"Pagos+80"_s},
    {u"ZV"_s, u"METER_CAMBIO"_s, 0, 90, 20, u"Cambio añadido"_s, u"Ingresos+70"_s},
    {u"ZV"_s, u"PAGO_CAMBIO"_s, 0, 90, 20, u"Cambio cancelado/no autorizado"_s, u"Pagos+20"_s},
    {u"ZV"_s, u"DAR_CAMBIO"_s, 0, 2000, 1500, u"Cambio"_s, {}},
    {u"ZV"_s, u"PAGO"_s, -40, 10, 40, u"Pago -x"_s, u"Pagos+40"_s},
    {u"ZV"_s, u"VACIADO"_s, -40, 0, 40, u"VACIADOx"_s, u"Pagos+40"_s},
    {u"ZV"_s, u"T1/T2"_s, -40, 0, 40, u"Abono agrupado"_s, u"Abonos+40"_s},
    {u"ZV"_s, u"T1/T2"_s, 40, 50, 10, u"Cobro agrupado"_s, u"Cobros+40"_s},
    {u"ZV"_s, {}, 40, 50, 10, u"Cobro agrupado"_s, u"Cobros+40"_s},
    // compared exactly
    {u"ZV"_s, u"pago"_s, 40, 50, 10, u"Cobro agrupado"_s, u"Cobros+40"_s},
    {u"zv"_s, u"PAGO"_s, 40, 50, 10, u"Cobro Venta"_s, u"Cobros+40"_s},
    // sales
    {u"TPV1"_s, u"PAGO"_s, 40, 50, 10, u"Cobro Venta"_s, u"Cobros+40"_s},
    {u"TPV1"_s, u"T1"_s, 0, 50, 10, u"Abono Venta"_s, u"Abonos+10"_s},
    {u"TPV1"_s, u"T1"_s, -40, 0, 40, u"Abono Venta"_s, u"Abonos+40"_s},
    {{}, u"T1"_s, 1, 1, 0, u"Cobro Venta"_s, u"Cobros+1"_s},
};

TEST(ConceptoRegistroTest, EachKindOfRecord) {
    const CarpetaTemporal carpeta;
    const Textos textos(carpeta.Ruta());
    const TextosConcepto conceptos(kConceptosCaja, textos);
    for (const Caso& c : kCasos) {
        const DatosConcepto datos{c.terminal, c.id1, c.venta, c.cobrado, c.devuelto};
        const std::size_t n = kConceptosCaja.Clasificar(datos);
        const bool detalle = kConceptosCaja.Regla(n).detalle != DetalleConcepto::Ninguno;
        EXPECT_EQ(conceptos.Texto(n, detalle ? u"x"_s : QString()), c.texto) << c.id1.toStdString();
        EXPECT_EQ(Efecto(datos), c.efecto) << c.id1.toStdString();
    }
}

struct CasoHistorial {
    QString terminal;
    QString id1;
    int cobrado;
    int devuelto;
    QString texto;
    int movimiento;
};

// As above; the amount of the sale tells nothing here.
const CasoHistorial kHistorial[] = {
    {u"ZV"_s, u"COBRO_MANUAL"_s, 0, 500, u"Abono Manual -x"_s, -500},
    {u"ZV"_s, u"COBRO_MANUAL"_s, 700, 200, u"Cobro Manual -x"_s, 500},
    {u"ZV"_s, u"COBRO_MANUAL"_s, 0, 0, u"Cobro Manual -x"_s, 0},
    {u"ZV"_s, u"CASHBOXCONTROL"_s, 300, 50, u"Ajuste por descuadreo"_s, 250},
    {u"ZV"_s, u"CASHBOXCONTROL"_s, 0, 300, u"Ajuste por descuadreo"_s, -300},
    {u"ZV"_s, u"METER_CAMBIO"_s, 90, 20, u"Cambio añadido"_s, 70},
    {u"ZV"_s, u"DAR_CAMBIO"_s, 2000, 1500, u"Cambio"_s, 500},
    {u"ZV"_s, u"PAGO"_s, 10, 40, u"Pagox"_s, -40},
    {u"ZV"_s, u"VACIADO"_s, 5, 40, u"Vaciadox"_s, -40},
    {u"ZV"_s, u"VACIADOCAJONES"_s, 5, 80, u"Vaciado de cajones"_s, -80},
    {u"ZV"_s, u"ARQUEOCAJA"_s, 5, 80, u"Arqueo de caja"_s, -80},
    {u"ZV"_s, u"PAGO_CAMBIO"_s, 0, 20, u"Abono agrupado"_s, -20},
    {u"ZV"_s, u"PAGO_CAMBIO"_s, 90, 20, u"Cobro agrupado"_s, 70},
    {u"ZV"_s, u"T1/T2"_s, 0, 40, u"Abono agrupado"_s, -40},
    {u"ZV"_s, {}, 50, 10, u"Cobro agrupado"_s, 40},
    {u"ZV"_s, u"pago"_s, 50, 10, u"Cobro agrupado"_s, 40},
    {u"zv"_s, u"PAGO"_s, 50, 10, u"Cobro venta"_s, 40},
    {u"TPV1"_s, u"PAGO"_s, 0, 10, u"Abono venta"_s, -10},
    {u"TPV1"_s, u"T1"_s, 1, 10, u"Cobro venta"_s, -9},
    {{}, u"T1"_s, 0, 0, u"Cobro venta"_s, 0},
};

TEST(ConceptoRegistroTest, EachKindOfRecordInTheHistory) {
    const CarpetaTemporal carpeta;
    const Textos textos(carpeta.Ruta());
    const TextosConcepto conceptos(kConceptosHistorial, textos);
    for (const CasoHistorial& c : kHistorial) {
        for (const int venta : {-70, 0, 70}) {
            const DatosConcepto datos{c.terminal, c.id1, venta, c.cobrado, c.devuelto};
            const std::size_t n = kConceptosHistorial.Clasificar(datos);
            const ReglaConcepto& regla = kConceptosHistorial.Regla(n);
            const bool detalle = regla.detalle != DetalleConcepto::Ninguno;
            EXPECT_EQ(conceptos.Texto(n, detalle ? u"x"_s : QString()), c.texto)
                << c.id1.toStdString();
            EXPECT_EQ(ValorDe(regla.movimiento, datos), Currency(c.movimiento))
                << c.id1.toStdString();
            EXPECT_EQ(regla.detalle == DetalleConcepto::FormaPago, c.id1 == u"VACIADO"_s);
        }
    }
}

TEST(ConceptoRegistroTest, OnlyAnEmptiedBoxTellsHowItWasPaid) {
    for (std::size_t n = 0; n < kConceptosCaja.Reglas(); ++n) {
        const ReglaConcepto& regla = kConceptosCaja.Regla(n);
        const bool vaciado = regla.id1 != nullptr && *regla.id1 == u"VACIADO"_s;
        EXPECT_EQ(regla.detalle == DetalleConcepto::FormaPago, vaciado);
    }
}

// What is told behind the text is "x".
const Caso kDeRegistro[] = {
    {u"ZV"_s, u"COBRO_MANUAL"_s, -500, 0, 500, u"Abono Manualx"_s, {}},
    {u"ZV"_s, u"COBRO_MANUAL"_s, 500, 700, 200, u"Cobro Manualx"_s, {}},
    {u"TPV1"_s, u"COBRO_MANUAL"_s, 500, 700, 200, u"Cobro Manualx"_s, {}},
    {u"ZV"_s, u"CASHBOXCONTROL"_s, -300, 300, 0, u"Ajuste por descuadre"_s, {}},
    {u"ZV"_s, u"VACIADOCAJONES"_s, -80, 0, 80, u"Vaciado de cajones"_s, {}},
    {u"ZV"_s, u"ARQUEOCAJA"_s, -80, 0, 80, u"Arqueo de caja"_s, {}},
    {u"ZV"_s, u"METER_CAMBIO"_s, 0, 90, 20, u"Cambio añadido"_s, {}},
    {u"ZV"_s, u"PAGO_CAMBIO"_s, 0, 90, 20, u"Cambio cancelado/no autorizado"_s, {}},
    {u"ZV"_s, u"DAR_CAMBIO"_s, 0, 2000, 1500, u"Cambio"_s, {}},
    {u"ZV"_s, u"PAGO"_s, -40, 10, 40, u"Pagox"_s, {}},
    {u"ZV"_s, u"VACIADO"_s, -40, 0, 40, u"VACIADO x"_s, {}},
    {u"ZV"_s, u"T1"_s, -40, 0, 40, u"Abono agrupado"_s, {}},
    {u"TPV1"_s, u"T1"_s, 40, 50, 10, u"Cobro agrupado"_s, {}},
    {u"TPV1"_s, u"T1"_s, -40, 0, 40, u"Abono agrupado"_s, {}},
    {u"TPV1"_s, {}, 0, 0, 0, u"Cobro agrupado"_s, {}},
};

TEST(ConceptoRegistroTest, ARegisterTellsThemByTheirIdentityAlone) {
    const CarpetaTemporal carpeta;
    const Textos textos(carpeta.Ruta());
    const TextosConcepto conceptos(kConceptosRegistro, textos);
    for (const Caso& c : kDeRegistro) {
        const DatosConcepto datos{c.terminal, c.id1, c.venta, c.cobrado, c.devuelto};
        const std::size_t n = kConceptosRegistro.Clasificar(datos);
        const bool detalle = kConceptosRegistro.Regla(n).detalle != DetalleConcepto::Ninguno;
        EXPECT_EQ(conceptos.Texto(n, detalle ? u"x"_s : QString()), c.texto) << c.id1.toStdString();
    }
    const std::size_t vaciado = kConceptosRegistro.Clasificar({{}, u"VACIADO"_s, {}, {}, {}});
    EXPECT_EQ(conceptos.Texto(vaciado, {}), u"VACIADO"_s);
    IdiomaIngles().PonerEn(carpeta.Ruta());
    const Textos ingleses(carpeta.Ruta());
    // The file's text ends in a blank of its own.
    EXPECT_EQ(TextosConcepto(kConceptosRegistro, ingleses).Texto(vaciado, u"x"_s),
              u"EMPTIED\u00a0x"_s);
}

TEST(ConceptoRegistroTest, EveryConceptHasItsOwnEnglishText) {
    const CarpetaTemporal carpeta;
    IdiomaIngles().PonerEn(carpeta.Ruta());
    const Textos textos(carpeta.Ruta());
    const TextosConcepto conceptos(kConceptosCaja, textos);
    QStringList vistos;
    for (std::size_t n = 0; n < kConceptosCaja.Reglas(); ++n) {
        const QString texto = conceptos.Texto(n, {});
        EXPECT_FALSE(vistos.contains(texto)) << texto.toStdString();
        EXPECT_NE(texto, kConceptosCaja.Regla(n).texto->PorDefecto());
        vistos << texto;
    }
    EXPECT_TRUE(vistos.contains(u"Pay-out -\u00a0"_s));
}

} // namespace
} // namespace zv::test

// What both closes of a cash period are tested with.
#pragma once

#include "BancoCierre.h"

namespace zv::test {

// What stays in the device after the closes of these tests: 10,00 + 20,00 in the recycler.
inline constexpr Dinero kQueda{1000, 2000, 0, 0};
inline constexpr qint32 kMonedasCajon = 700;
inline constexpr qint32 kBilletesCajon = 2500;
inline constexpr qint32 kMovido = kMonedasCajon + kBilletesCajon;

inline const QString kTextoRechazo =
    u"Se ha producido un error al enviar el cierre al Zorvex. Por favor, consulte con su "
    "técnico"_s;

struct CasoCierre {
    VarianteCierre variante;
    BotonCaja boton;
    qint32 entra; // remainingChange as it goes in
};

inline TextoEsperado Empieza(const QString& inicio) {
    return testing::Truly([inicio](const QString& texto) { return texto.startsWith(inicio); });
}

inline std::vector<CasoCierre> Casos() {
    return {{kCierreNiveles, BotonCaja::CierreNiveles, 0},
            {kCierreValor, BotonCaja::CierreValor, 2500}};
}

class CierreCajaTest : public BancoCierre {
  protected:
    void EsperaPregunta(const CasoCierre& caso) {
        if (caso.variante.pideImporte) {
            dialogos.EsperaImporte(u"Cierre"_s, u"Importe:"_s, caso.entra, false,
                                   Visto(u"Cierre"_s));
            return;
        }
        dialogos.EsperaMensaje(u"Cierre de caja"_s,
                               u"Se va a proceder ha realizar un cierre de caja por niveles. "
                               "Quiere continuar?"_s,
                               Respuesta::Aceptar, EstiloMensaje::AceptarCancelar,
                               Visto(u"Cierre de caja"_s));
    }
    void EsperaDispositivo(const CasoCierre& caso, const FinGuion& fin = {}) {
        cliente.EsperaCashBoxControl(caso.variante.modo, caso.entra, kMonedasCajon, kBilletesCajon,
                                     3000, fin);
    }
    // 32,00 - 10,00 = 22,00 of coins, 65,00 - 20,00 = 45,00 of notes.
    void EsperaRecordatorio(const QString& monedas = u"22,00 €"_s,
                            const QString& billetes = u"45,00 €"_s) {
        EsperaAviso(u"Zorvex"_s, u"Recuerde vaciar los cajones de recaudación:\r\nMonedas:"_s +
                                     monedas + u"\r\nBilletes:"_s + billetes);
    }
    void EsperaCierre(const CasoCierre& caso) {
        EsperaPregunta(caso);
        EsperaDispositivo(caso, Deja(kQueda));
        EsperaRecordatorio();
    }
    void Cerrar(const CasoCierre& caso) { CierreCaja(caja).Cerrar(caso.variante); }
    static QString Tag(const CasoCierre& caso) { return u"CIERRE_"_s + caso.variante.nombre; }
    static QString Diario(const CasoCierre& caso, const QString& estado) {
        return u"ZVCASHBOXCONTROL_"_s + Tag(caso) + u'_' + estado +
               u": COINSVALUEINCB=700 NOTESVALUEINCB=2500 REMAININGCHANGE=3000"_s;
    }
    static QString Llamada(const CasoCierre& caso) {
        return u"@CashBoxControl(%1, %2)"_s.arg(caso.variante.modo).arg(caso.entra);
    }
    void EsperaFallo(int numero, const QString& descripcion, DialogosGuion::Accion mientras = {}) {
        dialogos.EsperaMensaje(u"Error al realizar el cierre"_s,
                               u"Error nº "_s + QString::number(numero) + u":\r\n"_s + descripcion,
                               Respuesta::Aceptar, EstiloMensaje::Critico, std::move(mientras));
    }
    // What stays as it was, because the close has ended on the way.
    void ComprobarSinRematar() {
        EXPECT_EQ(SaldoExit(), u"9700"_s);
        EXPECT_EQ(SaldoInicial(), u"4321"_s);
        EXPECT_EQ(UltimoCierre(), u"-"_s);
        EXPECT_EQ(caja.Estado().lbSaldoCierre, QString());
        EXPECT_TRUE(Boton(BotonCaja::CierreNiveles));
        EXPECT_TRUE(Boton(BotonCaja::VaciarMonedas));
        EXPECT_EQ(caja.Estado().foco, std::nullopt);
    }
};

} // namespace zv::test

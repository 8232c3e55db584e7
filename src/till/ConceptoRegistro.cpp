#include "till/ConceptoRegistro.h"

#include "platform/StringLiterals.h"
#include "store/Palabras.h"
#include "till/Claves.h"
#include "ui/Textos.h"

#include <algorithm>

namespace zv {

namespace {

using Apunte = ReglaConcepto::Apunte;
using Prueba = PruebaConcepto;
using Detalle = DetalleConcepto;
using Suma = SumaPeriodo;

const QString kTerminalMonitor = u"ZV"_s;

constexpr std::array<Apunte, 2> Uno(Suma suma, Aporte aporte) {
    return {Apunte{suma, aporte}, Apunte{}};
}

constexpr std::array kCajaMonitor = {
    ReglaConcepto{&tipo::kCobroManual, Prueba::SoloDevuelto, &texto::kAbonoManual, Detalle::Error,
                  Uno(Suma::Abonos, Aporte::Devuelto)},
    ReglaConcepto{&tipo::kCobroManual, Prueba::Ninguna, &texto::kConceptoCobroManual,
                  Detalle::Error, Uno(Suma::Cobros, Aporte::Neto)},
    ReglaConcepto{&tipo::kCashBoxControl,
                  Prueba::Ninguna,
                  &texto::kAjustePorDescuadre,
                  Detalle::Ninguno,
                  {Apunte{Suma::Ingresos, Aporte::CobradoPositivo},
                   Apunte{Suma::Pagos, Aporte::DevueltoPositivo}}},
    ReglaConcepto{&tipo::kVaciadoCajones, Prueba::Ninguna, &texto::kVaciadoCajones,
                  Detalle::Ninguno, Uno(Suma::Pagos, Aporte::Devuelto)},
    ReglaConcepto{&tipo::kArqueoCaja, Prueba::Ninguna, &texto::kArqueoCaja, Detalle::Ninguno,
                  Uno(Suma::Pagos, Aporte::Devuelto)},
    ReglaConcepto{&tipo::kMeterCambio, Prueba::Ninguna, &texto::kCambioAnadido, Detalle::Ninguno,
                  Uno(Suma::Ingresos, Aporte::Neto)},
    ReglaConcepto{&tipo::kPagoCambio, Prueba::Ninguna, &texto::kCambioCancelado, Detalle::Ninguno,
                  Uno(Suma::Pagos, Aporte::Devuelto)},
    ReglaConcepto{&tipo::kDarCambio, Prueba::Ninguna, &texto::kCambio},
    ReglaConcepto{&tipo::kPago, Prueba::Ninguna, &texto::kPago, Detalle::Error,
                  Uno(Suma::Pagos, Aporte::Devuelto)},
    ReglaConcepto{&tipo::kVaciado, Prueba::Ninguna, &texto::kVaciado, Detalle::FormaPago,
                  Uno(Suma::Pagos, Aporte::Devuelto)},
    ReglaConcepto{nullptr, Prueba::SoloDevuelto, &texto::kAbonoAgrupado, Detalle::Ninguno,
                  Uno(Suma::Abonos, Aporte::Devuelto)},
    ReglaConcepto{nullptr, Prueba::Ninguna, &texto::kCobroAgrupado, Detalle::Ninguno,
                  Uno(Suma::Cobros, Aporte::Neto)},
};

constexpr std::array kCajaVenta = {
    ReglaConcepto{nullptr, Prueba::VentaPositiva, &texto::kCobroVenta, Detalle::Ninguno,
                  Uno(Suma::Cobros, Aporte::Neto)},
    ReglaConcepto{nullptr, Prueba::Ninguna, &texto::kAbonoVenta, Detalle::Ninguno,
                  Uno(Suma::Abonos, Aporte::Devuelto)},
};

// Without totals: what the movement adds to the running balance.
constexpr ReglaConcepto Movimiento(const QString* id1, const Clave& texto, Aporte movimiento,
                                   Prueba prueba = Prueba::Ninguna,
                                   Detalle detalle = Detalle::Ninguno) {
    return {id1, prueba, &texto, detalle, {}, movimiento};
}

constexpr std::array kHistorialMonitor = {
    Movimiento(&tipo::kCobroManual, texto::kAbonoManual, Aporte::DevueltoNegativo,
               Prueba::SoloDevuelto, Detalle::Error),
    Movimiento(&tipo::kCobroManual, texto::kConceptoCobroManual, Aporte::Neto, Prueba::Ninguna,
               Detalle::Error),
    Movimiento(&tipo::kCashBoxControl, texto::kHistorialAjuste, Aporte::Neto),
    Movimiento(&tipo::kMeterCambio, texto::kCambioAnadido, Aporte::Neto),
    Movimiento(&tipo::kDarCambio, texto::kCambio, Aporte::Neto),
    Movimiento(&tipo::kPago, texto::kPagoJunto, Aporte::DevueltoNegativo, Prueba::Ninguna,
               Detalle::Error),
    Movimiento(&tipo::kVaciado, texto::kHistorialVaciado, Aporte::DevueltoNegativo, Prueba::Ninguna,
               Detalle::FormaPago),
    Movimiento(&tipo::kVaciadoCajones, texto::kVaciadoCajones, Aporte::DevueltoNegativo),
    Movimiento(&tipo::kArqueoCaja, texto::kArqueoCaja, Aporte::DevueltoNegativo),
    Movimiento(nullptr, texto::kAbonoAgrupado, Aporte::DevueltoNegativo, Prueba::SoloDevuelto),
    Movimiento(nullptr, texto::kCobroAgrupado, Aporte::Neto),
};

constexpr std::array kHistorialVenta = {
    Movimiento(nullptr, texto::kHistorialAbonoVenta, Aporte::DevueltoNegativo,
               Prueba::SoloDevuelto),
    Movimiento(nullptr, texto::kHistorialCobroVenta, Aporte::Neto),
};

// Without totals: what a register shows.
constexpr ReglaConcepto Muestra(const QString* id1, const Clave& texto,
                                Detalle detalle = Detalle::Ninguno,
                                Prueba prueba = Prueba::Ninguna) {
    return {id1, prueba, &texto, detalle, {}};
}

constexpr std::array kRegistro = {
    Muestra(&tipo::kCobroManual, texto::kAbonoManualJunto, Detalle::Error, Prueba::SoloDevuelto),
    Muestra(&tipo::kCobroManual, texto::kCobroManualJunto, Detalle::Error),
    Muestra(&tipo::kCashBoxControl, texto::kAjustePorDescuadre),
    Muestra(&tipo::kVaciadoCajones, texto::kVaciadoCajones),
    Muestra(&tipo::kArqueoCaja, texto::kArqueoCaja),
    Muestra(&tipo::kMeterCambio, texto::kCambioAnadido),
    Muestra(&tipo::kPagoCambio, texto::kCambioCancelado),
    Muestra(&tipo::kDarCambio, texto::kCambio),
    Muestra(&tipo::kPago, texto::kPagoJunto, Detalle::Error),
    Muestra(&tipo::kVaciado, texto::kVaciado, Detalle::FormaPagoAparte),
    Muestra(nullptr, texto::kAbonoAgrupado, Detalle::Ninguno, Prueba::SoloDevuelto),
    Muestra(nullptr, texto::kCobroAgrupado),
};

bool Pasa(PruebaConcepto prueba, const DatosConcepto& datos) {
    switch (prueba) {
    case Prueba::Ninguna:
        return true;
    case Prueba::SoloDevuelto:
        return datos.devuelto > Currency(0) && datos.cobrado.EsCero();
    case Prueba::VentaPositiva:
        return datos.importeVenta > Currency(0);
    }
    return false;
}

} // namespace

constinit const VarianteConcepto kConceptosCaja{kCajaMonitor, kCajaVenta};
constinit const VarianteConcepto kConceptosHistorial{kHistorialMonitor, kHistorialVenta};
constinit const VarianteConcepto kConceptosRegistro{kRegistro, {}};

Currency ValorDe(Aporte aporte, const DatosConcepto& datos) {
    switch (aporte) {
    case Aporte::Nada:
        break;
    case Aporte::Neto:
        return datos.cobrado - datos.devuelto;
    case Aporte::Devuelto:
        return datos.devuelto;
    case Aporte::DevueltoNegativo:
        return -datos.devuelto;
    case Aporte::CobradoPositivo:
        return std::max(datos.cobrado, Currency(0));
    case Aporte::DevueltoPositivo:
        return std::max(datos.devuelto, Currency(0));
    }
    return {};
}

std::size_t VarianteConcepto::Clasificar(const DatosConcepto& datos) const {
    const auto donde = [&datos](std::span<const ReglaConcepto> reglas) {
        const auto regla =
            std::find_if(reglas.begin(), reglas.end() - 1, [&datos](const ReglaConcepto& cada) {
                return (cada.id1 == nullptr || *cada.id1 == datos.id1) && Pasa(cada.prueba, datos);
            });
        return static_cast<std::size_t>(regla - reglas.begin());
    };
    return deVenta.empty() || datos.terminal == kTerminalMonitor
               ? donde(delMonitor)
               : delMonitor.size() + donde(deVenta);
}

TextosConcepto::TextosConcepto(const VarianteConcepto& variante, const Textos& textos)
    : variante_(variante) {
    textos_.reserve(variante.Reglas());
    for (std::size_t n = 0; n < variante.Reglas(); ++n) {
        textos_.push_back(textos.Traduce(*variante.Regla(n).texto));
    }
}

QString TextosConcepto::Texto(std::size_t regla, const QString& detalle) const {
    const QString& texto = textos_[regla];
    const bool aparte = variante_.Regla(regla).detalle == Detalle::FormaPagoAparte &&
                        !detalle.isEmpty() && !texto.isEmpty() && !texto.back().isSpace();
    return aparte ? texto + u' ' + detalle : texto + detalle;
}

} // namespace zv

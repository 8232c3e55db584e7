// The scripts, as docs/simulator.md tells them.
#include "simulator/Cliente.h"

#include "simulator/Dinero.h"

#include <algorithm>
#include <array>
#include <span>

namespace zv::simulador {

namespace {

constexpr std::array<qint32, 10> kIngresoExacto{100, 100, 100, 100, 100, 200, 200, 200, 500, 500};
constexpr std::array<qint32, 2> kIngresoRedondeo{1000, 2000};
constexpr qint32 kBilleteGrande = 5000; // the largest that the recycler gives out again

qint32 MayorHasta(qint32 importe) {
    const auto it = std::find_if(kDenominaciones.rbegin(), kDenominaciones.rend(),
                                 [importe](const Denominacion& d) { return d.valor <= importe; });
    return it == kDenominaciones.rend() ? 0 : it->valor;
}

qint32 BilletePara(qint32 importe) {
    const auto* const it = std::ranges::find_if(kDenominaciones, [importe](const Denominacion& d) {
        return d.valor > kMonedaMayor && (d.valor >= importe || d.valor == kBilleteGrande);
    });
    return it->valor;
}

Gesto Poner(std::span<const qint32> lista, int piezas) {
    const auto n = static_cast<std::size_t>(piezas);
    return n < lista.size() ? Gesto{Gesto::Tipo::Pieza, lista[n]} : Gesto{Gesto::Tipo::Terminar, 0};
}

} // namespace

std::optional<Guion> GuionDeNombre(const QString& nombre) {
    if (nombre == QLatin1String("exacto")) {
        return Guion::Exacto;
    }
    if (nombre == QLatin1String("redondeo")) {
        return Guion::Redondeo;
    }
    if (nombre == QLatin1String("manual")) {
        return Guion::Manual;
    }
    return std::nullopt;
}

Gesto Siguiente(Guion guion, const Operacion& op, int piezas) {
    if (guion == Guion::Manual) {
        return {};
    }
    const bool exacto = guion == Guion::Exacto;
    switch (op.metodo) {
    case Metodo::Cobro: {
        const qint32 falta = op.valor - op.entrado;
        if (falta <= 0) {
            return {};
        }
        return {Gesto::Tipo::Pieza, exacto ? MayorHasta(falta) : BilletePara(falta)};
    }
    case Metodo::Cambio: {
        const std::array<qint32, 1> uno{exacto ? 1000 : kBilleteGrande};
        return Poner(uno, piezas);
    }
    case Metodo::Ingreso:
        return exacto ? Poner(kIngresoExacto, piezas) : Poner(kIngresoRedondeo, piezas);
    default:
        return {};
    }
}

} // namespace zv::simulador

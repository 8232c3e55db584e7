// The scripts, as docs/simulator.md tells them.
#include "simulator/Cliente.h"

#include "platform/StringLiterals.h"
#include "simulator/Dinero.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <span>
#include <utility>

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

// ---- orders

bool Cliente::LeerGestos(const QStringList& gestos, Orden& orden, QString& error) {
    bool acabado = false;
    for (const QString& gesto : gestos) {
        bool numero = false;
        const qint32 valor = gesto.toInt(&numero);
        if (acabado) {
            error = u"\"%1\" está detrás del final"_s.arg(gesto);
            return false;
        }
        if (numero) {
            if (!Indice(valor)) {
                error = u"no hay ninguna pieza de %1 céntimos"_s.arg(valor);
                return false;
            }
            orden.piezas.push_back(valor);
            continue;
        }
        acabado = true;
        if (gesto == QLatin1String("cancelar")) {
            orden.fin = Gesto::Tipo::Cancelar;
        } else if (gesto == QLatin1String("esperar")) {
            orden.fin = Gesto::Tipo::Nada;
        } else if (gesto != QLatin1String("terminar") || !SeTermina(orden.metodo)) {
            error = u"\"%1\" no es ningún gesto de esta operación"_s.arg(gesto);
            return false;
        }
    }
    return true;
}

std::optional<Cliente::Orden> Cliente::LeerOrden(const QString& texto, QString& error) {
    static constexpr std::array<std::pair<const char*, Metodo>, 3> kMetodos{
        {{"cobro", Metodo::Cobro}, {"cambio", Metodo::Cambio}, {"ingreso", Metodo::Ingreso}}};
    const QRegularExpression forma(u"^([a-z]+)(?:#([1-9][0-9]{0,5}))?=(.+)$"_s);
    const QRegularExpressionMatch partes = forma.match(texto);
    if (!partes.hasMatch()) {
        error = u"la forma es operación[#n]=gesto+gesto…"_s;
        return std::nullopt;
    }
    const auto* const metodo = std::ranges::find_if(
        kMetodos, [&](const auto& uno) { return partes.captured(1) == QLatin1String(uno.first); });
    if (metodo == kMetodos.end()) {
        error = u"un cliente sólo sabe de cobro, cambio e ingreso"_s;
        return std::nullopt;
    }
    Orden orden;
    orden.metodo = metodo->second;
    orden.numero = partes.captured(2).toInt();
    orden.fin = SeTermina(orden.metodo) ? Gesto::Tipo::Terminar : Gesto::Tipo::Nada;
    if (!LeerGestos(partes.captured(3).split(u'+'), orden, error)) {
        return std::nullopt;
    }
    return orden;
}

std::optional<Cliente> Cliente::Leer(const QString& guion, QString& error) {
    Cliente cliente;
    QStringList partes = guion.split(u',');
    const auto habito = GuionDeNombre(partes.takeFirst());
    if (!habito) {
        error = u"empieza por exacto, redondeo o manual"_s;
        return std::nullopt;
    }
    cliente.habito_ = *habito;
    for (const QString& parte : std::as_const(partes)) {
        const auto orden = LeerOrden(parte, error);
        if (!orden) {
            error = u"\"%1\": "_s.arg(parte) + error;
            return std::nullopt;
        }
        cliente.ordenes_.push_back(*orden);
    }
    return cliente;
}

void Cliente::AlEmpezar(const Operacion& op) {
    ++cuenta_[op.metodo];
}

Gesto Cliente::Siguiente(const Operacion& op, int piezas) const {
    const auto cuenta = cuenta_.find(op.metodo);
    const int numero = cuenta == cuenta_.end() ? 0 : cuenta->second;
    // The last order that fits, so that a general one may stand before its exceptions.
    const auto orden = std::find_if(ordenes_.rbegin(), ordenes_.rend(), [&](const Orden& una) {
        return una.metodo == op.metodo && (una.numero == 0 || una.numero == numero);
    });
    if (orden == ordenes_.rend()) {
        return simulador::Siguiente(habito_, op, piezas);
    }
    const auto n = static_cast<std::size_t>(piezas);
    return n < orden->piezas.size() ? Gesto{Gesto::Tipo::Pieza, orden->piezas[n]}
                                    : Gesto{orden->fin, 0};
}

} // namespace zv::simulador

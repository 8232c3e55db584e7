#include "simulator/Inventario.h"

#include "platform/StringLiterals.h"

#include <QString>

#include <algorithm>

namespace zv::simulador {

namespace {

int CapacidadDe(bool monedas, const CapacidadCajones& capacidad) {
    return monedas ? capacidad.monedas : capacidad.billetes;
}

} // namespace

Inventario Inventario::Inicial() {
    Inventario nuevo;
    for (std::size_t i = 0; i < kCuantas; ++i) {
        if (EsMoneda(i)) {
            nuevo.reciclador.at(i) = 20;
        } else if (kDenominaciones.at(i).optimo > 0) {
            nuevo.reciclador.at(i) = 10;
        }
    }
    return nuevo;
}

Destino Inventario::DestinoDe(std::size_t indice, bool esCambio,
                              const CapacidadCajones& capacidad) const {
    const Denominacion& d = kDenominaciones.at(indice);
    if (d.recicla && reciclador.at(indice) < (esCambio ? d.capacidad : d.objetivo)) {
        return Destino::Reciclador;
    }
    const bool moneda = EsMoneda(indice);
    if (PiezasClase(cajon, moneda) < CapacidadDe(moneda, capacidad)) {
        return Destino::Cajon;
    }
    // A full box: what is left of the unit above its target serves too.
    if (d.recicla && reciclador.at(indice) < d.capacidad) {
        return Destino::Reciclador;
    }
    return Destino::Rechazada;
}

Mezcla Inventario::PasarACajon(const Mezcla& piezas, const CapacidadCajones& capacidad) {
    Mezcla movidas{};
    for (std::size_t i = 0; i < kCuantas; ++i) {
        const bool moneda = EsMoneda(i);
        const int hueco = CapacidadDe(moneda, capacidad) - PiezasClase(cajon, moneda);
        const int n = std::max(0, std::min({piezas.at(i), reciclador.at(i), hueco}));
        movidas.at(i) = n;
        reciclador.at(i) -= n;
        cajon.at(i) += n;
    }
    return movidas;
}

Mezcla Inventario::SobreOptimo() const {
    Mezcla sobran{};
    for (std::size_t i = 0; i < kCuantas; ++i) {
        sobran.at(i) = std::max(0, reciclador.at(i) - kDenominaciones.at(i).optimo);
    }
    return sobran;
}

int Inventario::EstadoDe(std::size_t indice, const CapacidadCajones& capacidad) const {
    const Denominacion& d = kDenominaciones.at(indice);
    const bool moneda = EsMoneda(indice);
    const qint64 cabe = CapacidadDe(moneda, capacidad);
    const qint64 enCajon = PiezasClase(cajon, moneda);
    if (enCajon >= cabe || (d.recicla && reciclador.at(indice) < d.critica)) {
        return 2;
    }
    if (enCajon * 10 >= cabe * 9 || (d.recicla && reciclador.at(indice) < d.alerta)) {
        return 1;
    }
    return 0;
}

qint64 Inventario::Vaciar(Cajon cual) {
    const bool monedas = cual == Cajon::Monedas;
    const qint64 valor = TotalClase(cajon, monedas);
    for (std::size_t i = 0; i < kCuantas; ++i) {
        if (EsMoneda(i) == monedas) {
            cajon.at(i) = 0;
        }
    }
    return valor;
}

QJsonObject Inventario::AJson() const {
    return {{u"reciclador"_s, MezclaAJson(reciclador)}, {u"cajones"_s, MezclaAJson(cajon)}};
}

std::optional<Inventario> Inventario::DeJson(const QJsonObject& objeto) {
    const QJsonValue reciclador = objeto.value(u"reciclador"_s);
    const QJsonValue cajones = objeto.value(u"cajones"_s);
    if (!reciclador.isObject() || !cajones.isObject()) {
        return std::nullopt;
    }
    const auto enReciclador = MezclaDeJson(reciclador.toObject());
    const auto enCajones = MezclaDeJson(cajones.toObject());
    if (!enReciclador || !enCajones) {
        return std::nullopt;
    }
    return Inventario{*enReciclador, *enCajones};
}

} // namespace zv::simulador

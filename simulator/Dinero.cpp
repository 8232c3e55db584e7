#include "simulator/Dinero.h"

#include <QString>

#include <cmath>

namespace zv::simulador {

std::optional<std::size_t> Indice(qint64 valor) {
    for (std::size_t i = 0; i < kCuantas; ++i) {
        if (kDenominaciones.at(i).valor == valor) {
            return i;
        }
    }
    return std::nullopt;
}

qint64 Total(const Mezcla& mezcla) {
    return TotalClase(mezcla, true) + TotalClase(mezcla, false);
}

int Piezas(const Mezcla& mezcla) {
    return PiezasClase(mezcla, true) + PiezasClase(mezcla, false);
}

qint64 TotalClase(const Mezcla& mezcla, bool monedas) {
    qint64 total = 0;
    for (std::size_t i = 0; i < kCuantas; ++i) {
        if (EsMoneda(i) == monedas) {
            total += qint64{kDenominaciones.at(i).valor} * mezcla.at(i);
        }
    }
    return total;
}

int PiezasClase(const Mezcla& mezcla, bool monedas) {
    int piezas = 0;
    for (std::size_t i = 0; i < kCuantas; ++i) {
        if (EsMoneda(i) == monedas) {
            piezas += mezcla.at(i);
        }
    }
    return piezas;
}

QJsonObject MezclaAJson(const Mezcla& mezcla) {
    QJsonObject objeto;
    for (std::size_t i = 0; i < kCuantas; ++i) {
        if (mezcla.at(i) != 0) {
            objeto.insert(QString::number(kDenominaciones.at(i).valor), mezcla.at(i));
        }
    }
    return objeto;
}

std::optional<Mezcla> MezclaDeJson(const QJsonObject& objeto) {
    constexpr double kMuchas = 100'000;
    Mezcla mezcla{};
    for (auto it = objeto.begin(); it != objeto.end(); ++it) {
        const auto indice = Indice(it.key().toLongLong());
        const double piezas = it.value().toDouble(-1);
        if (!indice || piezas < 0 || piezas > kMuchas || piezas != std::floor(piezas)) {
            return std::nullopt;
        }
        mezcla.at(*indice) = static_cast<int>(piezas);
    }
    return mezcla;
}

} // namespace zv::simulador

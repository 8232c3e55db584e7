// Bounded dynamic programming in three groups of denominations. The values of a group are scaled by
// their common divisor (1, 10 and 500 when all are there), which keeps the tables at a few thousand
// entries; the groups' tables are then joined for the amount asked.
#include "simulator/Cambio.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <vector>

namespace zv::simulador {

namespace {

using Pesos = std::array<int, kCuantas>;

constexpr int kImposible = std::numeric_limits<int>::max() / 4;

Pesos PesosDe(const Mezcla& disponible, Preferencia preferencia) {
    constexpr int kNormal = 100;
    Pesos pesos{};
    pesos.fill(kNormal);
    if (preferencia == Preferencia::MenosPiezas) {
        return pesos;
    }
    for (std::size_t i = 0; i < kCuantas; ++i) {
        const Denominacion& d = kDenominaciones.at(i);
        const int hay = disponible.at(i);
        if (hay < d.alerta) {
            pesos.at(i) = 4 * kNormal;
        } else if (hay < d.optimo) {
            pesos.at(i) = kNormal + kNormal / 4;
        } else if (hay >= d.objetivo) {
            pesos.at(i) = kNormal / 4;
        }
    }
    return pesos;
}

// What a group of denominations can make, from 0 to the lesser of the limit and its total.
class Tabla {
  public:
    Tabla(const Mezcla& disponible, const Pesos& pesos, std::size_t primero, std::size_t fin,
          qint64 limite) {
        qint64 divisor = 0;
        for (std::size_t i = primero; i < fin; ++i) {
            if (disponible.at(i) > 0 && kDenominaciones.at(i).valor <= limite) {
                divisor = std::gcd(divisor, qint64{kDenominaciones.at(i).valor});
                indices_.push_back(i);
            }
        }
        escala_ = divisor > 0 ? divisor : 1;
        qint64 suma = 0;
        for (const std::size_t i : indices_) {
            suma += disponible.at(i) * qint64{kDenominaciones.at(i).valor};
        }
        maximo_ = std::min(suma, limite) / escala_ * escala_;
        coste_.assign(static_cast<std::size_t>(maximo_ / escala_) + 1, kImposible);
        coste_[0] = 0;
        std::size_t alcance = 0; // no sum beyond this one is reachable yet
        for (const std::size_t i : indices_) {
            const auto paso = static_cast<std::size_t>(kDenominaciones.at(i).valor / escala_);
            alcance = std::min(coste_.size() - 1,
                               alcance + paso * static_cast<std::size_t>(disponible.at(i)));
            usadas_.push_back(
                Añadir(paso, static_cast<std::size_t>(disponible.at(i)), pesos.at(i), alcance));
        }
    }

    qint64 Escala() const { return escala_; }
    qint64 Maximo() const { return maximo_; }

    // Cost of an amount; kImposible when it cannot be made.
    int Coste(qint64 importe) const {
        if (importe < 0 || importe > maximo_ || importe % escala_ != 0) {
            return kImposible;
        }
        return coste_[static_cast<std::size_t>(importe / escala_)];
    }

    // The largest amount that can be made and does not exceed `tope`; -1 when that is below 0.
    qint64 Mayor(qint64 tope) const {
        if (tope < 0) {
            return -1;
        }
        qint64 importe = std::min(tope, maximo_) / escala_ * escala_;
        while (Coste(importe) >= kImposible) {
            importe -= escala_;
        }
        return importe;
    }

    void Recoger(qint64 importe, Mezcla& mezcla) const {
        auto s = static_cast<std::size_t>(importe / escala_);
        for (std::size_t n = indices_.size(); n-- > 0;) {
            const std::size_t i = indices_[n];
            const std::size_t piezas = usadas_[n][s];
            mezcla.at(i) += static_cast<int>(piezas);
            s -= piezas * static_cast<std::size_t>(kDenominaciones.at(i).valor / escala_);
        }
    }

  private:
    // One denomination more: a sliding minimum over each class of remainders, so that the number
    // of pieces does not count. Answers how many pieces each sum takes.
    std::vector<quint32> Añadir(std::size_t paso, std::size_t piezas, int peso,
                                std::size_t alcance) {
        std::vector<quint32> usadas(coste_.size(), 0);
        struct Candidato {
            std::size_t vuelta;
            int base;
        };
        std::vector<Candidato> cola;
        std::vector<int> nuevo = coste_;
        for (std::size_t resto = 0; resto < paso && resto <= alcance; ++resto) {
            cola.clear();
            std::size_t cabeza = 0;
            std::size_t vuelta = 0;
            for (std::size_t s = resto; s <= alcance; s += paso, ++vuelta) {
                const int corrida = static_cast<int>(vuelta) * peso;
                if (coste_[s] < kImposible) {
                    const int base = coste_[s] - corrida;
                    while (cola.size() > cabeza && cola.back().base >= base) {
                        cola.pop_back();
                    }
                    cola.push_back({vuelta, base});
                }
                while (cabeza < cola.size() && vuelta - cola[cabeza].vuelta > piezas) {
                    ++cabeza;
                }
                if (cabeza < cola.size()) {
                    nuevo[s] = cola[cabeza].base + corrida;
                    usadas[s] = static_cast<quint32>(vuelta - cola[cabeza].vuelta);
                }
            }
        }
        coste_ = std::move(nuevo);
        return usadas;
    }

    std::vector<std::size_t> indices_;
    std::vector<std::vector<quint32>> usadas_;
    std::vector<int> coste_;
    qint64 escala_ = 1;
    qint64 maximo_ = 0;
};

// The three groups: 1 to 5, 10 to 200, and the notes.
struct Tablas {
    Tabla chicas;
    Tabla monedas;
    Tabla billetes;

    static Tablas De(const Mezcla& disponible, Preferencia preferencia, qint64 limite) {
        const Pesos pesos = PesosDe(disponible, preferencia);
        return {Tabla(disponible, pesos, 0, 3, limite), Tabla(disponible, pesos, 3, 8, limite),
                Tabla(disponible, pesos, 8, kCuantas, limite)};
    }

    Mezcla Recoger(qint64 billete, qint64 moneda, qint64 chica) const {
        Mezcla mezcla{};
        billetes.Recoger(billete, mezcla);
        monedas.Recoger(moneda, mezcla);
        chicas.Recoger(chica, mezcla);
        return mezcla;
    }
};

} // namespace

std::optional<Mezcla> CambioExacto(qint64 importe, const Mezcla& disponible,
                                   Preferencia preferencia) {
    if (importe < 0 || importe > Total(disponible)) {
        return std::nullopt;
    }
    const Tablas t = Tablas::De(disponible, preferencia, importe);
    int mejor = kImposible;
    qint64 elBillete = 0;
    qint64 laMoneda = 0;
    for (qint64 b = 0; b <= t.billetes.Maximo(); b += t.billetes.Escala()) {
        const int costeBilletes = t.billetes.Coste(b);
        if (costeBilletes >= mejor) {
            continue;
        }
        const qint64 resto = importe - b;
        const qint64 desde = std::max<qint64>(0, resto - t.chicas.Maximo());
        const qint64 escala = t.monedas.Escala();
        for (qint64 m = (desde + escala - 1) / escala * escala;
             m <= std::min(resto, t.monedas.Maximo()); m += escala) {
            const int costeMonedas = t.monedas.Coste(m);
            const int costeChicas = t.chicas.Coste(resto - m);
            if (costeMonedas >= kImposible || costeChicas >= kImposible) {
                continue;
            }
            if (costeBilletes + costeMonedas + costeChicas < mejor) {
                mejor = costeBilletes + costeMonedas + costeChicas;
                elBillete = b;
                laMoneda = m;
            }
        }
    }
    if (mejor >= kImposible) {
        return std::nullopt;
    }
    return t.Recoger(elBillete, laMoneda, importe - elBillete - laMoneda);
}

Mezcla CambioMasCercano(qint64 importe, const Mezcla& disponible, Preferencia preferencia) {
    if (importe <= 0) {
        return {};
    }
    const qint64 limite = std::min(importe, Total(disponible));
    const Tablas t = Tablas::De(disponible, preferencia, limite);
    qint64 mejor = 0;
    for (qint64 b = 0; b <= t.billetes.Maximo(); b += t.billetes.Escala()) {
        if (t.billetes.Coste(b) >= kImposible) {
            continue;
        }
        const qint64 resto = limite - b;
        // Downwards: below the first sum that all the small pieces cannot fill up, each further
        // step only loses.
        for (qint64 m = t.monedas.Mayor(resto); m >= 0; m = t.monedas.Mayor(m - 1)) {
            mejor = std::max(mejor, b + m + t.chicas.Mayor(resto - m));
            if (m + t.chicas.Maximo() <= resto) {
                break;
            }
        }
    }
    return CambioExacto(mejor, disponible, preferencia).value_or(Mezcla{});
}

} // namespace zv::simulador

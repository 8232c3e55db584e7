// The money that the simulated recycler knows: euro coins and notes, and sets of pieces of them.
// Amounts are minor units (cents).
#pragma once

#include <QJsonObject>
#include <QtGlobal>

#include <array>
#include <cstddef>
#include <optional>

namespace zv::simulador {

struct Denominacion {
    qint32 valor;
    bool recicla;  // false: goes to its box and never comes out again
    int critica;   // fewer pieces than this in the recycler: state 2
    int alerta;    // fewer pieces than this: state 1
    int optimo;    // pieces that a close by levels leaves
    int objetivo;  // from here on a charge's pieces overflow to the box
    int capacidad; // pieces that fit at all; float may fill a unit up to here
};

inline constexpr std::size_t kCuantas = 14;
inline constexpr std::array<Denominacion, kCuantas> kDenominaciones{{
    {1, true, 4, 10, 30, 80, 120},
    {2, true, 4, 10, 30, 80, 120},
    {5, true, 4, 10, 30, 80, 120},
    {10, true, 4, 10, 30, 80, 120},
    {20, true, 4, 10, 30, 80, 120},
    {50, true, 4, 10, 30, 80, 120},
    {100, true, 4, 10, 30, 80, 120},
    {200, true, 4, 10, 30, 80, 120},
    {500, true, 2, 4, 10, 40, 60},
    {1000, true, 2, 4, 10, 40, 60},
    {2000, true, 2, 4, 10, 40, 60},
    {5000, true, 0, 0, 0, 20, 60},
    {10000, false, 0, 0, 0, 0, 0},
    {20000, false, 0, 0, 0, 0, 0},
}};

// A piece worth 200 or less is a coin.
inline constexpr qint32 kMonedaMayor = 200;
inline constexpr bool EsMoneda(std::size_t indice) {
    return kDenominaciones.at(indice).valor <= kMonedaMayor;
}

// Where a denomination stands in the table; nothing when there is no such piece.
std::optional<std::size_t> Indice(qint64 valor);

// Pieces of each denomination, in the table's order.
using Mezcla = std::array<int, kCuantas>;

qint64 Total(const Mezcla& mezcla);
int Piezas(const Mezcla& mezcla);
// Value of the coins alone, or of the notes alone.
qint64 TotalClase(const Mezcla& mezcla, bool monedas);
int PiezasClase(const Mezcla& mezcla, bool monedas);

// {"100":20,...}, without the denominations that have no piece.
QJsonObject MezclaAJson(const Mezcla& mezcla);
// Nothing when a name is no denomination or a count is not 0 to 100,000.
std::optional<Mezcla> MezclaDeJson(const QJsonObject& objeto);

} // namespace zv::simulador

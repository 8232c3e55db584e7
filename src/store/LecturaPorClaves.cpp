#include "store/LecturaPorClaves.h"

#include "platform/StringLiterals.h"

#include <QElapsedTimer>

#include <algorithm>

namespace zv {
namespace {

constexpr qint64 kClavesSeguidas = 50000;
constexpr std::size_t kFilasSeguidas = 4000;
constexpr qint64 kSinPausaMs = 40;

} // namespace

std::optional<RangoClaves> LeerRangoClaves(DatabaseEngine& motor, const QString& tabla,
                                           const QString& clave) {
    // Asked for together, the two would cost a pass over the table.
    const auto leer = [&](const QString& extremo) {
        return motor.Consultar(u"SELECT %1(%2) AS clave FROM %3"_s.arg(extremo, clave, tabla))
            .front();
    };
    const Row primera = leer(u"Min"_s);
    const Row ultima = leer(u"Max"_s);
    if (primera.EsNulo(0) || ultima.EsNulo(0)) {
        return std::nullopt;
    }
    return RangoClaves{primera.LeerLong(0), ultima.LeerLong(0)};
}

void RecorrerPorClaves(DatabaseEngine& motor, const RangoClaves& rango, const QString& sql,
                       const std::function<void(const Row&)>& visitar,
                       const std::function<void()>& pausa) {
    QElapsedTimer sinPausa;
    sinPausa.start();
    qint64 siguiente = 0;
    for (qint64 desde = rango.primera; desde <= rango.ultima; desde = siguiente) {
        siguiente = desde + kClavesSeguidas;
        std::size_t leidas = 0;
        motor.Recorrer(sql, {desde, std::min(rango.ultima, siguiente - 1)}, [&](const Row& fila) {
            visitar(fila);
            if (++leidas < kFilasSeguidas) {
                return true;
            }
            siguiente = qint64{fila.LeerLong(0)} + 1;
            return false;
        });
        if (sinPausa.elapsed() >= kSinPausaMs) {
            pausa();
            sinPausa.start();
        }
    }
}

} // namespace zv

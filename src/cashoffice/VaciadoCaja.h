// A collection box has been emptied: the device is told, and the money is filed as a movement. The
// period goes on.
#pragma once

#include "cashoffice/Caja.h"
#include "device/DeviceJournal.h"

namespace zv {

// What tells the two boxes apart.
struct CajonRecaudacion {
    qint32 device = 0; // number for EmptyCB
    TipoSaldo saldo = TipoSaldo::CajonesMonedas;
    QLatin1StringView nombre;  // in records and in the log
    QLatin1StringView palabra; // in messages
};

inline constexpr CajonRecaudacion kCajonMonedas{
    0, TipoSaldo::CajonesMonedas, QLatin1StringView("MONEDAS"), QLatin1StringView("monedas")};
inline constexpr CajonRecaudacion kCajonBilletes{
    1, TipoSaldo::CajonesBilletes, QLatin1StringView("BILLETES"), QLatin1StringView("billetes")};

class VaciadoCaja {
  public:
    explicit VaciadoCaja(Caja& caja)
        : caja_(caja), entorno_(caja.ElEntorno()), diario_(caja.ElEntorno().log) {}

    // A failure of the database goes up and leaves everything as it stands.
    void Vaciar(const CajonRecaudacion& cajon);

  private:
    void AvisarFallo(const CajonRecaudacion& cajon);
    void Archivar(const CajonRecaudacion& cajon, qint32 value);

    Caja& caja_;
    Entorno& entorno_;
    DeviceJournal diario_;
};

} // namespace zv

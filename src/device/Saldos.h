// The balances of the device, made from its lists of denominations and levels.
#pragma once

#include "device/DeviceClient.h"
#include "platform/Currency.h"
#include "ui/Dialogos.h"
#include "ui/Textos.h"

#include <functional>
#include <optional>
#include <vector>

namespace zv {

// Recycler: the money available for change. Cajones: the collection boxes.
enum class TipoSaldo {
    Todo = 0,
    Reciclador = 1,
    RecicladorMonedas = 2,
    RecicladorBilletes = 3,
    Cajones = 4,
    CajonesMonedas = 5,
    CajonesBilletes = 6
};

// How many pieces of a denomination (minor units) lie in one place of the device.
struct NivelPiezas {
    qint32 denominacion = 0;
    qint64 piezas = 0;
    bool operator==(const NivelPiezas&) const = default;
};

// What the last readings have told of each place; nothing where the last one failed.
struct NivelesDispositivo {
    std::vector<NivelPiezas> reciclador;
    std::vector<NivelPiezas> cajones;
    bool operator==(const NivelesDispositivo&) const = default;
};

// Anything above the coin of 2 main units is a note; the device is not asked.
inline constexpr qint32 kMayorMoneda = 200;

// A balance, and what the operator has to be told about it.
struct LecturaSaldo {
    Currency valor; // minor units
    // The device's own words, as they stood when it refused to tell the recycler's levels.
    std::optional<QString> mensaje;
    // Levels that make no sense; the balance is 0 then.
    std::optional<QString> caja;
};

class Saldos {
  public:
    // conectado: whether the device can be asked; without it every balance is 0.
    Saldos(DeviceClient& cliente, std::function<bool()> conectado, Dialogos& dialogos,
           const Textos& textos);

    // Minor units; a failed read makes it too small, levels without sense make it 0, and both are
    // shown at once. The tag is for trace alone.
    Currency SaldoPorTipo(const QString& etiqueta, TipoSaldo tipo);

    // The same in two steps, for callers who hold the write lock: nobody may be kept waiting there
    // by a dialog. Leer shows nothing; Avisar shows what there is to tell, once the lock is gone.
    LecturaSaldo Leer(TipoSaldo tipo);
    void Avisar(const LecturaSaldo& lectura);

    // The pieces behind the balances that have been read; the device is not asked.
    const NivelesDispositivo& UltimosNiveles() const { return niveles_; }

  private:
    Currency Sumar(TipoSaldo tipo, LecturaSaldo& lectura);

    DeviceClient& cliente_;
    std::function<bool()> conectado_;
    Dialogos& dialogos_;
    const Textos& textos_;
    NivelesDispositivo niveles_;
};

} // namespace zv

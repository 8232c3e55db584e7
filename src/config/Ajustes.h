// The settings, each told once: where it stands in the file, how its text is read, which field of
// the configuration holds it. Loading, saving, copying and the tests walk these tables.
#pragma once

#include "config/Configuracio.h"
#include "platform/RegistryNames.h"
#include "platform/StringLiterals.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <variant>

namespace zv::ajustes {

// The kinds, each with the field that takes the value.
struct Texto {
    QString Configuracio::*campo;
};
// A text whose default is the application folder.
struct TextoCarpeta {
    QString Configuracio::*campo;
};
// The mode. What is loaded or saved becomes ModoInicial too.
struct TextoModo {
    QString Configuracio::*campo;
};
struct Entero16 {
    qint16 Configuracio::*campo;
};
struct Byte {
    quint8 Configuracio::*campo;
};
// "0" is false, any other text true.
struct NoCero {
    bool Configuracio::*campo;
};
// The number 1 is true, any other number false.
struct Uno {
    bool Configuracio::*campo;
};

struct Ajuste {
    QLatin1StringView seccion;
    QLatin1StringView clave;
    std::variant<Texto, TextoCarpeta, TextoModo, Entero16, Byte, NoCero, Uno> tipo;
    QLatin1StringView defecto;
};

inline constexpr QLatin1StringView kZorvex("ZORVEX");
inline constexpr QLatin1StringView kMonitor("ZVMONITOR");
inline constexpr QLatin1StringView kBarcode("BARCODE");
inline constexpr QLatin1StringView kConector("CONECTOR");

// The main screen looks at it in the file, past the configuration.
inline constexpr Ajuste kModo{kMonitor, "MODO"_L1, TextoModo{&Configuracio::Modo}, "AUTO"_L1};

// In the order of the file.
inline constexpr std::array kTodos = {
    Ajuste{kZorvex, "IP"_L1, Texto{&Configuracio::IP}, ""_L1},
    Ajuste{kZorvex, "SUITEZV"_L1, TextoCarpeta{&Configuracio::SUITEZV}, ""_L1},
    kModo,
    Ajuste{kMonitor, "REFRESCO"_L1, Entero16{&Configuracio::REFRESCO}, "2"_L1},
    Ajuste{kMonitor, "MINIMIZADO"_L1, Byte{&Configuracio::MINIMIZADO}, "0"_L1},
    Ajuste{kMonitor, "BLOQUEARPAGOS"_L1, Byte{&Configuracio::BLOQUEARPAGOS}, "0"_L1},
    Ajuste{kMonitor, "PREGUNTARANULAR"_L1, Byte{&Configuracio::PREGUNTARANULAR}, "1"_L1},
    Ajuste{kMonitor, "SINIMPRESORA"_L1, Byte{&Configuracio::SINIMPRESORA}, "0"_L1},
    Ajuste{kMonitor, "PREGUNTARCTO"_L1, Byte{&Configuracio::PREGUNTARCTO}, "1"_L1},
    Ajuste{kMonitor, "BOTONACCESO"_L1, Byte{&Configuracio::BOTONACCESO}, "0"_L1},
    Ajuste{kMonitor, "PAGOSADMIN"_L1, Byte{&Configuracio::PAGOSADMIN}, "0"_L1},
    Ajuste{kMonitor, "SINHORA"_L1, Byte{&Configuracio::SINHORA}, "0"_L1},
    Ajuste{kMonitor, "COLID2"_L1, Byte{&Configuracio::COLID2}, "0"_L1},
    Ajuste{kMonitor, "COLIDCAJA"_L1, Byte{&Configuracio::COLIDCAJA}, "0"_L1},
    Ajuste{kMonitor, "COLVENDEDOR"_L1, Byte{&Configuracio::COLVENDEDOR}, "0"_L1},
    Ajuste{kMonitor, "COLTERMINAL"_L1, Byte{&Configuracio::COLTERMINAL}, "0"_L1},
    Ajuste{kMonitor, "COLFORMAPAGO"_L1, Byte{&Configuracio::COLFORMAPAGO}, "0"_L1},
    Ajuste{kBarcode, "BCEAN"_L1, Byte{&Configuracio::BCEAN}, "0"_L1},
    Ajuste{kBarcode, "BCTPRE"_L1, Uno{&Configuracio::BCTPRE}, "0"_L1},
    Ajuste{kBarcode, "BCTINI"_L1, Byte{&Configuracio::BCTINI}, "0"_L1},
    Ajuste{kBarcode, "BCTFIN"_L1, Byte{&Configuracio::BCTFIN}, "0"_L1},
    Ajuste{kBarcode, "BCIINI"_L1, Byte{&Configuracio::BCIINI}, "0"_L1},
    Ajuste{kBarcode, "BCIFIN"_L1, Byte{&Configuracio::BCIFIN}, "0"_L1},
    Ajuste{kBarcode, "BCDEC"_L1, Byte{&Configuracio::BCDEC}, "0"_L1},
    Ajuste{kConector, "ZVFastActive"_L1, NoCero{&Configuracio::zvFastActive}, "1"_L1},
    Ajuste{kConector, "ZVFastPort"_L1, Texto{&Configuracio::ZVFastPort}, "16501"_L1},
    Ajuste{kConector, "ZVConectorActive"_L1, NoCero{&Configuracio::ZVConectorActive}, "0"_L1},
    Ajuste{kConector, "ZVConectorPath"_L1, Texto{&Configuracio::ZVConectorPath}, ""_L1},
};

// The setting of that key. One that is not there does not compile.
consteval const Ajuste& De(std::string_view clave) {
    for (const Ajuste& ajuste : kTodos) {
        if (std::string_view(ajuste.clave.data()) == clave) {
            return ajuste;
        }
    }
    throw "there is no such setting";
}

// The passwords are in the registry; they are read and written between these two parts.
inline constexpr std::size_t kDelante = static_cast<std::size_t>(
    std::ranges::find(kTodos, std::string_view(kBarcode.data()),
                      [](const Ajuste& a) { return std::string_view(a.seccion.data()); }) -
    kTodos.begin());
inline constexpr auto kDelanteDePasswords = std::span(kTodos).first<kDelante>();
inline constexpr auto kDetrasDePasswords = std::span(kTodos).subspan<kDelante>();

struct Password {
    const RegistryName& nombre;
    QString Configuracio::*campo;
};

inline constexpr Password kAdmin{registry_name::kClaveAdmin, &Configuracio::CLAVE_ADMIN};
inline constexpr Password kAutorizado{registry_name::kClaveAutorizado,
                                      &Configuracio::CLAVE_AUTORIZADO};
inline constexpr Password kTecnico{registry_name::kClaveTecnico, &Configuracio::CLAVE_TECNICO};

// In the order of writing.
inline constexpr std::array kPasswords = {kAdmin, kAutorizado, kTecnico};

// The field as it is written to the file.
QString Valor(const Configuracio& cfg, const Ajuste& ajuste);
// Sets the field from a text of the file. Raises 13 or 6 for one that is no number of its type.
void Poner(Configuracio& cfg, const Ajuste& ajuste, const QString& texto,
           const FormatoRegional& formato);

} // namespace zv::ajustes

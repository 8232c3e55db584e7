// Keys of the settings file that hold a number, each with its section.
#pragma once

#include <array>

namespace zv::test {

struct ClaveNumerica {
    const char* seccion;
    const char* clave;
};

inline constexpr std::array<ClaveNumerica, 21> kClavesNumericas = {
    {{"ZVMONITOR", "REFRESCO"},
     {"ZVMONITOR", "MINIMIZADO"},
     {"ZVMONITOR", "BLOQUEARPAGOS"},
     {"ZVMONITOR", "PREGUNTARANULAR"},
     {"ZVMONITOR", "SINIMPRESORA"},
     {"ZVMONITOR", "PREGUNTARCTO"},
     {"ZVMONITOR", "BOTONACCESO"},
     {"ZVMONITOR", "PAGOSADMIN"},
     {"ZVMONITOR", "SINHORA"},
     {"ZVMONITOR", "COLID2"},
     {"ZVMONITOR", "COLIDCAJA"},
     {"ZVMONITOR", "COLVENDEDOR"},
     {"ZVMONITOR", "COLTERMINAL"},
     {"ZVMONITOR", "COLFORMAPAGO"},
     {"BARCODE", "BCEAN"},
     {"BARCODE", "BCTPRE"},
     {"BARCODE", "BCTINI"},
     {"BARCODE", "BCTFIN"},
     {"BARCODE", "BCIINI"},
     {"BARCODE", "BCIFIN"},
     {"BARCODE", "BCDEC"}}};

} // namespace zv::test

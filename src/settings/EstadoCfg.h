// What stands in the settings screen, apart from any widget, and the tables of its controls: which
// setting each of them shows.
#pragma once

#include "config/Ajustes.h"
#include "platform/StringLiterals.h"
#include "settings/Claves.h"

#include <QString>

#include <array>
#include <optional>

namespace zv {

// tbCfg(0) to tbCfg(3).
enum class CampoCfg { IP, Refresco, Ruta, Puerto };
inline constexpr std::array kCamposCfg = {CampoCfg::IP, CampoCfg::Refresco, CampoCfg::Ruta,
                                          CampoCfg::Puerto};

struct CampoAjuste {
    const Clave* rotulo;
    const ajustes::Ajuste* ajuste;
};
// By CampoCfg.
inline constexpr std::array kAjusteDeCampo = {
    CampoAjuste{&texto::DeCfgMonitor(u"lblIP"), &ajustes::De("IP")},
    CampoAjuste{&texto::DeCfgMonitor(u"lblRefresco"), &ajustes::De("REFRESCO")},
    CampoAjuste{&texto::DeCfgMonitor(u"lblRuta"), &ajustes::De("ZVConectorPath")},
    CampoAjuste{&texto::DeCfgMonitor(u"lblPuerto"), &ajustes::De("ZVFastPort")}};

// A setting that is on or off.
struct InterruptorAjuste {
    enum class Grupo { Personalizacion, Columnas, Conector };

    Grupo grupo;
    const Clave* rotulo;
    const ajustes::Ajuste* ajuste;
};
inline constexpr std::array kInterruptoresCfg = [] {
    using enum InterruptorAjuste::Grupo;
    using texto::DeCfgMonitor;
    return std::array{
        InterruptorAjuste{Personalizacion, &DeCfgMonitor(u"btnCfg_0"), &ajustes::De("MINIMIZADO")},
        InterruptorAjuste{Personalizacion, &DeCfgMonitor(u"btnCfg_1"), &ajustes::De("BOTONACCESO")},
        InterruptorAjuste{Personalizacion, &DeCfgMonitor(u"btnCfg_2"),
                          &ajustes::De("SINIMPRESORA")},
        InterruptorAjuste{Personalizacion, &DeCfgMonitor(u"btnCfg_3"),
                          &ajustes::De("BLOQUEARPAGOS")},
        InterruptorAjuste{Personalizacion, &DeCfgMonitor(u"btnCfg_5"),
                          &ajustes::De("PREGUNTARCTO")},
        InterruptorAjuste{Personalizacion, &DeCfgMonitor(u"btnCfg_6"),
                          &ajustes::De("PREGUNTARANULAR")},
        InterruptorAjuste{Columnas, &DeCfgMonitor(u"btnCol_1"), &ajustes::De("COLIDCAJA")},
        InterruptorAjuste{Columnas, &DeCfgMonitor(u"btnCol_2"), &ajustes::De("COLID2")},
        InterruptorAjuste{Columnas, &DeCfgMonitor(u"btnCol_3"), &ajustes::De("COLTERMINAL")},
        InterruptorAjuste{Columnas, &DeCfgMonitor(u"btnCol_4"), &ajustes::De("COLVENDEDOR")},
        InterruptorAjuste{Columnas, &DeCfgMonitor(u"btnCol_5"), &ajustes::De("COLFORMAPAGO")},
        InterruptorAjuste{Conector, &DeCfgMonitor(u"btnConector_0"), &ajustes::De("ZVFastActive")},
        InterruptorAjuste{Conector, &DeCfgMonitor(u"btnConector_1"),
                          &ajustes::De("ZVConectorActive")}};
}();
inline constexpr std::size_t kInterruptorFast = kInterruptoresCfg.size() - 2;
inline constexpr std::size_t kInterruptorConector = kInterruptoresCfg.size() - 1;

struct EstadoCfg {
    static constexpr int kNingunModo = -1;

    int modo = kNingunModo; // the pressed btnModo
    std::array<bool, kInterruptoresCfg.size()> pulsado{};
    std::array<QString, kCamposCfg.size()> tbCfg{QString(), u"5"_s, {}, {}};
    bool cambios = false;         // boton(1), the save button, is enabled: something is unsaved
    std::optional<CampoCfg> foco; // the field that takes the focus, once
    bool punteroEspera = false;
    // What is said beside the fields; empty for nothing.
    QString prueba; // how the last test of the device ended
    QString notaPuerto;
    QString notaRuta;
    QString aviso;

    const QString& Texto(CampoCfg campo) const { return tbCfg[static_cast<std::size_t>(campo)]; }
    // ZVFast and the connector: their fields are seen only then.
    bool FastPulsado() const { return pulsado[kInterruptorFast]; }
    bool ConectorPulsado() const { return pulsado[kInterruptorConector]; }
};

} // namespace zv

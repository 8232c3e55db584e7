#include "config/Ajustes.h"

#include "platform/Conversions.h"

#include <type_traits>

namespace zv::ajustes {

QString Valor(const Configuracio& cfg, const Ajuste& ajuste) {
    return std::visit(
        [&](auto tipo) -> QString {
            const auto& campo = cfg.*tipo.campo;
            if constexpr (std::is_same_v<decltype(campo), const QString&>) {
                return campo;
            } else {
                return QString::number(campo); // a flag is "1" or "0"
            }
        },
        ajuste.tipo);
}

void Poner(Configuracio& cfg, const Ajuste& ajuste, const QString& texto,
           const FormatoRegional& formato) {
    struct Lector {
        Configuracio& cfg;
        const QString& texto;
        const FormatoRegional& formato;

        void operator()(Texto t) const { cfg.*t.campo = texto; }
        void operator()(TextoCarpeta t) const { cfg.*t.campo = texto; }
        void operator()(TextoModo t) const { cfg.ModoInicial = cfg.*t.campo = texto; }
        void operator()(Entero16 t) const { cfg.*t.campo = AEntero16(texto, formato); }
        void operator()(Byte t) const { cfg.*t.campo = AByte(texto, formato); }
        void operator()(NoCero t) const { cfg.*t.campo = texto != "0"_L1; }
        void operator()(Uno t) const { cfg.*t.campo = ADoble(texto, formato) == 1.0; }
    };
    std::visit(Lector{cfg, texto, formato}, ajuste.tipo);
}

} // namespace zv::ajustes

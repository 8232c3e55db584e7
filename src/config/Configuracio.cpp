#include "config/Configuracio.h"

#include "config/Ajustes.h"
#include "platform/Files.h"

namespace zv {

Configuracio::Configuracio(const ModuloIni& ini, RegistryTree& registry, QString carpeta,
                           FormatoRegional formato)
    : ini_(ini), registry_(registry), carpeta_(std::move(carpeta)), formato_(std::move(formato)) {}

void Configuracio::LeerCfgIni(const QString& ruta, bool& existe) {
    // One reading for all keys. A file that cannot be read counts as one that is not there.
    const std::optional<IniDocument> leido = ini_.LeerTodo(ruta);
    const IniDocument documento = leido.value_or(IniDocument());
    const auto leer = [&](const ajustes::Ajuste& ajuste) {
        const bool carpeta = std::holds_alternative<ajustes::TextoCarpeta>(ajuste.tipo);
        const QString defecto = carpeta ? carpeta_ : QString(ajuste.defecto);
        ajustes::Poner(*this, ajuste,
                       ModuloIni::Valor(documento, ajuste.seccion, ajuste.clave, defecto),
                       formato_);
    };

    ModoAnterior.clear();
    std::ranges::for_each(ajustes::kDelanteDePasswords, leer);
    for (const ajustes::Password& password :
         {ajustes::kAdmin, ajustes::kTecnico, ajustes::kAutorizado}) {
        this->*password.campo = registry_.LeerValor(password.nombre, {});
    }
    std::ranges::for_each(ajustes::kDetrasDePasswords, leer);
    if (ZVConectorPath.isEmpty() && ZVConectorActive) {
        ZVConectorPath = registry_.LeerValor(registry_name::kConectorPath, {});
    }

    existe = leido && ExisteFichero(ruta);
}

void Configuracio::GuardarConfig(const QString& ruta) {
    const auto escribir = [&](const ajustes::Ajuste& ajuste) {
        // A failure is in the log by now; the other keys are still worth saving.
        ini_.EscribirIni(ruta, ajuste.seccion, ajuste.clave, ajustes::Valor(*this, ajuste));
        if (std::holds_alternative<ajustes::TextoModo>(ajuste.tipo)) {
            ModoInicial = Modo;
        }
    };

    std::ranges::for_each(ajustes::kDelanteDePasswords, escribir);
    const bool ninguna =
        CLAVE_ADMIN.isEmpty() && CLAVE_AUTORIZADO.isEmpty() && CLAVE_TECNICO.isEmpty();
    for (const ajustes::Password& password : ajustes::kPasswords) {
        if (ninguna) {
            registry_.BorrarValor(password.nombre);
        } else {
            registry_.GuardarValor(password.nombre, this->*password.campo);
        }
    }
    std::ranges::for_each(ajustes::kDetrasDePasswords, escribir);
}

void Configuracio::CopyFrom(const Configuracio& otra) {
    for (const ajustes::Ajuste& ajuste : ajustes::kTodos) {
        std::visit([&](auto tipo) { this->*tipo.campo = otra.*tipo.campo; }, ajuste.tipo);
    }
    for (const ajustes::Password& password : ajustes::kPasswords) {
        this->*password.campo = otra.*password.campo;
    }
    ModoInicial = otra.ModoInicial;
}

} // namespace zv

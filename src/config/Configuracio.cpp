#include "config/Configuracio.h"

#include "config/Ajustes.h"
#include "platform/Files.h"

#include <vector>

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
    // One writing for all keys, so that whoever reads the file, and a crash, find all of them or
    // none; only passwords that have changed stand between two. A failure is in the log by then,
    // and what is in force does not depend on it.
    std::vector<perfil::ValorIni> valores;
    valores.reserve(ajustes::kTodos.size());
    const auto reunir = [&](const ajustes::Ajuste& ajuste) {
        valores.push_back({ajuste.seccion, ajuste.clave, ajustes::Valor(*this, ajuste)});
    };
    std::ranges::for_each(ajustes::kDelanteDePasswords, reunir);
    ModoInicial = Modo;
    if (!PasswordsGuardadas()) {
        ini_.EscribirVarios(ruta, valores);
        valores.clear();
        GuardarPasswords();
    }
    std::ranges::for_each(ajustes::kDetrasDePasswords, reunir);
    ini_.EscribirVarios(ruta, valores);
}

bool Configuracio::SinPasswords() const {
    return CLAVE_ADMIN.isEmpty() && CLAVE_AUTORIZADO.isEmpty() && CLAVE_TECNICO.isEmpty();
}

bool Configuracio::PasswordsGuardadas() const {
    return std::ranges::all_of(ajustes::kPasswords, [&](const ajustes::Password& password) {
        // Whatever is not there reads as the default.
        const QString& clave = this->*password.campo;
        const QString otra = clave + u'x';
        return SinPasswords() ? registry_.LeerValor(password.nombre, clave) == clave &&
                                    registry_.LeerValor(password.nombre, otra) == otra
                              : registry_.LeerValor(password.nombre, otra) == clave;
    });
}

void Configuracio::GuardarPasswords() {
    for (const ajustes::Password& password : ajustes::kPasswords) {
        if (SinPasswords()) {
            registry_.BorrarValor(password.nombre);
        } else {
            registry_.GuardarValor(password.nombre, this->*password.campo);
        }
    }
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

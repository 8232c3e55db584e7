// INI access for the settings: the platform's private-profile rules, with the failures told to
// the operator or to the log.
#pragma once

#include "platform/PrivateProfile.h"
#include "ui/Dialogos.h"
#include "ui/Log.h"

#include <QString>

#include <optional>

namespace zv {

class ErrorEjecucion;

class ModuloIni {
  public:
    ModuloIni(Log& log, Dialogos& dialogos);

    // The value, at most 255 characters, or defecto when the key is absent. A failure is shown
    // and gives an empty text.
    QString LeerIni(const QString& fichero, const QString& seccion, const QString& clave,
                    const QString& defecto) const;
    // The whole file at once, for a reader of many keys; empty when it is not there. Nothing when
    // it cannot be read, which is shown.
    std::optional<IniDocument> LeerTodo(const QString& fichero) const;
    // LeerIni out of such a reading.
    static QString Valor(const IniDocument& documento, const QString& seccion, const QString& clave,
                         const QString& defecto);
    // False, with a log line, when the value could not be written.
    bool EscribirIni(const QString& fichero, const QString& seccion, const QString& clave,
                     const QString& valor) const;
    // Many values in one writing, all of them or none. False, with a log line for each that had to
    // be written, when they could not be.
    bool EscribirVarios(const QString& fichero, std::span<const perfil::ValorIni> valores) const;

  private:
    void ApuntarFallo(const ErrorEjecucion& e) const;
    void MostrarFallo(const ErrorEjecucion& e) const;

    Log& log_;
    Dialogos& dialogos_;
};

} // namespace zv

// INI access for the settings: the platform's private-profile rules, with the failures told to
// the operator or to the log.
#pragma once

#include "ui/Dialogos.h"
#include "ui/Log.h"

#include <QString>

namespace zv {

class ModuloIni {
  public:
    ModuloIni(Log& log, Dialogos& dialogos);

    // The value, at most 255 characters, or defecto when the key is absent. A failure is shown
    // and gives an empty text.
    QString LeerIni(const QString& fichero, const QString& seccion, const QString& clave,
                    const QString& defecto) const;
    // False, with a log line, when the value could not be written.
    bool EscribirIni(const QString& fichero, const QString& seccion, const QString& clave,
                     const QString& valor) const;

  private:
    Log& log_;
    Dialogos& dialogos_;
};

} // namespace zv

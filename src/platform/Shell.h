// The shell's verb "open": starts programs, opens files and addresses with what the desktop has
// for them. Whatever is started lives on when this program ends.
#pragma once

#include "platform/StringLiterals.h"

#include <QString>

namespace zv {

class Shell {
  public:
    virtual ~Shell() = default;
    // A program runs in carpetaTrabajo (empty: where this one runs), any other file goes to the
    // desktop's program for it. False if nothing could be started.
    virtual bool Abrir(const QString& ruta, const QString& carpetaTrabajo) = 0;
    virtual bool AbrirDireccion(const QString& url) = 0;
};

class ShellSistema final : public Shell {
  public:
    // abridor: the desktop's opener of files and addresses.
    explicit ShellSistema(QString abridor = u"xdg-open"_s);

    bool Abrir(const QString& ruta, const QString& carpetaTrabajo) override;
    bool AbrirDireccion(const QString& url) override;

  private:
    QString abridor_;
};

} // namespace zv

// The login on the screen.
#pragma once

#include "access/PantallaLogin.h"

#include <functional>

class QWidget;

namespace zv {

class DatabaseEngine;
class Dialogos;
class Textos;

class LoginPantalla final : public PantallaLogin {
  public:
    // padre gives the window over which the login comes up; it may give none. All that is handed in
    // must outlive this.
    LoginPantalla(DatabaseEngine& database, Dialogos& dialogos, const Textos& textos,
                  std::function<QWidget*()> padre = {});

    Identificado Identificar(const QString& lugar) override;
    // Lets a user change his own password. False when he has not.
    bool CambiarContrasena();

  private:
    DatabaseEngine& database_;
    Dialogos& dialogos_;
    const Textos& textos_;
    std::function<QWidget*()> padre_;
};

} // namespace zv

// The one port through which a screen opens another, or asks whether its user may go on. Screens
// answer it in the program, a script answers it in tests.
#pragma once

#include <QString>

namespace zv {

class Configuracio;

enum class Pantalla {
    Cobros,           // the register of charges
    Incidencias,      // the register of incidents
    Caja,             // the cash office
    Historial,        // the closes of the past, from within the cash office
    Configuracion,    // the settings
    CambioContrasena, // the login, to change one's own password
    Usuarios,         // the users, from within the settings
    Accesos,          // the register of accesses, from within the settings
    Balanza,          // the layout of the barcodes, from within the settings: AbrirBalanza
    BotonAcceso       // the floating button
};

class Pantallas {
  public:
    virtual ~Pantallas() = default;

    // False for a screen that the program does not have: what would open it is disabled.
    virtual bool Existe(Pantalla pantalla) const = 0;
    // Comes back when the screen has been left; the floating button stays. Nothing happens for a
    // screen that does not exist.
    virtual void Abrir(Pantalla pantalla) = 0;
    // The layout of the barcodes, edited in a configuration that is not yet the till's.
    virtual void AbrirBalanza(Configuracio& cfg) = 0;
    // True when the user may go on at this place, one of the names that the access log keeps. nivel
    // is the lowest rank that may: 0, 1 or 2. Asks who is there when that has to be known.
    virtual bool ValidarUsuari(qint16 nivel, const QString& lugar) = 0;
};

} // namespace zv

// Who works at the till, which places of the program he may enter, and the log of those entries.
#pragma once

#include "access/PantallaLogin.h"
#include "platform/Clock.h"
#include "store/DatabaseEngine.h"
#include "store/Firma.h"
#include "ui/Dialogos.h"
#include "ui/Log.h"
#include "ui/Textos.h"

#include <QString>

namespace zv {

// Failures of the database pass through all of its operations to the caller.
class Seguretat final : public Firma {
  public:
    // Everything must outlive this.
    Seguretat(DatabaseEngine& database, Log& log, Dialogos& dialogos, const Textos& textos,
              const Clock& reloj);

    // The login; without one nobody can identify himself.
    void PonerLogin(PantallaLogin& login) { login_ = &login; }

    // The operation being filed comes from the queue: its record is signed "ZVFast".
    void PonerUsuarioFast(bool fast) { UsuarioFast_ = fast; }
    bool UsuarioFast() const override { return UsuarioFast_; }
    // The kind of protection must be worked out again before its next use. Whoever changes the
    // table of users sets it.
    void PonerRecargar(bool recargar) { Recargar_ = recargar; }
    bool Recargar() const { return Recargar_; }

    // True when the caller may go on at this place, which demands a rank of nivel or higher. Asks
    // who is there each time that the kind of protection wants to know it.
    bool ValidarUsuari(qint16 nivel, const QString& lugar);
    // Notes the entry, unless there is no protection.
    void ApuntarAccess(const QString& lugar);
    // The last user who identified, or a default before anybody has; empty after a cancelled login.
    QString GetNom() const override { return Nom_; }
    // The kind of protection: 0 none, 1 with administrators alone (places of level 2 are open), 2
    // every place asks.
    qint32 GetTipoS();
    void BorrarNom() { Nom_.clear(); }

  private:
    void CargarTipo();
    Identificado Preguntar(const QString& lugar) const;

    DatabaseEngine& database_;
    Log& log_;
    Dialogos& dialogos_;
    const Textos& textos_;
    const Clock& reloj_;
    PantallaLogin* login_ = nullptr;

    bool UsuarioFast_ = false;
    bool Recargar_ = true;
    qint32 TipoS_ = 0;
    QString Nom_;
    qint16 Nivel_ = 0;
};

} // namespace zv

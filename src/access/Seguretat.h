// Who works at the till: the name that signs the records.
#pragma once

#include "store/Firma.h"

#include <QString>

namespace zv {

class Seguretat final : public Firma {
  public:
    // The operation being filed comes from the queue: its record is signed "ZVFast".
    void PonerUsuarioFast(bool fast) { usuarioFast_ = fast; }
    bool UsuarioFast() const override { return usuarioFast_; }

    // The last user who identified, empty for none.
    QString GetNom() const override { return nom_; }
    void BorrarNom() { nom_.clear(); }

  private:
    bool usuarioFast_ = false;
    QString nom_;
};

} // namespace zv

// Who works at the till: the name that signs the records.
#pragma once

#include <QString>

namespace zv {

class Seguretat {
  public:
    // The operation being filed comes from the queue: its record is signed "ZVFast".
    bool UsuarioFast = false;

    // The last user who identified, empty for none.
    QString GetNom() const { return nom_; }
    void BorrarNom() { nom_.clear(); }

  private:
    QString nom_;
};

} // namespace zv

// Who signs the records: the store writes them, but only the folder access knows the user.
#pragma once

#include <QString>

namespace zv {

class Firma {
  public:
    virtual ~Firma() = default;
    // True around the one filing step of a sale from the queue.
    virtual bool UsuarioFast() const = 0;
    // The user logged in, empty for none.
    virtual QString GetNom() const = 0;
};

} // namespace zv

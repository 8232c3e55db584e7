// Where the manual is read: the page that was installed with the program, in the language of its
// texts, or else the maker's address.
#pragma once

#include "ui/Textos.h"

#include <QString>

namespace zv {

class Manual {
  public:
    // carpetaPrograma: where the program's file stands. A build has its manual at the same place
    // relative to it as an installation.
    Manual(QString carpetaPrograma, const Textos& textos);

    // For the shell's verb "open". Looked for each time: the language may have changed.
    QString Direccion() const;

  private:
    QString carpetaPrograma_;
    const Textos& textos_;
};

} // namespace zv

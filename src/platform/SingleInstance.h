// One running program per application folder, by a locked file in it. The system releases the lock
// when the program ends, in whatever way.
//
// Whoever can open a file can lock it. So the file is for those who may write in the folder, as who
// runs the program must: another user of the till finds it locked, and a user who may only look at
// the folder cannot hold the program off.
#pragma once

#include "platform/FileDescriptor.h"

#include <QByteArray>
#include <QString>

namespace zv {

class SingleInstance {
  public:
    // carpeta: the application folder.
    explicit SingleInstance(const QString& carpeta);

    // True if another instance holds the folder. Otherwise this one holds it for as long as the
    // object lives. False too when the folder takes no lock file: nothing can be told then.
    bool OtraInstancia();

  private:
    FileDescriptor Abrir() const;
    bool CogidoPorOtro() const;
    void Reservar(int fichero) const;

    QByteArray carpeta_;
    QByteArray ruta_;
    FileDescriptor cerrojo_;
};

} // namespace zv

// Tells cheaply that nobody has written to the database: while the log beside it rests, asking
// SQLite would give the same answer.
#pragma once

#include "platform/CoarsePause.h"
#include "platform/FolderWatch.h"

#include <QByteArray>

#include <ctime>

namespace zv {

class WalFingerprint {
  public:
    WalFingerprint();

    // ruta: of the database file, absolute, as the file system names it.
    void Vigilar(const QByteArray& ruta);

    // True when SQLite has to be asked. A writer fills the log first and makes its commit seen
    // later, after a flush that may take long: a log written within the last seconds is never taken
    // for resting, and SQLite is asked every now and then whatever the log looks like.
    bool HayQuePreguntar();

  private:
    QByteArray ruta_;
    QList<QByteArray> carpeta_; // of the database; the log is made, written and deleted in it
    FolderWatch vigia_;
    CoarsePause pausa_;
    timespec modificado_{};
    bool asentada_ = false;
};

} // namespace zv

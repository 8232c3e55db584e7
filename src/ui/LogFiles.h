// The daily log files in the folder Debug: the general log and the fast link's. Nothing stays open
// between two lines, so that a line is on disk when the call returns and any program may read it.
#pragma once

#include "platform/Clock.h"
#include "ui/Log.h"

#include <QByteArray>
#include <QString>

namespace zv {

class Dialogos;

class LogFiles final : public Log {
  public:
    // carpeta: the program's folder. programa: name of the program file without its extension; it
    // begins the general log's name. version: "26.5.1". The clock must outlive this.
    LogFiles(const QString& carpeta, const QString& programa, const QString& version,
             const Clock& reloj);

    // Creates the folder when it is missing. Raises 61 for a full disk, 70 when it is not
    // permitted, 76 for a missing program folder, 75 for any other failure.
    void LogLinea(const QString& texto) override;
    // Never fails and never creates the folder: without it the line is lost.
    void LogFast(const QString& texto) override;

    // Deletes the files of both kinds whose name is of a day more than seven days ago. A failure
    // ends it and is shown; what has been deleted stays deleted.
    void LimpiarLogs(Dialogos& dialogos) const;

  private:
    void Borrar() const;
    // The date as yyyymmdd.
    static QByteArray Fecha(const QDate& fecha);

    QByteArray carpetaDebug_; // as the file system names it, with "/" at its end
    QString programa_;
    QByteArray programaEnDisco_;
    QByteArray version_;
    const Clock& reloj_;
};

} // namespace zv

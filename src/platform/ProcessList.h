// The process list: who runs under a name, and ending them.
#pragma once

#include "platform/StringLiterals.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace zv {

class ProcessList {
  public:
    virtual ~ProcessList() = default;
    // Running processes of exactly this file name (no folder), ignoring case. A script counts by
    // its own name.
    virtual int Contar(const QString& nombre) const = 0;
    // Asks every process to end whose name, trimmed and in lower case, contains nombre in lower
    // case; never this one. Errors are ignored; an empty name ends nobody.
    virtual void Terminar(const QString& nombre) = 0;
};

// The system's own list, read from /proc.
class SystemProcessList final : public ProcessList {
  public:
    using Fin = std::function<void(qint64 pid)>;

    // procRoot and fin are for tests; by default a process gets SIGTERM.
    explicit SystemProcessList(QString procRoot = u"/proc"_s, Fin fin = {});

    int Contar(const QString& nombre) const override;
    void Terminar(const QString& nombre) override;

  private:
    // Whether a file name is looked for.
    using Coincide = std::function<bool(const QString& nombre)>;

    QList<qint64> Pids(const Coincide& coincide) const;
    // The program's file and the name that the kernel keeps; carpeta: the process in procRoot.
    QStringList Nombres(const QString& carpeta) const;
    bool EsGuion(const QString& carpeta, const Coincide& coincide) const;

    QString procRoot_;
    Fin fin_;
};

} // namespace zv

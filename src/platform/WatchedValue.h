// A value of the registry that is asked for a thousand times a second.
#pragma once

#include "platform/CoarsePause.h"
#include "platform/FolderWatch.h"
#include "platform/RegistryTree.h"

namespace zv {

class WatchedValue {
  public:
    WatchedValue(const RegistryTree& registry, RegistryName nombre, QString defecto);

    // What RegistryTree::LeerValor answers. While nothing happens in the folders on the way to the
    // value, that is what it answered before, at the cost of one read; a change that the system
    // does not tell of shows 50 ms later.
    const QString& Leer();

  private:
    void Vigilar();

    const RegistryTree& registry_;
    RegistryName nombre_;
    QString defecto_;
    QList<QByteArray> carpetas_; // on the way to the value at the last look
    FolderWatch vigia_;
    CoarsePause pausa_;
    QString texto_;
};

} // namespace zv

// Tells whether anything has happened in some folders for less than a look at them costs: the
// system notes what happens, and asking is one read that finds no note. A change that the system
// does not see (by another machine, through a second name of a file, by mapped memory) is not told:
// whoever asks has to look by itself now and then.
#pragma once

#include "platform/FileDescriptor.h"

#include <QByteArray>
#include <QList>

#include <vector>

namespace zv {

class FolderWatch {
  public:
    // Watches these folders (paths in the system's encoding) and no others, and forgets what has
    // happened so far: call it before the look whose answer is to be kept. What it watches are
    // the folders that stand at these paths now; with none, or when one of them cannot be watched,
    // it watches nothing.
    void Vigilar(const QList<QByteArray>& carpetas);

    // True when an entry or a file in the folders, or a folder itself, has been made, written,
    // renamed, deleted or given other rights; from then on until the next Vigilar, and always
    // while nothing is watched.
    bool HaCambiado();

  private:
    void Vaciar() const;

    FileDescriptor avisos_;
    std::vector<int> vigiladas_; // the system's numbers of the folders
    bool puesta_ = false;
};

} // namespace zv

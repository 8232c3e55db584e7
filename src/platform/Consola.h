// What a command line program reads and says.
#pragma once

#include <QString>
#include <QStringList>

#include <cstdio>

namespace zv::consola {

// What stands behind the program's own name.
inline QStringList Argumentos(int argc, char** argv) {
    QStringList argumentos;
    for (int i = 1; i < argc; ++i) {
        argumentos.append(QString::fromLocal8Bit(argv[i]));
    }
    return argumentos;
}

// In UTF-8, and at once: whoever started the program may wait for it.
inline void Decir(std::FILE* donde, const QString& texto) {
    std::fputs(texto.toUtf8().constData(), donde);
    std::fflush(donde);
}

} // namespace zv::consola

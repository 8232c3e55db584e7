// Command line of ZVMonitor.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace zv {

struct Opciones {
    QString carpeta;            // application folder, without a separator at its end
    QString registro;           // folder of the registry tree
    QString region;             // empty: the machine's
    QString programa;           // file name of the program without its extension
    QString fastDireccion = {}; // where the fast link listens; empty: every interface
};

// Answer of a command line that asks for no start: text for the terminal and exit code.
struct RespuestaOpciones {
    QString texto;
    int codigo = 0;
};

// argumentos: with the program's path first. Either options to start with or an answer.
struct LecturaOpciones {
    std::optional<Opciones> opciones;
    RespuestaOpciones respuesta;
};
LecturaOpciones LeerOpciones(const QStringList& argumentos);

// "26.5.1": major, minor and revision of the program.
QString VersionPrograma();

} // namespace zv

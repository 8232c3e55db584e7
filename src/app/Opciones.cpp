// Reading of the command line.
#include "app/Opciones.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QHostAddress>

namespace zv {

QString VersionPrograma() {
    return QStringLiteral("%1.%2.%3")
        .arg(ZV_VERSION_MAJOR)
        .arg(ZV_VERSION_MINOR)
        .arg(ZV_VERSION_REVISION);
}

LecturaOpciones LeerOpciones(const QStringList& argumentos) {
    QCommandLineParser analizador;
    analizador.setApplicationDescription(
        QStringLiteral("Monitor de cobro entre el programa de venta y el reciclador Zorvex."));
    const QCommandLineOption carpeta(
        QStringLiteral("carpeta"),
        QStringLiteral("Carpeta de la aplicación (por omisión, la del programa)."),
        QStringLiteral("DIR"));
    const QCommandLineOption registro(
        QStringLiteral("registro"),
        QStringLiteral("Carpeta del registro (por omisión, <carpeta>/Registro)."),
        QStringLiteral("DIR"));
    const QCommandLineOption region(
        QStringLiteral("region"),
        QStringLiteral("Formato regional (por omisión, el de la máquina)."),
        QStringLiteral("es_ES"));
    const QCommandLineOption fastDireccion(
        QStringLiteral("fast-direccion"),
        QStringLiteral("Dirección IP en la que escucha el ZVFast (por omisión, todas)."),
        QStringLiteral("IP"));
    const QCommandLineOption version(QStringLiteral("version"),
                                     QStringLiteral("Muestra la versión y termina."));
    const QCommandLineOption ayuda({QStringLiteral("help"), QStringLiteral("h")},
                                   QStringLiteral("Muestra esta ayuda y termina."));
    analizador.addOptions({carpeta, registro, region, fastDireccion, version, ayuda});

    const auto responder = [](const QString& texto, int codigo) {
        return LecturaOpciones{std::nullopt, {texto, codigo}};
    };
    if (!analizador.parse(argumentos)) {
        return responder(analizador.errorText() + QLatin1Char('\n'), 2);
    }
    if (analizador.isSet(ayuda)) {
        return responder(analizador.helpText(), 0);
    }
    if (analizador.isSet(version)) {
        return responder(QStringLiteral("ZVMonitor ") + VersionPrograma() + QLatin1Char('\n'), 0);
    }
    if (!analizador.positionalArguments().isEmpty()) {
        return responder(QStringLiteral("Argumento desconocido: ") +
                             analizador.positionalArguments().constFirst() + QLatin1Char('\n'),
                         2);
    }

    const QFileInfo programa(argumentos.value(0));
    Opciones opciones;
    opciones.programa = programa.completeBaseName();
    opciones.carpeta =
        analizador.isSet(carpeta) ? analizador.value(carpeta) : programa.absolutePath();
    opciones.carpeta = QDir::cleanPath(QDir(opciones.carpeta).absolutePath());
    if (!QFileInfo(opciones.carpeta).isDir()) {
        return responder(
            QStringLiteral("No existe la carpeta ") + opciones.carpeta + QLatin1Char('\n'), 2);
    }
    opciones.registro = analizador.isSet(registro)
                            ? QDir::cleanPath(QDir(analizador.value(registro)).absolutePath())
                            : opciones.carpeta + QStringLiteral("/Registro");
    opciones.region = analizador.value(region);
    opciones.fastDireccion = analizador.value(fastDireccion);
    if (analizador.isSet(fastDireccion) && QHostAddress(opciones.fastDireccion).isNull()) {
        return responder(QStringLiteral("No es una dirección IP: ") + opciones.fastDireccion +
                             QLatin1Char('\n'),
                         2);
    }
    return {opciones, {}};
}

} // namespace zv

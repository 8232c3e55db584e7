#include "app/Opciones.h"

#include "platform/StringLiterals.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QHostAddress>

namespace zv {

QString VersionPrograma() {
    return u"%1.%2.%3"_s.arg(ZV_VERSION_MAJOR).arg(ZV_VERSION_MINOR).arg(ZV_VERSION_REVISION);
}

LecturaOpciones LeerOpciones(const QStringList& argumentos) {
    QCommandLineParser analizador;
    analizador.setApplicationDescription(
        u"Monitor de cobro entre el programa de venta y el reciclador Zorvex."_s);
    const QCommandLineOption carpeta(
        u"carpeta"_s, u"Carpeta de la aplicación (por omisión, la del programa)."_s, u"DIR"_s);
    const QCommandLineOption registro(
        u"registro"_s, u"Carpeta del registro (por omisión, <carpeta>/Registro)."_s, u"DIR"_s);
    const QCommandLineOption region(
        u"region"_s, u"Formato regional (por omisión, el de la máquina)."_s, u"es_ES"_s);
    const QCommandLineOption fastDireccion(
        u"fast-direccion"_s, u"Dirección IP en la que escucha el ZVFast (por omisión, todas)."_s,
        u"IP"_s);
    const QCommandLineOption version(u"version"_s, u"Muestra la versión y termina."_s);
    const QCommandLineOption ayuda({u"help"_s, u"h"_s}, u"Muestra esta ayuda y termina."_s);
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
        return responder(u"ZVMonitor "_s + VersionPrograma() + QLatin1Char('\n'), 0);
    }
    if (!analizador.positionalArguments().isEmpty()) {
        return responder(u"Argumento desconocido: "_s +
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
        return responder(u"No existe la carpeta "_s + opciones.carpeta + QLatin1Char('\n'), 2);
    }
    opciones.registro = analizador.isSet(registro)
                            ? QDir::cleanPath(QDir(analizador.value(registro)).absolutePath())
                            : opciones.carpeta + u"/Registro"_s;
    opciones.region = analizador.value(region);
    opciones.fastDireccion = analizador.value(fastDireccion);
    if (analizador.isSet(fastDireccion) && QHostAddress(opciones.fastDireccion).isNull()) {
        return responder(u"No es una dirección IP: "_s + opciones.fastDireccion + QLatin1Char('\n'),
                         2);
    }
    return {opciones, {}};
}

} // namespace zv

// Looks for the on-screen keyboards that desktops come with, the best known first.
#include "ui/TecladoPantalla.h"

#include <QProcess>
#include <QStandardPaths>

namespace zv {

QString BuscarTecladoPantalla(const QStringList& carpetas) {
    for (const char* nombre :
         {"osk", "onboard", "matchbox-keyboard", "florence", "kvkbd", "wvkbd-mobintl", "xvkbd"}) {
        QString ruta = QStandardPaths::findExecutable(QString::fromLatin1(nombre), carpetas);
        if (!ruta.isEmpty()) {
            return ruta;
        }
    }
    return {};
}

bool AbrirTecladoPantalla(const QStringList& carpetas) {
    const QString ruta = BuscarTecladoPantalla(carpetas);
    return !ruta.isEmpty() && QProcess::startDetached(ruta, {});
}

} // namespace zv

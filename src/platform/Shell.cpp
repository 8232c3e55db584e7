#include "platform/Shell.h"

#include <QFileInfo>
#include <QProcess>

namespace zv {
namespace {

bool Lanzar(const QString& programa, const QStringList& argumentos, const QString& carpeta) {
    QProcess proceso;
    proceso.setProgram(programa);
    proceso.setArguments(argumentos);
    proceso.setWorkingDirectory(carpeta);
    // What it writes has no place in this program's own output.
    proceso.setStandardInputFile(QProcess::nullDevice());
    proceso.setStandardOutputFile(QProcess::nullDevice());
    proceso.setStandardErrorFile(QProcess::nullDevice());
    return proceso.startDetached();
}

} // namespace

ShellSistema::ShellSistema(QString abridor) : abridor_(std::move(abridor)) {}

bool ShellSistema::Abrir(const QString& ruta, const QString& carpetaTrabajo) {
    const QFileInfo fichero(ruta);
    // A bare name is looked up in the path of the system, such as "onboard".
    const bool nombreSolo = !ruta.isEmpty() && !ruta.contains(u'/') && !fichero.exists();
    if (nombreSolo || (fichero.isFile() && fichero.isExecutable())) {
        return Lanzar(nombreSolo ? ruta : fichero.absoluteFilePath(), {}, carpetaTrabajo);
    }
    return fichero.exists() && Lanzar(abridor_, {fichero.absoluteFilePath()}, carpetaTrabajo);
}

bool ShellSistema::AbrirDireccion(const QString& url) {
    return !url.isEmpty() && Lanzar(abridor_, {url}, {});
}

} // namespace zv

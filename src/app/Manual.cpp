#include "app/Manual.h"

#include "app/Claves.h"
#include "platform/Files.h"
#include "platform/StringLiterals.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <utility>

namespace zv {

namespace {

// Page of the operating manuals.
const QString kDireccionManuales = u"https://zorvex.example/manuales"_s;

} // namespace

Manual::Manual(QString carpetaPrograma, const Textos& textos)
    : carpetaPrograma_(std::move(carpetaPrograma)), textos_(textos) {}

QString Manual::Direccion() const {
    const QDir carpeta(QDir::cleanPath(carpetaPrograma_ + u'/' + QString::fromUtf8(ZV_MANUAL)));
    // Only a page of that folder: a language file opens no other place of the machine.
    const QString pagina = QFileInfo(textos_.Traduce(texto::kPaginaManual)).fileName();
    const QString ruta = carpeta.filePath(pagina);
    return ExisteFichero(ruta) ? QUrl::fromLocalFile(ruta).toString(QUrl::FullyEncoded)
                               : kDireccionManuales;
}

} // namespace zv

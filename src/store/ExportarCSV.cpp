#include "store/ExportarCSV.h"

#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/StringLiterals.h"
#include "store/Claves.h"
#include "ui/Importes.h"
#include "ui/Rejilla.h"

#include <QFile>

namespace zv {
namespace {

constexpr qsizetype kNombreMaximo = 255; // bytes, by the file system

// A caption may hold what a file's name cannot.
QString NombreDeFichero(const QString& nombre, const QString& resto) {
    QString limpio = nombre;
    for (QChar& c : limpio) {
        if (c < u' ' || u"/\\:*?\"<>|"_s.contains(c)) {
            c = u'_';
        }
    }
    while (QFile::encodeName(limpio + resto).size() > kNombreMaximo) {
        limpio.chop(limpio.back().isLowSurrogate() ? 2 : 1);
    }
    return limpio + resto;
}

QByteArray TextoDe(const Rejilla& grid) {
    QByteArray contenido;
    QString linea;
    QString celda;
    for (int fila = 0; fila < grid.Filas(); ++fila) {
        linea.clear();
        for (int columna = 0; columna < grid.Columnas(); ++columna) {
            if (columna > 0) {
                linea += u';';
            }
            celda = grid.Texto(fila, columna);
            linea += QuitaEuro(celda);
        }
        linea += u"\r\n"_s;
        contenido += ACodePage(linea);
    }
    return contenido;
}

void Comprobar(int error, const QByteArray& ruta) {
    if (error != 0) {
        throw FalloDeFichero(error, ruta);
    }
}

} // namespace

void ExportarCSV(const Rejilla& grid, const QString& nombre, const QString& carpeta,
                 const Clock& reloj, Dialogos& dialogos, const Textos& textos) {
    const QByteArray destino = QFile::encodeName(carpeta + u"/exports"_s);
    Comprobar(CrearCarpeta(destino), destino);
    const QString sello = reloj.Ahora().toString(u"yyyyMMdd_HHmmss"_s);
    const QByteArray ruta =
        destino + '/' + QFile::encodeName(NombreDeFichero(nombre, u'_' + sello + u".csv"_s));
    Comprobar(ReemplazarFichero(ruta, TextoDe(grid)), ruta);
    dialogos.MostrarMensaje(textos.Traduce(texto::kExportarTitulo),
                            textos.Traduce(texto::kExportarHecho));
}

} // namespace zv

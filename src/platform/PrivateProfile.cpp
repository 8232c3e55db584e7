#include "platform/PrivateProfile.h"

#include "platform/CodePage.h"
#include "platform/ErrorEjecucion.h"
#include "platform/Files.h"
#include "platform/IniLines.h"

#include <QFile>

#include <algorithm>
#include <cerrno>

namespace zv::perfil {
namespace {

// Where a key stands, or where it would be put.
struct Sitio {
    bool haySeccion = false;
    bool hayClave = false;
    QString valor;         // as a reader gets it
    IniLines::Linea linea; // of the key
    QString delante;       // of its line, up to the value
    // Behind the section's last line that says something; without the section, behind the file's
    // last line.
    qsizetype final = 0;
    bool acabaEnLinea = true; // a line end stands before final
};

Sitio Buscar(IniLines& lineas, const QString& seccion, const QString& clave) {
    Sitio sitio;
    const auto quedaDetras = [&sitio](const IniLines::Linea& linea) {
        sitio.final = linea.siguiente;
        sitio.acabaEnLinea = linea.fin < linea.siguiente;
    };
    sitio.final = lineas.Principio();
    while (const auto linea = lineas.Siguiente()) {
        const QString texto = lineas.Texto(*linea);
        const EntradaIni entrada = AnalizarLineaIni(texto);
        if (entrada.kind == EntradaIni::Kind::Seccion) {
            if (sitio.haySeccion) {
                break; // only the first section of a name counts
            }
            sitio.haySeccion = MismoNombreIni(entrada.nombre, seccion);
            quedaDetras(*linea);
            continue;
        }
        if (!sitio.haySeccion || !SinBlancos(texto).isEmpty()) {
            quedaDetras(*linea);
        }
        if (sitio.haySeccion && entrada.kind == EntradaIni::Kind::Clave &&
            MismoNombreIni(entrada.nombre, clave)) {
            sitio.hayClave = true;
            sitio.valor = SinComillas(entrada.valor).toString();
            sitio.linea = *linea;
            sitio.delante = texto.first(entrada.valor.data() - texto.constData());
            break;
        }
    }
    return sitio;
}

// The bytes of an existing file; empty for one that is not there.
QByteArray Bytes(const QString& fichero, bool& existe) {
    QByteArray bytes;
    const int error = LeerFicheroEntero(QFile::encodeName(fichero), bytes);
    existe = error == 0;
    if (error != 0 && error != ENOENT && error != ENOTDIR) {
        throw errores::ErrorDeArchivo(fichero, TextoErrorSistema(error));
    }
    return bytes;
}

// One line's worth: a value can neither end its line nor begin a section.
QString UnaLinea(const QString& texto) {
    const auto* const fin = std::find_if(texto.cbegin(), texto.cend(), [](QChar c) {
        return c == u'\r' || c == u'\n' || c.isNull();
    });
    return texto.first(fin - texto.cbegin());
}

} // namespace

std::optional<QString> Leer(const QString& fichero, const QString& seccion, const QString& clave) {
    bool existe = false;
    const QByteArray bytes = Bytes(fichero, existe);
    IniLines lineas(bytes);
    const Sitio sitio = Buscar(lineas, seccion, clave);
    return sitio.hayClave ? std::optional(sitio.valor) : std::nullopt;
}

IniDocument LeerTodo(const QString& fichero) {
    bool existe = false;
    return IniDocument::Analizar(Bytes(fichero, existe));
}

namespace {

// The bytes of the file with one value set; false when it reads the same already.
bool Poner(QByteArray& bytes, const ValorIni& valor) {
    IniLines lineas(bytes);
    const Sitio sitio = Buscar(lineas, valor.seccion, valor.clave);
    const QString nuevo = UnaLinea(valor.valor);
    if (sitio.hayClave && SinComillas(SinBlancos(nuevo)) == sitio.valor) {
        return false;
    }

    const QByteArray salto = lineas.FinDeLinea();
    QByteArray trozo;
    qsizetype desde = 0;
    qsizetype hasta = 0;
    if (sitio.hayClave) {
        trozo = lineas.Codificar(sitio.delante + nuevo);
        desde = sitio.linea.inicio;
        hasta = sitio.linea.fin;
    } else {
        desde = sitio.final;
        // Half a character at the end of wide text goes.
        hasta = sitio.haySeccion ? desde : bytes.size();
        if (!sitio.acabaEnLinea) {
            trozo = salto;
        }
        if (!sitio.haySeccion) {
            trozo += lineas.Codificar(u'[' + valor.seccion + u']') + salto;
        }
        trozo += lineas.Codificar(valor.clave + u'=' + nuevo) + salto;
    }
    const bool dePagina = lineas.Encoding() == IniLines::Codificacion::CodePage;
    bytes.replace(desde, hasta - desde, trozo);
    if (dePagina && IniLines(bytes).Encoding() == IniLines::Codificacion::Utf8) {
        // By chance the text now looks like UTF-8: it is made that, and reads as before.
        bytes = DeCodePage(bytes).toUtf8();
    }
    return true;
}

} // namespace

void Escribir(const QString& fichero, const QString& seccion, const QString& clave,
              const QString& valor) {
    const ValorIni uno{seccion, clave, valor};
    qsizetype distintos = 0;
    EscribirVarios(fichero, std::span(&uno, 1), distintos);
}

void EscribirVarios(const QString& fichero, std::span<const ValorIni> valores,
                    qsizetype& distintos) {
    distintos = static_cast<qsizetype>(valores.size());
    bool existe = false;
    QByteArray bytes = Bytes(fichero, existe);
    distintos = std::count_if(valores.begin(), valores.end(),
                              [&bytes](const ValorIni& valor) { return Poner(bytes, valor); });
    if (distintos == 0) {
        return;
    }
    const int error = ReemplazarFichero(QFile::encodeName(fichero), bytes);
    if (error != 0) {
        throw errores::ErrorDeArchivo(fichero, TextoErrorSistema(error));
    }
}

} // namespace zv::perfil

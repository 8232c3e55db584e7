#include "ui/Imprimir.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "ui/Log.h"
#include "ui/Rejilla.h"

#include <QStringList>

#include <algorithm>
#include <vector>

namespace zv {
namespace {

const QString kFuente = u"Arial"_s;
constexpr int kCuerpo = 10; // points
constexpr int kTitulo = 12;

struct ColumnaImpresa {
    int numero = 0;
    int x = 0;     // twips, as ancho
    int ancho = 0; // its widest text and three blanks
    bool derecha = false;
};

FuenteImpresora Cuerpo(bool negrita) {
    return {kFuente, kCuerpo, negrita, false, false};
}

// A line break of another program's text would tear the row apart.
QString EnUnaLinea(const QString& texto) {
    QString linea = texto;
    linea.replace(u"\r\n"_s, u" "_s).replace(u'\r', u' ').replace(u'\n', u' ');
    return linea;
}

std::vector<ColumnaImpresa> ColumnasDe(const Rejilla& rejilla, const QString& omitidas) {
    const QStringList fuera = omitidas.split(u',');
    std::vector<ColumnaImpresa> columnas;
    columnas.reserve(static_cast<std::size_t>(rejilla.Columnas()));
    for (int i = 0; i < rejilla.Columnas(); ++i) {
        const Columna& columna = rejilla.ColumnaDe(i);
        const bool omitida = std::any_of(fuera.cbegin(), fuera.cend(), [i](const QString& texto) {
            bool numero = false;
            return texto.toInt(&numero) == i && numero;
        });
        if (columna.ancho != 0 && !omitida) {
            columnas.push_back({i, 0, 0, columna.alineacion.testFlag(Qt::AlignRight)});
        }
    }
    return columnas;
}

// Widths and places; answers where the last column ends.
int Medir(Impresora& impresora, const Rejilla& rejilla, std::vector<ColumnaImpresa>& columnas,
          int margenIzquierdo) {
    impresora.PonerFuente(Cuerpo(true));
    for (ColumnaImpresa& columna : columnas) {
        columna.ancho = impresora.AnchoTexto(EnUnaLinea(rejilla.Texto(0, columna.numero)));
    }
    impresora.PonerFuente(Cuerpo(false));
    const int blancos = impresora.AnchoTexto(u"   "_s);
    int x = margenIzquierdo;
    for (ColumnaImpresa& columna : columnas) {
        for (int fila = 1; fila < rejilla.Filas(); ++fila) {
            columna.ancho =
                std::max(columna.ancho,
                         impresora.AnchoTexto(EnUnaLinea(rejilla.Texto(fila, columna.numero))));
        }
        columna.ancho += blancos;
        columna.x = x;
        x += columna.ancho;
    }
    return x;
}

void Celda(Impresora& impresora, const QString& texto, int x, bool negrita) {
    ImprimirLinea(impresora, texto, false, x, -1, kFuente, kCuerpo, negrita, false, false);
}

void FinDeFila(Impresora& impresora) {
    ImprimirLinea(impresora, {}, true, -1, -1, kFuente, kCuerpo, false, false, false);
}

void Cabecera(Impresora& impresora, const Rejilla& rejilla,
              const std::vector<ColumnaImpresa>& columnas) {
    for (const ColumnaImpresa& columna : columnas) {
        Celda(impresora, EnUnaLinea(rejilla.Texto(0, columna.numero)), columna.x, true);
    }
    FinDeFila(impresora);
}

} // namespace

void ImprimirLinea(Impresora& impresora, const QString& texto, bool saltoLinea, int x, int y,
                   const QString& fuente, int tamaño, bool negrita, bool cursiva, bool subrayado) {
    impresora.PonerFuente({fuente, tamaño, negrita, cursiva, subrayado});
    if (x != -1) {
        impresora.PonerX(x);
    }
    if (y != -1) {
        impresora.PonerY(y);
    }
    impresora.Escribir(texto, saltoLinea);
}

void ImprimirRejilla(Impresora& impresora, const Rejilla& rejilla, const QString& titulo,
                     const QString& columnasOmitidas, int margenIzquierdo) {
    std::vector<ColumnaImpresa> columnas = ColumnasDe(rejilla, columnasOmitidas);
    // The end of the last column, not its begin: amounts stand at the right of it.
    if (Medir(impresora, rejilla, columnas, margenIzquierdo) > impresora.AnchoPagina()) {
        impresora.PonerOrientacion(Orientacion::Apaisada);
    }
    if (!titulo.isEmpty()) {
        ImprimirLinea(impresora, titulo, true, -1, -1, kFuente, kTitulo, true, false, false);
    }
    Cabecera(impresora, rejilla, columnas);
    for (int fila = 1; fila < rejilla.Filas(); ++fila) {
        if (!impresora.CabeLinea()) {
            impresora.NuevaPagina();
            Cabecera(impresora, rejilla, columnas);
        }
        for (const ColumnaImpresa& columna : columnas) {
            const QString texto = EnUnaLinea(rejilla.Texto(fila, columna.numero));
            const int x = columna.derecha ? columna.x + columna.ancho - impresora.AnchoTexto(texto)
                                          : columna.x;
            Celda(impresora, texto, x, false);
        }
        FinDeFila(impresora);
    }
}

void ImprimirSinAvisar(Impresora& impresora, Log& log, const std::function<void()>& imprimir) {
    try {
        imprimir();
    } catch (const ErrorEjecucion& e) {
        impresora.Abandonar();
        try {
            log.LogLinea(u">>> Error nº "_s + QString::number(e.Numero()) + u" al imprimir - "_s +
                         e.Descripcion());
        } catch (const ErrorEjecucion&) {
            // Nobody is told of a failed print; of a failed log neither, here.
            return;
        }
    }
}

} // namespace zv

// What the screens print: a line, and a grid, on the system's printer. The caller ends the
// document.
#pragma once

#include "platform/Impresora.h"

#include <functional>

namespace zv {

class Log;
class Rejilla;

// Prints texto in that font (tamaño in points). x and y set the position first, twips, unless -1.
void ImprimirLinea(Impresora& impresora, const QString& texto, bool saltoLinea, int x, int y,
                   const QString& fuente, int tamaño, bool negrita, bool cursiva, bool subrayado);

// Prints the grid in "Arial" 10, below titulo unless that is empty. Columns without a width are not
// printed, nor those whose numbers stand in columnasOmitidas, separated by ",". margenIzquierdo in
// twips. Turns the page when it is too narrow; the titles stand on each page.
void ImprimirRejilla(Impresora& impresora, const Rejilla& rejilla, const QString& titulo,
                     const QString& columnasOmitidas, int margenIzquierdo);

// Runs a print action. What fails in it drops the document and ends the action silently for the
// operator; the log has a line, when it can be written.
void ImprimirSinAvisar(Impresora& impresora, Log& log, const std::function<void()>& imprimir);

} // namespace zv

// Captions of a screen from the language file, and keystrokes sent to the control with the focus.
#pragma once

#include <QString>

class QWidget;

namespace zv {

class Textos;
struct Clave;

// Sets the window's title and the captions of its buttons and labels, by the screen's and the
// controls' object names. Check boxes, radio buttons, boxes, grids and controls without a name
// keep theirs. Called while the screen loads.
void TraducirPantalla(QWidget& pantalla, const Textos& textos);

// The title alone, for a screen whose code sets all captions each time it comes up.
void TraducirVentana(QWidget& pantalla, const Textos& textos);

// Caption of one label or button, ¬ shown as a line break.
void PonerCaption(QWidget& control, const QString& caption);
// The same from an entry of the texts, for a caption that changes while the screen lives.
void PonerTexto(QWidget& control, const Textos& textos, const Clave& clave);

// Sends characters and the keys {TAB}, {BACKSPACE} (or {BS}, {BKSP}), {ENTER}, {ESC}, {DELETE}
// (or {DEL}), {HOME}, {END}, {LEFT}, {RIGHT}, {UP}, {DOWN} to the control that has the focus;
// {x} sends the character x itself, so "{{}" is an opening brace. They have been handled when the
// call returns. Without a focus nothing happens.
void EnviaTeclas(const QString& teclas, bool esperar = false);

} // namespace zv

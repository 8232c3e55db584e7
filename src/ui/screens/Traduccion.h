// Captions of a screen from the language file, and keystrokes sent to the control with the focus.
#pragma once

#include <QString>

class QWidget;

namespace zv {

class Textos;
struct Clave;

// Names a control by the key of its text, and gives it the built-in caption.
void Rotular(QWidget& control, const Clave& clave);
// The same for one without a caption (a picture button, a box, a lamp): what it means, for reading
// aloud, and as a hint where it has one.
enum class Pista { No, Si };
void Nombrar(QWidget& control, const Clave& clave, Pista pista = Pista::No);

// Sets the window's title, and by the screen's and the controls' object names the captions of its
// buttons, labels and cards, and the meanings of controls without a caption. Captions of check
// boxes, radio buttons, boxes and grids, and controls without a name, keep theirs. Called while the
// screen loads, when all its controls stand.
void TraducirPantalla(QWidget& pantalla, const Textos& textos);
// The title alone, for a screen whose code sets all captions each time it comes up.
void TraducirVentana(QWidget& pantalla, const Textos& textos);

// Caption of one label, button or card, ¬ shown as a line break.
void PonerCaption(QWidget& control, const QString& caption);
// The same from an entry of the texts, for a caption that changes while the screen lives.
void PonerTexto(QWidget& control, const Textos& textos, const Clave& clave);

// Sends characters and the keys {TAB}, {BACKSPACE} (or {BS}, {BKSP}), {ENTER}, {ESC}, {DELETE}
// (or {DEL}), {HOME}, {END}, {LEFT}, {RIGHT}, {UP}, {DOWN} to the control that has the focus;
// {x} sends the character x itself, so "{{}" is an opening brace. They have been handled when the
// call returns. Without a focus nothing happens.
void EnviaTeclas(const QString& teclas, bool esperar = false);

} // namespace zv

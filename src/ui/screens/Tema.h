// The one place for colours, sizes, fonts and icons. Nothing is styled elsewhere: a screen names
// its controls, gives its buttons a role, and asks here for fonts and icons.
#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QString>
#include <QStringList>

class QApplication;
class QLabel;
class QLineEdit;
class QSize;
class QWidget;

namespace zv::tema {

// Accents of the system.
inline const QColor kAmbar(255, 190, 0);
inline const QColor kVerde(145, 207, 77);
inline const QColor kRojo(214, 48, 49);
inline const QColor kRojoOscuro(153, 27, 27);
inline const QColor kRojoTexto(200, 0, 0); // red text on the light body, 4.5:1 or better
// Surfaces.
inline const QColor kCabecera(31, 41, 55);
inline const QColor kBarra(55, 65, 81); // state bar, below the header
inline const QColor kCabeceraTexto(243, 244, 246);
inline const QColor kCuerpo(248, 250, 252);
inline const QColor kTexto(17, 24, 39);
inline const QColor kTextoTenue(75, 85, 99);
inline const QColor kTextoApagado(148, 163, 184); // of disabled controls
inline const QColor kBorde(203, 213, 225);
inline const QColor kBordeControl(118, 132, 153); // marks what can be touched: 3:1 or better
inline const QColor kPulsado(219, 227, 238);      // ground of what is pressed
inline const QColor kResalte(37, 99, 235);        // focus and selection
inline const QColor kFilaPar(238, 242, 247);      // every other row of a grid
inline const QColor kFilaActual(219, 234, 254);   // the marked row of a grid
inline const QColor kBotonApagado(226, 232, 240); // ground of a picture that does nothing now
inline const QColor kSombra(0, 0, 0, 200);        // beneath what floats
inline const QColor kFondoAnular(254, 226, 226);  // behind the picture that annuls

// Sizes in pixels at scale 1.
inline constexpr int kAltoCabecera = 57; // 855 twips
inline constexpr int kToqueMinimo = 44;
inline constexpr int kTeclaMinima = 64;
inline constexpr int kAltoFila = 48; // row of a grid

// 15 twips make a pixel at scale 1.
inline constexpr int TwipsAPixeles(int twips) {
    return twips / 15;
}

// How large a window of that size draws everything, 1 at 1024x768 and below, 1.5 at most.
double EscalaDe(const QSize& ventana);
// Pixels of scale 1 at another one.
int Px(int pixeles, double escala);
// Style sheet and letters of one window, and of all in it, at its own scale.
void PonerEscala(QWidget& ventana, double escala);

// What a button is for; decides its look. Without a role a QPushButton is Normal (filled while it
// is the default one) and a QToolButton is flat.
enum class Papel {
    Normal,
    Principal, // filled, whether it is the default or not
    Peligro,   // filled red: what cannot be undone
    Tecla,     // key of a keypad, at least 64 px
    Pie,       // footer: icon above caption, at least 64 px
    Cabecera,  // on the dark header; amber while checked
    Parte,     // one of several of which one is chosen: dark while checked
};
// Sets the role, and what follows from it for the control itself: sizes, icon size, focus policy.
void PonerPapel(QWidget& boton, Papel papel, double escala = 1);
// The same for the role that the button has already; nothing for one without a role.
void EscalarPapel(QWidget& boton, double escala);

// How loud a line of the screen speaks: ground and letters of a frame with labels.
enum class Tono {
    Callado,
    Marca,  // what the operator has chosen
    Aviso,  // what is missing
    Alarma, // nothing goes on before the operator does something
};
void PonerTono(QWidget& marco, Tono tono);

// Whether what stands in a box has been refused: red ground, or grey.
void PonerEstado(QLineEdit& caja, bool bueno);

// What a label says; decides its letters, which grow with its window.
enum class Letra {
    Texto, // what a dialog says
    Nota,  // small and faint, below what it explains
    Cifra, // an amount among others
    Total, // the amount of its screen
};
void PonerLetra(QLabel& rotulo, Letra letra);

// Fonts, style sheet and icon theme for the whole program; once, before the first window.
void Aplicar(QApplication& app);
// The style sheet that Aplicar sets.
QString HojaDeEstilo(double escala = 1);

QFont Fuente(int pixeles, bool negrita = false);
// Tabular figures, for amounts.
QFont FuenteImporte(int pixeles, bool negrita = true);

// An icon of the theme by its freedesktop name, in the colour given; colorMarcado is the colour
// while its button is checked (the same when it is not valid). Drawn here when the theme lacks it:
// never an empty icon.
QIcon Icono(const QString& nombre, const QColor& color = kTexto, const QColor& colorMarcado = {});
// The same from the icon folders given, such as "/usr/share/icons/breeze".
QIcon IconoDe(const QStringList& carpetas, const QString& nombre, const QColor& color,
              const QColor& colorMarcado = {});

// Folders of the icon theme on this machine, the user's own first.
QStringList CarpetasDeIconos();

// Colour of a label's text, for one that changes it while it is shown.
void PonerColorTexto(QWidget& rotulo, const QColor& color);

// Size of the letters of the buttons, or of a grid's headers, within a widget that grows with its
// window; 0 goes back to the theme's own.
void PonerLetra(QWidget& dentro, int pixeles);

// Replaces the line-break mark of captions, ¬, by a line break.
QString Rotulo(const QString& caption);

} // namespace zv::tema

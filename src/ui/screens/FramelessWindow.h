// Base of the borderless dialogs: a header that drags the window, a title, a close button, and a
// body that the screen fills. A control's object name is its name in the language file; a member
// of a control array is "boton_1".
#pragma once

#include <QDialog>
#include <QPoint>

#include <functional>

class QFrame;
class QHBoxLayout;
class QLabel;
class QToolButton;
class QVBoxLayout;

namespace zv {

class ZonaTexto;

// Puts a window above all others, or takes it down again. The window stays as it is otherwise: it
// is neither hidden nor created anew.
void VentanaEncima(QWidget& ventana, bool activar);

// The window that a dialog comes up over: what padre gives, unless that is not to be seen, for it
// would hide the dialog with it. None when padre is empty.
QWidget* PadreVisible(const std::function<QWidget*()>& padre);

// Right and lower edge of a control: left plus width, top plus height.
int BordeDerecho(const QWidget& control);
int BordeInferior(const QWidget& control);

// Moves a window by the controls it is given: pressed with a button of the mouse and drawn along.
class Arrastre final : public QObject {
    Q_OBJECT

  public:
    // puede, when given, is asked at each press.
    explicit Arrastre(QWidget& ventana, std::function<bool()> puede = {},
                      Qt::MouseButton boton = Qt::LeftButton);
    void Añadir(QWidget& asidero);
    // Where the window may stand, for the place to which it would be drawn.
    void PonerLimite(std::function<QPoint(const QPoint&)> limite) { limite_ = std::move(limite); }

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    QWidget& ventana_;
    std::function<bool()> puede_;
    const Qt::MouseButton boton_;
    std::function<QPoint(const QPoint&)> limite_;
    QPoint desde_; // pointer at the press, within the window
    bool activo_ = false;
};

class FramelessWindow : public QDialog {
    Q_OBJECT

  public:
    void setVisible(bool visible) override;

    // nombre: the screen's name, such as "frmCash". Escape, the close button and the window
    // system's close all call reject().
    FramelessWindow(const QString& nombre, QWidget* padre);

    void PonerTitulo(const QString& titulo);
    QString Titulo() const;

  protected:
    QFrame* frameCab() { return frameCab_; }
    QLabel* lbTitulo() { return lbTitulo_; }
    QToolButton* btnW(int) { return btnCerrar_; }
    QVBoxLayout* Cuerpo() { return cuerpo_; }
    // Shows a picture before the title, which drags the window too.
    QToolButton* PonerLogo(const QIcon& icono);

    // How much larger than at 1024x768 the window draws everything: that of the window it comes up
    // over, or of the screen.
    double Escala() const { return escala_; }
    int Px(int pixeles) const;
    // Another scale, for the window and for all in it that can grow.
    void Escalar(double escala);

    // Width in pixels that the header needs for its title on one line.
    int AnchoCabecera() const;
    // Gives the dialog its size, once all its controls and texts stand: the least width and height
    // in pixels, more where the header or the body needs it. A long text makes it wider before it
    // makes it high, and scrolls at last: whatever else the body holds stays in sight.
    void AjustarCuerpo(ZonaTexto& texto, const QSize& minimo);
    // A control at the right of the body, over its whole height, without the body's margins.
    void PonerAlLado(QWidget& control);

    // Brings the style sheet's fonts and margins to the controls, so that sizes can be asked for
    // before the window is shown.
    void Pulir();

    // Its place when it comes up: over the middle of the window it belongs to, or of the screen.
    virtual void Colocar();

    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

  private:
    void PonerMedidas();
    // Largest size in pixels that a dialog may take on its screen.
    QSize TamañoMaximo() const;
    // A title wider than the window takes a second line, one still longer a smaller type.
    void AjustarTitulo();

    QFrame* frameCab_;
    QLabel* lbTitulo_;
    QToolButton* btnCerrar_;
    QHBoxLayout* cabecera_;
    QHBoxLayout* centro_;
    QVBoxLayout* cuerpo_;
    QToolButton* btnLogo_ = nullptr;
    double escala_ = 1;
    Arrastre arrastre_;
};

} // namespace zv

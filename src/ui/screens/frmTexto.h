// Asks for one line of text.
#pragma once

#include "ui/screens/FramelessWindow.h"

#include <functional>

class QLineEdit;
class QPushButton;
class QToolButton;

namespace zv {

class Textos;
class ZonaTexto;

class frmTexto final : public FramelessWindow {
    Q_OBJECT

  public:
    // abrirTeclado starts the on-screen keyboard.
    frmTexto(const Textos& textos, std::function<void()> abrirTeclado, QWidget* padre = nullptr);

    void Preparar(const QString& titulo, const QString& texto, const QString& porDefecto);
    QString Texto() const;

    // 0 while open, 1 on accept, 2 on cancel.
    int resultado = 0;

    void reject() override;

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    void Terminar(int con);
    void AbrirTeclado();

    std::function<void()> abrirTeclado_;
    ZonaTexto* zonaTexto_;
    QLineEdit* tbTexto_;
    QPushButton* boton_[2];
    QToolButton* teclado_; // boton(2)
};

} // namespace zv

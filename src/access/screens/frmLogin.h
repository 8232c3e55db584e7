// Asks for a user and his password on a keypad, to identify him or to change the password.
#pragma once

#include "access/PantallaLogin.h"
#include "ui/screens/DeferredFailure.h"
#include "ui/screens/FramelessWindow.h"
#include "ui/screens/Tema.h"

#include <vector>

class QComboBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace zv {

class Dialogos;
class TecladoNumerico;
class Textos;
class Usuarios;
struct Clave;

class frmLogin final : public FramelessWindow {
    Q_OBJECT

  public:
    // Reads the list of users; a failure of that is the caller's. All must outlive this.
    frmLogin(Usuarios& usuarios, Dialogos& dialogos, const Textos& textos,
             QWidget* padre = nullptr);

    // One of the two before it is shown. devuelveDinero: a cancel gives money back, and is asked
    // for twice.
    void FormaIdentificacion(bool devuelveDinero);
    void FormaCambioContrasena();

    // After the dialog: who has identified himself. Raises the failure that ended it.
    Identificado Quien() const;

    void reject() override;

  private:
    void CrearLista(bool vacia);
    void CrearAzulejos(const QStringList& nombres);
    QLabel* CrearFila(const Clave& clave, QWidget& campo);
    QLineEdit* CrearPassword(const char* nombre);
    QPushButton* CrearOrden(const Clave& clave, tema::Papel papel, void (frmLogin::*al)());
    void Componer();
    void AjustarTamano();
    void AlElegir(int indice);
    void Entrar();
    void Comprobar();
    bool CambiarPassword();
    void Cancelar();
    void Mensaje(const Clave& titulo, const Clave& texto);
    void VaciarNuevas();

    Usuarios& usuarios_;
    Dialogos& dialogos_;
    const Textos& textos_;
    QVBoxLayout* izquierda_;
    QGridLayout* campos_;
    QComboBox* cmbNom_;
    QLineEdit* txtPassword_;
    QLineEdit* txtNewPassword_;
    QLineEdit* txtRepeatPassword_;
    QLabel* lblNewPassword_ = nullptr;
    QLabel* lblRepeatPassword_ = nullptr;
    QLabel* lbNota_;
    TecladoNumerico* teclado_;
    QPushButton* entrar_ = nullptr;   // teci(10)
    QPushButton* cancelar_ = nullptr; // teci(11)
    std::vector<QPushButton*> azulejos_;
    bool cambiaPassword_ = true;
    bool devuelveDinero_ = false;
    Identificado quien_;
    DeferredFailure fallo_;
};

} // namespace zv

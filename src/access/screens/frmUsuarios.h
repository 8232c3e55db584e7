// Creates, changes and deletes users.
#pragma once

#include "access/PantallaLogin.h"
#include "ui/screens/DeferredFailure.h"
#include "ui/screens/FramelessWindow.h"
#include "ui/screens/Tema.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace zv {

class Dialogos;
class Seguretat;
class SelectorTres;
class Textos;
class Usuarios;
struct Clave;

class frmUsuarios final : public FramelessWindow {
    Q_OBJECT

  public:
    // Reads the list of users; a failure of that is the caller's. All must outlive this.
    frmUsuarios(Usuarios& usuarios, Seguretat& seguretat, Dialogos& dialogos, const Textos& textos,
                QWidget* padre = nullptr);
    ~frmUsuarios() override;

    void done(int resultado) override;

    // After the dialog: raises the failure that ended it.
    void LanzarFallo() const { fallo_.Lanzar(); }

  private:
    void Callar();
    void CrearNombre();
    void CrearRoles();
    QPushButton* CrearOrden(const Clave& clave, tema::Papel papel, void (frmUsuarios::*al)());
    void Componer();
    // The row of the list that the table takes for this name; -1 for none.
    int Buscar(const QString& nombre) const;
    void AlEscribir();
    // Brings the row of a name of the list to the controls.
    void MostrarFila();
    void MostrarSiEsOtra();
    void btnAdmin(int indice);
    void Guardar();
    void ComprobarYGuardar();
    // What is wrong with what stands in the screen; none when it may be saved.
    const Clave* Reparo(QWidget*& donde);
    void Eliminar();
    void EliminarNombre();
    void Mensaje(const Clave& titulo, const Clave& texto);

    Usuarios& usuarios_;
    Seguretat& seguretat_;
    Dialogos& dialogos_;
    const Textos& textos_;
    QComboBox* cmbNom_;
    QLineEdit* txtPassword_;
    QLabel* lblUsuario_;
    QLabel* lblPassword_;
    SelectorTres* roles_ = nullptr; // btnAdmin(0) to btnAdmin(2)
    QLabel* lbRol_;
    QPushButton* btnSortir_ = nullptr;
    QPushButton* btnEliminar_ = nullptr;
    QPushButton* btnGuardar_ = nullptr;
    QString mostrada_; // name of the row that the controls show, empty for none
    bool hayMostrada_ = false;
    qint16 rol_ = 0; // chosen; kSinNivel for none
    DeferredFailure fallo_;
};

} // namespace zv

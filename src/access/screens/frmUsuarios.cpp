#include "access/screens/frmUsuarios.h"

#include "access/Claves.h"
#include "access/Seguretat.h"
#include "access/Usuarios.h"
#include "platform/StringLiterals.h"
#include "ui/screens/SelectorTres.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>

namespace zv {

namespace {

constexpr int kAnchoCampo = 330;
constexpr int kAnchoOrden = 190;
constexpr int kAltoOrden = 72;
constexpr int kVisibles = 8;
constexpr int kRoles = 3;
// Stands for the fast link in the records.
const QString kNombreReservado = u"ZVFAST"_s;

// The first characters of a text; one of two code units counts once.
QString Cortado(const QString& texto, int caracteres) {
    qsizetype fin = 0;
    for (int i = 0; i < caracteres && fin < texto.size(); ++i) {
        const bool doble = texto[fin].isHighSurrogate() && fin + 1 < texto.size();
        fin += doble ? 2 : 1;
    }
    return texto.left(fin);
}

} // namespace

frmUsuarios::frmUsuarios(Usuarios& usuarios, Seguretat& seguretat, Dialogos& dialogos,
                         const Textos& textos, QWidget* padre)
    : FramelessWindow(u"frmUsuarios"_s, padre), usuarios_(usuarios), seguretat_(seguretat),
      dialogos_(dialogos), textos_(textos), cmbNom_(new QComboBox(this)),
      txtPassword_(new QLineEdit(this)), lblUsuario_(new QLabel(this)),
      lblPassword_(new QLabel(this)), lbRol_(new QLabel(this)) {
    PonerTitulo(texto::kUsuariosTitulo.PorDefecto());
    Nombrar(*btnW(1), texto::kUsuariosTancar);
    Rotular(*lblUsuario_, texto::kUsuariosUsuario);
    Rotular(*lblPassword_, texto::kUsuariosPassword);
    CrearNombre();
    txtPassword_->setObjectName(u"txtPassword"_s);
    txtPassword_->setMaxLength(kMaximoPassword);
    CrearRoles();
    btnSortir_ = CrearOrden(texto::kUsuariosSortir, tema::Papel::Normal, &frmUsuarios::reject);
    btnEliminar_ =
        CrearOrden(texto::kUsuariosEliminar, tema::Papel::Peligro, &frmUsuarios::Eliminar);
    btnGuardar_ =
        CrearOrden(texto::kUsuariosGuardar, tema::Papel::Principal, &frmUsuarios::Guardar);
    btnEliminar_->setEnabled(false);
    Componer();
    TraducirPantalla(*this, textos_);
    lblUsuario_->setBuddy(cmbNom_);
    lblPassword_->setBuddy(txtPassword_);
    cmbNom_->setAccessibleName(lblUsuario_->text());
    cmbNom_->lineEdit()->setAccessibleName(lblUsuario_->text());
    txtPassword_->setAccessibleName(lblPassword_->text());
    if (seguretat_.GetTipoS() == 0) {
        roles_->Elegir(0);
    }
    btnAdmin(0);
    cmbNom_->setFocus();
    // Names that the list held already would all be laid out while it is polished.
    Pulir();
    cmbNom_->addItems(usuarios_.Nombres());
    cmbNom_->setCurrentIndex(-1);
    layout()->activate();
    setFixedSize(layout()->totalMinimumSize().expandedTo(QSize(AnchoCabecera(), 0)));
    VentanaEncima(*this, true);
}

frmUsuarios::~frmUsuarios() {
    Callar();
}

void frmUsuarios::done(int resultado) {
    Callar();
    FramelessWindow::done(resultado);
}

// The list tells of the end of its editing also when its window closes, and when it goes with the
// base class of this one.
void frmUsuarios::Callar() {
    cmbNom_->disconnect(this);
    cmbNom_->lineEdit()->disconnect(this);
}

void frmUsuarios::CrearNombre() {
    cmbNom_->setObjectName(u"cmbNom"_s);
    cmbNom_->setEditable(true);
    cmbNom_->setInsertPolicy(QComboBox::NoInsert);
    // A name is written as it is typed: nothing is added to it.
    cmbNom_->setCompleter(nullptr);
    cmbNom_->setMaxVisibleItems(kVisibles);
    cmbNom_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmbNom_->setMinimumWidth(Px(kAnchoCampo));
    txtPassword_->setMinimumWidth(Px(kAnchoCampo));
    connect(cmbNom_, &QComboBox::editTextChanged, this, &frmUsuarios::AlEscribir);
    connect(cmbNom_, &QComboBox::activated, this,
            [this] { fallo_.Hacer(*this, [this] { MostrarFila(); }); });
    connect(cmbNom_->lineEdit(), &QLineEdit::editingFinished, this, &frmUsuarios::MostrarSiEsOtra);
}

void frmUsuarios::CrearRoles() {
    roles_ = new SelectorTres(
        texto::kUsuariosRol,
        {texto::kUsuariosRoles[0], texto::kUsuariosRoles[1], texto::kUsuariosRoles[2]}, this);
    roles_->Escalar(Escala());
    connect(roles_, &SelectorTres::Elegido, this, &frmUsuarios::btnAdmin);
    lbRol_->setObjectName(u"lbRol"_s);
    tema::PonerLetra(*lbRol_, tema::Letra::Nota);
    lbRol_->setWordWrap(true);
}

QPushButton* frmUsuarios::CrearOrden(const Clave& clave, tema::Papel papel,
                                     void (frmUsuarios::*al)()) {
    auto* boton = new QPushButton(this);
    Rotular(*boton, clave);
    tema::PonerPapel(*boton, papel, Escala());
    boton->setAutoDefault(false);
    boton->setMinimumSize(Px(kAnchoOrden), Px(kAltoOrden));
    connect(boton, &QPushButton::clicked, this, al);
    return boton;
}

void frmUsuarios::Componer() {
    auto* campos = new QGridLayout;
    campos->setHorizontalSpacing(Px(20));
    campos->setVerticalSpacing(Px(6));
    campos->addWidget(lblUsuario_, 0, 0);
    campos->addWidget(lblPassword_, 0, 1);
    campos->addWidget(cmbNom_, 1, 0);
    campos->addWidget(txtPassword_, 1, 1);
    auto* papeles = new QVBoxLayout;
    papeles->setSpacing(Px(8));
    papeles->addWidget(roles_);
    papeles->addWidget(lbRol_);
    auto* ordenes = new QHBoxLayout;
    ordenes->addWidget(btnSortir_);
    ordenes->addStretch(1);
    ordenes->addWidget(btnEliminar_);
    ordenes->addSpacing(Px(20));
    ordenes->addWidget(btnGuardar_);
    Cuerpo()->addLayout(campos);
    Cuerpo()->addLayout(papeles);
    Cuerpo()->addLayout(ordenes);
    setTabOrder(cmbNom_, txtPassword_);
    setTabOrder(txtPassword_, roles_->Parte(0));
    setTabOrder(roles_->Parte(2), btnGuardar_);
    setTabOrder(btnGuardar_, btnEliminar_);
    setTabOrder(btnEliminar_, btnSortir_);
}

int frmUsuarios::Buscar(const QString& nombre) const {
    for (int i = 0; i < cmbNom_->count(); ++i) {
        if (Usuarios::MismoNombre(cmbNom_->itemText(i), nombre)) {
            return i;
        }
    }
    return -1;
}

void frmUsuarios::AlEscribir() {
    const QString texto = cmbNom_->currentText();
    if (const QString corto = Cortado(texto, kMaximoNombre); corto.size() < texto.size()) {
        // Comes back here.
        QLineEdit& caja = *cmbNom_->lineEdit();
        const int cursor = caja.cursorPosition();
        caja.setText(corto);
        caja.setCursorPosition(cursor);
        return;
    }
    if (hayMostrada_ && !Usuarios::MismoNombre(texto, mostrada_)) {
        hayMostrada_ = false;
    }
    if (!hayMostrada_) {
        // The password that stands there is another user's.
        txtPassword_->clear();
        btnEliminar_->setEnabled(Buscar(texto) >= 0);
    }
}

void frmUsuarios::MostrarSiEsOtra() {
    if (!hayMostrada_ && Buscar(cmbNom_->currentText()) >= 0) {
        fallo_.Hacer(*this, [this] { MostrarFila(); });
    }
}

void frmUsuarios::MostrarFila() {
    const QString nombre = cmbNom_->currentText();
    const std::optional<Usuario> usuario = usuarios_.Buscar(nombre);
    hayMostrada_ = usuario.has_value();
    btnEliminar_->setEnabled(hayMostrada_);
    if (!usuario) {
        // Another program has deleted him since the list was read.
        txtPassword_->clear();
        return;
    }
    mostrada_ = nombre;
    txtPassword_->setText(usuario->password);
    const bool conocido = usuario->rol >= 0 && usuario->rol < kRoles;
    roles_->Elegir(conocido ? usuario->rol : SelectorTres::kNinguna);
    btnAdmin(conocido ? usuario->rol : kSinNivel);
}

void frmUsuarios::btnAdmin(int indice) {
    rol_ = static_cast<qint16>(indice);
    lbRol_->setText(rol_ == kSinNivel ? QString()
                                      : textos_.Traduce(*texto::kUsuariosNotas[indice]));
}

// A second touch may come with the first one, which has ended the screen.
void frmUsuarios::Guardar() {
    if (!isVisible()) {
        return;
    }
    fallo_.Hacer(*this, [this] { ComprobarYGuardar(); });
}

void frmUsuarios::ComprobarYGuardar() {
    QWidget* donde = nullptr;
    if (const Clave* reparo = Reparo(donde)) {
        Mensaje(texto::kCrearUsuario, *reparo);
        donde->setFocus();
        return;
    }
    usuarios_.GuardarUsuario(cmbNom_->currentText(), txtPassword_->text(), rol_);
    seguretat_.PonerRecargar(true);
    accept();
}

const Clave* frmUsuarios::Reparo(QWidget*& donde) {
    donde = roles_->Parte(0);
    if (seguretat_.GetTipoS() == 0 && rol_ != kAdministrador) {
        return &texto::kPrimeroAdministrador;
    }
    const QString nombre = cmbNom_->currentText();
    const bool elegido =
        cmbNom_->currentIndex() >= 0 && cmbNom_->itemText(cmbNom_->currentIndex()) == nombre;
    donde = cmbNom_;
    if ((!elegido && nombre.isEmpty()) || nombre.trimmed().toUpper() == kNombreReservado) {
        return &texto::kNombreNoValido;
    }
    donde = txtPassword_;
    if (txtPassword_->text().size() < kMinimoPassword) {
        return &texto::kContraseñaCorta;
    }
    donde = roles_->Parte(0);
    return rol_ == kSinNivel ? &texto::kSinRol : nullptr;
}

void frmUsuarios::Eliminar() {
    if (!isVisible()) {
        return;
    }
    fallo_.Hacer(*this, [this] { EliminarNombre(); });
}

void frmUsuarios::EliminarNombre() {
    const QString nombre = cmbNom_->currentText();
    if (cmbNom_->count() == 1) {
        usuarios_.Eliminar(nombre);
        seguretat_.BorrarNom();
    } else if (usuarios_.OtrosAdministradores(nombre) > 0) {
        usuarios_.Eliminar(nombre);
    } else {
        Mensaje(texto::kErrorBorrarTitulo, texto::kNoBorrarAdministrador);
    }
    seguretat_.PonerRecargar(true);
    accept();
}

void frmUsuarios::Mensaje(const Clave& titulo, const Clave& texto) {
    dialogos_.MostrarMensaje(textos_.Traduce(titulo), textos_.Traduce(texto));
}

} // namespace zv

// Fields at the left, the keypad at the right. The shape that changes a password is 2000 twips
// higher than the other, and its keys stand as much lower, below a note.
#include "access/screens/frmLogin.h"

#include "access/Claves.h"
#include "access/Usuarios.h"
#include "platform/StringLiterals.h"
#include "ui/screens/TecladoNumerico.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace zv {

namespace {

constexpr int kDiferencia = tema::TwipsAPixeles(2000);
constexpr int kAnchoCampo = 260;
constexpr int kAnchoOrden = 200;
constexpr int kAltoOrden = 72;
constexpr int kMaximoAzulejos = 6;
constexpr int kMargenAzulejo = 32; // at both sides of its name, which is bold once chosen
constexpr int kColumnasAzulejos = 2;
// Names that the list shows at once.
constexpr int kVisibles = 8;

} // namespace

frmLogin::frmLogin(Usuarios& usuarios, Dialogos& dialogos, const Textos& textos, QWidget* padre)
    : FramelessWindow(u"frmLogin"_s, padre), usuarios_(usuarios), dialogos_(dialogos),
      textos_(textos), cmbNom_(new QComboBox(this)), txtPassword_(CrearPassword("txtPassword")),
      txtNewPassword_(CrearPassword("txtNewPassword")),
      txtRepeatPassword_(CrearPassword("txtRepeatPassword")), lbNota_(new QLabel(this)),
      teclado_(new TecladoNumerico(texto::kLoginRetroceso, {}, this)) {
    const QStringList nombres = usuarios_.Nombres();
    // Behind what can fail: nobody owns them before they stand in the window.
    izquierda_ = new QVBoxLayout;
    campos_ = new QGridLayout;
    PonerTitulo(texto::kLoginTitulo.PorDefecto());
    CrearLista(nombres.isEmpty());
    CrearFila(texto::kLoginUsuario, *cmbNom_);
    CrearFila(texto::kLoginPassword, *txtPassword_);
    lblNewPassword_ = CrearFila(texto::kLoginNewPassword, *txtNewPassword_);
    lblRepeatPassword_ = CrearFila(texto::kLoginRepeatPassword, *txtRepeatPassword_);
    Rotular(*lbNota_, texto::kLoginNota);
    tema::PonerLetra(*lbNota_, tema::Letra::Nota);
    lbNota_->setWordWrap(true);
    lbNota_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    cancelar_ = CrearOrden(texto::kLoginCancelar, tema::Papel::Normal, &frmLogin::Cancelar);
    entrar_ = CrearOrden(texto::kLoginEntrar, tema::Papel::Principal, &frmLogin::Entrar);
    entrar_->setDefault(true); // Enter in any field
    entrar_->setEnabled(false);
    Componer();
    TraducirPantalla(*this, textos_);
    // A field is called like its label.
    for (int fila = 0; fila < campos_->rowCount(); ++fila) {
        const auto* rotulo = qobject_cast<QLabel*>(campos_->itemAtPosition(fila, 0)->widget());
        campos_->itemAtPosition(fila, 1)->widget()->setAccessibleName(rotulo->text());
    }
    // Names that the list held already would all be laid out while it is polished.
    Pulir();
    cmbNom_->addItems(nombres);
    cmbNom_->setCurrentIndex(-1);
    CrearAzulejos(nombres);
    connect(cmbNom_, &QComboBox::currentIndexChanged, this, &frmLogin::AlElegir);
    // Also the one that was chosen already.
    connect(cmbNom_, &QComboBox::activated, this, [this] { txtPassword_->setFocus(); });
    txtPassword_->setFocus();
    VentanaEncima(*this, true);
}

void frmLogin::CrearLista(bool vacia) {
    cmbNom_->setObjectName(u"cmbNom"_s);
    cmbNom_->setMaxVisibleItems(kVisibles);
    // The width of the longest name is not looked for among a thousand.
    cmbNom_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmbNom_->setPlaceholderText(
        textos_.Traduce(vacia ? texto::kSinUsuarios : texto::kElijaUsuario));
    cmbNom_->setEnabled(!vacia);
}

QLabel* frmLogin::CrearFila(const Clave& clave, QWidget& campo) {
    auto* rotulo = new QLabel(this);
    Rotular(*rotulo, clave);
    rotulo->setBuddy(&campo);
    const int fila = campos_->count() / 2;
    campos_->addWidget(rotulo, fila, 0);
    campos_->addWidget(&campo, fila, 1);
    campo.setMinimumWidth(Px(kAnchoCampo));
    return rotulo;
}

QLineEdit* frmLogin::CrearPassword(const char* nombre) {
    auto* campo = new QLineEdit(this);
    campo->setObjectName(QString::fromLatin1(nombre));
    campo->setEchoMode(QLineEdit::Password);
    campo->setMaxLength(kMaximoPassword);
    return campo;
}

QPushButton* frmLogin::CrearOrden(const Clave& clave, tema::Papel papel, void (frmLogin::*al)()) {
    auto* boton = new QPushButton(this);
    Rotular(*boton, clave);
    tema::PonerPapel(*boton, papel, Escala());
    boton->setAutoDefault(false);
    boton->setMinimumSize(Px(kAnchoOrden), Px(kAltoOrden));
    connect(boton, &QPushButton::clicked, this, al);
    return boton;
}

void frmLogin::Componer() {
    campos_->setHorizontalSpacing(Px(12));
    campos_->setVerticalSpacing(Px(14));
    campos_->setColumnStretch(1, 1);
    izquierda_->setSpacing(Px(18));
    izquierda_->addLayout(campos_);
    izquierda_->addStretch(1);

    teclado_->Escalar(Escala());
    for (QLineEdit* campo : {txtPassword_, txtNewPassword_, txtRepeatPassword_}) {
        teclado_->Servir(*campo);
    }
    auto* derecha = new QVBoxLayout;
    derecha->setSpacing(0);
    derecha->addWidget(lbNota_);
    derecha->addWidget(teclado_, 1);
    lbNota_->setFixedHeight(Px(kDiferencia));

    auto* fila = new QHBoxLayout;
    fila->setSpacing(Px(28));
    fila->addLayout(izquierda_, 1);
    fila->addLayout(derecha);
    auto* ordenes = new QHBoxLayout;
    ordenes->addWidget(cancelar_);
    ordenes->addStretch(1);
    ordenes->addWidget(entrar_);
    Cuerpo()->addLayout(fila, 1);
    Cuerpo()->addLayout(ordenes);
    QWidget* anterior = cmbNom_;
    for (QWidget* cada : std::initializer_list<QWidget*>{txtPassword_, txtNewPassword_,
                                                         txtRepeatPassword_, entrar_, cancelar_}) {
        setTabOrder(anterior, cada);
        anterior = cada;
    }
}

// Few users can be touched at once, beside the list.
void frmLogin::CrearAzulejos(const QStringList& nombres) {
    if (nombres.isEmpty() || nombres.size() > kMaximoAzulejos) {
        return;
    }
    auto* rejilla = new QGridLayout;
    rejilla->setSpacing(teclado_->Hueco());
    const int ancho = (campos_->minimumSize().width() - teclado_->Hueco()) / kColumnasAzulejos;
    azulejos_.reserve(static_cast<std::size_t>(nombres.size()));
    for (int i = 0; i < static_cast<int>(nombres.size()); ++i) {
        auto* azulejo = new QPushButton(this);
        azulejo->setObjectName(u"btnUsuario_%1"_s.arg(i));
        azulejo->setAccessibleName(nombres[i]);
        azulejo->setCheckable(true);
        azulejo->setAutoExclusive(true);
        azulejo->setAutoDefault(false);
        // The next one to write into is the password.
        azulejo->setFocusPolicy(Qt::TabFocus);
        azulejo->setProperty("lugar", u"sola"_s);
        tema::PonerPapel(*azulejo, tema::Papel::Parte, Escala());
        azulejo->setFixedWidth(ancho);
        azulejo->ensurePolished();
        QString rotulo = azulejo->fontMetrics().elidedText(nombres[i], Qt::ElideRight,
                                                           ancho - Px(kMargenAzulejo));
        azulejo->setText(rotulo.replace(QLatin1Char('&'), QLatin1String("&&")));
        connect(azulejo, &QPushButton::clicked, this, [this, i] {
            cmbNom_->setCurrentIndex(i);
            txtPassword_->setFocus();
        });
        rejilla->addWidget(azulejo, i / kColumnasAzulejos, i % kColumnasAzulejos);
        azulejos_.push_back(azulejo);
    }
    rejilla->setColumnStretch(kColumnasAzulejos, 1);
    izquierda_->insertLayout(0, rejilla);
}

void frmLogin::AjustarTamano() {
    QWidget* const deCambio[] = {lblNewPassword_, txtNewPassword_, lblRepeatPassword_,
                                 txtRepeatPassword_, lbNota_};
    const auto minimo = [&](bool conNuevas) {
        for (QWidget* control : deCambio) {
            control->setVisible(conNuevas);
        }
        layout()->activate();
        return layout()->totalMinimumSize();
    };
    Pulir();
    const QSize alta = minimo(true);
    const QSize baja = minimo(false);
    // Both shapes of one width.
    const int ancho = std::max({alta.width(), baja.width(), AnchoCabecera()});
    const int alto = qMax(alta.height(), baja.height() + Px(kDiferencia));
    minimo(cambiaPassword_);
    setFixedSize(ancho, cambiaPassword_ ? alto : alto - Px(kDiferencia));
}

void frmLogin::FormaIdentificacion(bool devuelveDinero) {
    cambiaPassword_ = false;
    devuelveDinero_ = devuelveDinero;
    PonerTitulo(textos_.Traduce(texto::kIdentificacion));
    AjustarTamano();
}

void frmLogin::FormaCambioContrasena() {
    cambiaPassword_ = true;
    devuelveDinero_ = false;
    PonerTitulo(textos_.Traduce(texto::kModificarContraseña));
    AjustarTamano();
}

Identificado frmLogin::Quien() const {
    fallo_.Lanzar();
    return quien_;
}

void frmLogin::AlElegir(int indice) {
    entrar_->setEnabled(indice >= 0);
    if (indice >= 0 && static_cast<std::size_t>(indice) < azulejos_.size()) {
        azulejos_[static_cast<std::size_t>(indice)]->setChecked(true);
    }
}

// A second touch may come with the first one, which has ended the login.
void frmLogin::Entrar() {
    if (!isVisible()) {
        return;
    }
    fallo_.Hacer(*this, [this] { Comprobar(); });
}

void frmLogin::Comprobar() {
    if (cmbNom_->currentIndex() < 0) {
        return;
    }
    const std::optional<Usuario> usuario =
        usuarios_.Identificar(cmbNom_->currentText(), txtPassword_->text());
    if (!usuario) {
        Mensaje(texto::kContraseñaIncorrectaTitulo, texto::kContraseñaIncorrecta);
        // What was typed stays, and the next key replaces it.
        txtPassword_->setFocus();
        txtPassword_->selectAll();
        return;
    }
    quien_ = {usuario->nombre, usuario->rol};
    if (!cambiaPassword_ || CambiarPassword()) {
        done(QDialog::Accepted);
    }
}

bool frmLogin::CambiarPassword() {
    if (txtNewPassword_->text().size() < kMinimoPassword) {
        Mensaje(texto::kCrearUsuario, texto::kContraseñaCorta);
        VaciarNuevas();
        return false;
    }
    if (txtNewPassword_->text() != txtRepeatPassword_->text()) {
        Mensaje(texto::kContraseñaIncorrectaTitulo, texto::kContraseñasDistintas);
        VaciarNuevas();
        return false;
    }
    usuarios_.CambiarPassword(cmbNom_->currentText(), txtPassword_->text(),
                              txtNewPassword_->text());
    return true;
}

void frmLogin::VaciarNuevas() {
    txtNewPassword_->clear();
    txtRepeatPassword_->clear();
    txtNewPassword_->setFocus();
}

void frmLogin::Cancelar() {
    if (!isVisible()) {
        return;
    }
    if (devuelveDinero_ &&
        dialogos_.MostrarMensaje(textos_.Traduce(texto::kAnadirCambioAnulado),
                                 textos_.Traduce(texto::kAnadirCambioCancelado),
                                 EstiloMensaje::AceptarCancelar) != Respuesta::Aceptar) {
        return;
    }
    done(QDialog::Rejected);
}

void frmLogin::reject() {
    Cancelar();
}

void frmLogin::Mensaje(const Clave& titulo, const Clave& texto) {
    dialogos_.MostrarMensaje(textos_.Traduce(titulo), textos_.Traduce(texto));
}

} // namespace zv

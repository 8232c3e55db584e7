#include "barcode/screens/Balanza.h"

#include "barcode/Claves.h"
#include "barcode/screens/TiraCodigo.h"
#include "platform/Clock.h"
#include "platform/StringLiterals.h"
#include "ui/Importes.h"
#include "ui/Textos.h"
#include "ui/screens/EtiquetaTexto.h"
#include "ui/screens/Interruptor.h"
#include "ui/screens/Tarjeta.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace zv {

namespace {

constexpr int kSalir = 0;
constexpr int kAceptar = 1;
constexpr int kAnchoCampo = 96;
constexpr int kBajoTitulo = 6;
constexpr int kAltoTira = 72;
constexpr int kFilas = 5;
constexpr int kAltoFila = 52;     // two lines of a caption
constexpr std::size_t kCorto = 8; // "A cobrar"
constexpr int kCifrasTotal = 12;  // "123.456,78 €"
// Longer than any code that can be set, so that a scan that is too long is seen as what it is.
constexpr int kLargoPrueba = 512;

constexpr EntradaPie kPie[] = {
    {kSalir, &texto::kBalanzaSalir, u"go-previous", false, EntradaPie::Clase::Salir},
    {kAceptar, &texto::kBalanzaAceptar, u"dialog-ok-apply", true}};

std::optional<CamposBalanza::Tecla> TeclaDe(int tecla) {
    switch (tecla) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return CamposBalanza::Tecla::Enter;
    case Qt::Key_Down:
        return CamposBalanza::Tecla::Abajo;
    case Qt::Key_Up:
        return CamposBalanza::Tecla::Arriba;
    default:
        return std::nullopt;
    }
}

// A device that tells no minor units is no reason to end the screen.
QString Dinero(Currency importe, const Importes& importes) {
    try {
        return importes.FormatoImporteLargo(importe);
    } catch (const ErrorEjecucion&) {
        return importe.ATexto();
    }
}

} // namespace

Balanza::Balanza(const Importes& importes, std::function<int()> decimales, const Clock& reloj,
                 Dialogos& dialogos, const Textos& textos, QWidget* padre)
    : PantallaCompleta(u"Balanza"_s, kPie, padre), importes_(importes), reloj_(reloj),
      textos_(textos), campos_(importes.Formato(), std::move(decimales), dialogos, textos) {
    Rotular(*lbTitulo(), texto::kBalanzaTitulo);
    auto* arriba = new QHBoxLayout;
    arriba->setSpacing(12);
    arriba->addWidget(Campos(), 70);
    arriba->addWidget(Prueba(), 30);
    Cuerpo()->addLayout(arriba);
    Cuerpo()->addWidget(Codigo(), 1);
    TraducirPantalla(*this, textos_);
    NombrarCampos();
    TBal_[0]->setFocus();
}

void Balanza::CarregaConfig(Configuracio& cfg) {
    campos_.CarregaConfig(cfg);
    {
        const QSignalBlocker callado(Check1_);
        Check1_->setChecked(campos_.Check1());
    }
    Check1_->setAccessibleDescription(Check1_->Palabra());
    Seguir();
}

QLabel* Balanza::Rotulo(const Clave& clave, QWidget* padre) {
    auto* rotulo = new QLabel(padre);
    Rotular(*rotulo, clave);
    tema::PonerLetra(*rotulo, tema::Letra::Texto);
    rotulo->setWordWrap(clave.porDefecto.size() > kCorto); // in another language it may be long
    return rotulo;
}

QLineEdit* Balanza::CrearCampo(int indice, QWidget* padre) {
    auto* campo = new QLineEdit(padre);
    campo->setObjectName(u"TBal_%1"_s.arg(indice));
    campo->setFixedWidth(kAnchoCampo);
    campo->installEventFilter(this);
    connect(campo, &QLineEdit::textEdited, this, [this, indice](const QString& texto) {
        campos_.Escribir(indice, texto);
        SeguirPrueba(false);
    });
    rotulos_[indice] = Rotulo(*texto::kBalanzaCampos[indice], padre);
    rotulos_[indice]->setBuddy(campo);
    TBal_[indice] = campo;
    return campo;
}

void Balanza::LineaDesdeHasta(QGridLayout& rejilla, int fila, QWidget* titulo, int desde,
                              QWidget* padre) {
    if (titulo != nullptr) {
        rejilla.addWidget(titulo, fila, 0);
    }
    for (int i = 0; i < 2; ++i) {
        QLineEdit* campo = CrearCampo(desde + i, padre);
        rejilla.addWidget(rotulos_[desde + i], fila, 1 + 2 * i, Qt::AlignRight | Qt::AlignVCenter);
        rejilla.addWidget(campo, fila, 2 + 2 * i);
    }
}

Tarjeta* Balanza::Campos() {
    auto* tarjeta = new Tarjeta(texto::kBalanzaCamposTarjeta, this);
    auto* rejilla = new QGridLayout;
    rejilla->setContentsMargins(0, kBajoTitulo, 0, 0);
    rejilla->setHorizontalSpacing(10);
    rejilla->setVerticalSpacing(0);
    for (int fila = 0; fila < kFilas; ++fila) {
        rejilla->setRowMinimumHeight(fila, kAltoFila);
    }
    rejilla->setColumnStretch(0, 1);

    QLineEdit* largo = CrearCampo(0, tarjeta);
    rejilla->addWidget(rotulos_[0], 0, 0, 1, 4);
    rejilla->addWidget(largo, 0, 4);
    Check1_ = new Interruptor(texto::kBalanzaTicket, textos_, tarjeta);
    connect(Check1_, &Interruptor::toggled, this, [this](bool marcado) {
        campos_.Check1_Click(marcado);
        Seguir();
    });
    rejilla->addWidget(Check1_, 1, 0, 1, 5);
    LineaDesdeHasta(*rejilla, 2, nullptr, 1, tarjeta);
    lblValor_ = Rotulo(texto::kBalanzaValor, tarjeta);
    LineaDesdeHasta(*rejilla, 3, lblValor_, 3, tarjeta);
    QLineEdit* decimales = CrearCampo(5, tarjeta);
    rejilla->addWidget(rotulos_[5], 4, 0, 1, 4);
    rejilla->addWidget(decimales, 4, 4);
    tarjeta->Cuerpo()->addLayout(rejilla);
    tarjeta->Cuerpo()->addStretch(1);

    setTabOrder(TBal_[0], Check1_);
    setTabOrder(Check1_, TBal_[1]);
    for (int i = 1; i + 1 < CamposBalanza::kCuantos; ++i) {
        setTabOrder(TBal_[i], TBal_[i + 1]);
    }
    return tarjeta;
}

Tarjeta* Balanza::Prueba() {
    auto* tarjeta = new Tarjeta(texto::kBalanzaPruebaTarjeta, this);
    auto* rejilla = new QGridLayout;
    rejilla->setContentsMargins(0, kBajoTitulo, 0, 0);
    rejilla->setHorizontalSpacing(10);
    rejilla->setVerticalSpacing(8);
    rejilla->setColumnStretch(1, 1);
    tbPrueba_ = new QLineEdit(tarjeta);
    Nombrar(*tbPrueba_, texto::kBalanzaPrueba, Pista::Si);
    tbPrueba_->setMaxLength(kLargoPrueba);
    connect(tbPrueba_, &QLineEdit::textChanged, this, [this] { SeguirPrueba(false); });
    connect(tbPrueba_, &QLineEdit::returnPressed, this, [this] {
        SeguirPrueba(true);
        tbPrueba_->selectAll(); // the next scan takes its place
    });
    rejilla->addWidget(tbPrueba_, 0, 0, 1, 2);
    lblTicket_ = Rotulo(texto::kBalanzaLblTicket, tarjeta);
    lblImporte_ = Rotulo(texto::kBalanzaLblImporte, tarjeta);
    lbTicket_ = new QLabel(tarjeta);
    lbTicket_->setObjectName(u"lbTicket"_s);
    lbTicket_->setTextFormat(Qt::PlainText);
    // A long ticket does not push the window wider.
    lbTicket_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    lbImporte_ = new QLabel(tarjeta);
    lbImporte_->setObjectName(u"lbImporte"_s);
    tema::PonerLetra(*lbTicket_, tema::Letra::Cifra);
    tema::PonerLetra(*lbImporte_, tema::Letra::Total);
    rejilla->addWidget(lblTicket_, 1, 0);
    rejilla->addWidget(lbTicket_, 1, 1);
    rejilla->addWidget(lblImporte_, 2, 0);
    rejilla->addWidget(lbImporte_, 2, 1);
    lbNota_ = new EtiquetaTexto(tarjeta);
    lbNota_->setObjectName(texto::kBalanzaNota.Nombre());
    tema::PonerLetra(*lbNota_, tema::Letra::Texto);
    tarjeta->Cuerpo()->addLayout(rejilla);
    tarjeta->Cuerpo()->addWidget(lbNota_);
    tarjeta->Cuerpo()->addStretch(1);
    // What the colours of the strip below mean.
    auto* leyenda = new QGridLayout;
    leyenda->setHorizontalSpacing(8);
    leyenda->setColumnStretch(1, 1);
    const std::pair<ZonaCodigo, const Clave*> zonas[] = {
        {ZonaCodigo::Ticket, &texto::kBalanzaZonaTicket},
        {ZonaCodigo::Importe, &texto::kBalanzaZonaImporte}};
    for (const auto& [zona, clave] : zonas) {
        const int fila = leyenda->rowCount();
        leyenda->addWidget(new MuestraZona(zona, tarjeta), fila, 0);
        leyenda->addWidget(Rotulo(*clave, tarjeta), fila, 1);
    }
    tarjeta->Cuerpo()->addLayout(leyenda);
    return tarjeta;
}

Tarjeta* Balanza::Codigo() {
    auto* tarjeta = new Tarjeta(texto::kBalanzaCodigoTarjeta, this);
    auto* zona = new QScrollArea(tarjeta);
    zona->setWidgetResizable(true);
    zona->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    zona->setFocusPolicy(Qt::NoFocus);
    zona->setMinimumHeight(kAltoTira); // less than its bar would ask for
    zona->viewport()->setAutoFillBackground(false);
    tira_ = new TiraCodigo(zona);
    Nombrar(*tira_, texto::kBalanzaTira);
    zona->setWidget(tira_);
    tira_->setAutoFillBackground(false); // the card shows through
    tarjeta->Cuerpo()->addWidget(zona, 1);
    return tarjeta;
}

// A field read aloud says what it belongs to, as "De:" alone would not.
void Balanza::NombrarCampos() {
    const QString grupos[] = {
        {}, Check1_->text(), Check1_->text(), lblValor_->text(), lblValor_->text(), {}};
    for (int i = 0; i < CamposBalanza::kCuantos; ++i) {
        TBal_[i]->setAccessibleName((grupos[i] + u' ' + rotulos_[i]->text()).trimmed());
    }
}

bool Balanza::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress &&
        TeclaDeCampo(objeto, static_cast<QKeyEvent*>(evento)->key())) {
        return true;
    }
    return PantallaCompleta::eventFilter(objeto, evento);
}

bool Balanza::TeclaDeCampo(QObject* objeto, int tecla) {
    const auto sitio = std::find(TBal_.begin(), TBal_.end(), objeto);
    const auto cual = TeclaDe(tecla);
    if (sitio == TBal_.end() || !cual) {
        return false;
    }
    fallo_.Hacer(*this, [&] {
        const int foco =
            campos_.TBal_KeyDown(static_cast<int>(std::distance(TBal_.begin(), sitio)), *cual);
        Seguir();
        TBal_[foco]->setFocus();
        TBal_[foco]->selectAll();
    });
    return true;
}

void Balanza::Pulsado(int indice) {
    // A second touch may come with the first, when the screen has ended.
    if (indice == kAceptar && isVisible()) {
        fallo_.Hacer(*this, [this] { Aceptar(); });
    }
}

void Balanza::Aceptar() {
    const std::optional<int> rechazado = campos_.Aceptar();
    if (!rechazado) {
        accept();
        return;
    }
    Seguir();
    TBal_[*rechazado]->setFocus();
    TBal_[*rechazado]->selectAll();
}

void Balanza::Seguir() {
    for (int i = 0; i < CamposBalanza::kCuantos; ++i) {
        const CamposBalanza::Campo& campo = campos_.TBal(i);
        if (TBal_[i]->text() != campo.texto) {
            TBal_[i]->setText(campo.texto);
        }
        tema::PonerEstado(*TBal_[i], campo.bueno);
    }
    SeguirPrueba(false);
}

// entera: what stands in the box is all that was scanned.
void Balanza::SeguirPrueba(bool entera) {
    const LayoutCodigo layout = campos_.Layout();
    const QString codigo = tbPrueba_->text();
    tira_->Poner(layout, codigo);
    if (codigo.isEmpty()) {
        MostrarLectura(nullptr);
        lbNota_->setText(textos_.Traduce(texto::kBalanzaNota));
    } else if (!entera && codigo.size() != layout.largo) {
        MostrarLectura(nullptr);
        lbNota_->setText(
            u"%1 / %2"_s.arg(QString::number(codigo.size()), QString::number(layout.largo)));
    } else {
        const LecturaCodigo leido = LeerCodigo(codigo, layout, importes_, reloj_.Ahora());
        MostrarLectura(leido.reparo == nullptr ? &leido : nullptr);
        lbNota_->setText(leido.reparo == nullptr ? QString() : textos_.Traduce(*leido.reparo));
    }
}

// leido is null while nothing would be charged.
void Balanza::MostrarLectura(const LecturaCodigo* leido) {
    const bool hay = leido != nullptr;
    lbTicket_->setText(hay ? leido->ticket : QString());
    lbTicket_->setToolTip(lbTicket_->text());
    lbImporte_->setText(hay ? Dinero(leido->importe, importes_) : QString());
    // One that would push the window beyond its screen has smaller letters.
    tema::PonerLetra(*lbImporte_, lbImporte_->text().size() > kCifrasTotal ? tema::Letra::Cifra
                                                                           : tema::Letra::Total);
    lbTicket_->setAccessibleName((lblTicket_->text() + u' ' + lbTicket_->text()).trimmed());
    lbImporte_->setAccessibleName((lblImporte_->text() + u' ' + lbImporte_->text()).trimmed());
    for (QWidget* control : {lblTicket_, lbTicket_, lblImporte_, lbImporte_}) {
        control->setVisible(hay);
    }
}

} // namespace zv

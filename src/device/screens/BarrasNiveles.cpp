#include "device/screens/BarrasNiveles.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "ui/Importes.h"
#include "ui/screens/Rol.h"
#include "ui/screens/Tema.h"

#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>
#include <map>

namespace zv {

namespace {

constexpr int kLetra = 16;
constexpr int kAltoTexto = 20;
constexpr int kAnchoBarra = 22;
constexpr int kAnchoMinimo = 36;
constexpr int kAltoMinimo = 96;
constexpr int kMuestra = 16;

} // namespace

std::vector<NivelBarra> NivelesEnBarras(const NivelesDispositivo& niveles, bool billetes) {
    std::map<qint32, NivelBarra> porValor;
    const auto contar = [&](const std::vector<NivelPiezas>& lugar, qint64 NivelBarra::*cuanto) {
        for (const NivelPiezas& nivel : lugar) {
            if ((nivel.denominacion > kMayorMoneda) == billetes) {
                NivelBarra& barra = porValor[nivel.denominacion];
                barra.denominacion = nivel.denominacion;
                barra.*cuanto += nivel.piezas;
            }
        }
    };
    contar(niveles.reciclador, &NivelBarra::reciclador);
    contar(niveles.cajones, &NivelBarra::cajon);
    std::vector<NivelBarra> barras;
    barras.reserve(porValor.size());
    for (const auto& [valor, barra] : porValor) {
        barras.push_back(barra);
    }
    return barras;
}

qint64 MayorNivel(const std::vector<NivelBarra>& barras) {
    qint64 mayor = 0;
    for (const NivelBarra& barra : barras) {
        mayor = std::max(mayor, std::max(barra.reciclador, barra.cajon));
    }
    return mayor;
}

// Two columns side by side: the recycler with its count above it, the box behind.
class BarrasNiveles::Barra final : public QWidget {
  public:
    explicit Barra(QWidget* padre) : QWidget(padre) { PonerRol(*this, QAccessible::StaticText); }

    void Poner(const NivelBarra& nivel, const QString& valor, qint64 mayor) {
        nivel_ = nivel;
        valor_ = valor;
        mayor_ = std::max<qint64>(1, mayor);
        update();
    }
    void Escalar(double escala) {
        escala_ = escala;
        setMinimumSize(tema::Px(kAnchoMinimo, escala), tema::Px(kAltoMinimo, escala));
        update();
    }
    const NivelBarra& Nivel() const { return nivel_; }
    const QString& Valor() const { return valor_; }

  protected:
    void paintEvent(QPaintEvent* /*evento*/) override {
        QPainter p(this);
        const int texto = tema::Px(kAltoTexto, escala_);
        p.setFont(tema::FuenteImporte(tema::Px(kLetra, escala_), false));
        p.setPen(tema::kTextoTenue);
        p.drawText(QRect(0, height() - texto, width(), texto), Qt::AlignCenter, valor_);
        p.setPen(nivel_.reciclador == 0 && nivel_.cajon == 0 ? tema::kTextoTenue
                 : nivel_.reciclador == 0                    ? tema::kRojoTexto
                                                             : tema::kTexto);
        const int ancho = tema::Px(kAnchoBarra, escala_);
        const QRect sitio((width() - ancho) / 2, texto, ancho, height() - 2 * texto);
        p.drawText(QRect(0, 0, width(), texto), Qt::AlignCenter,
                   QString::number(nivel_.reciclador));
        Columna(p, sitio, sitio.left(), nivel_.reciclador, tema::kResalte);
        Columna(p, sitio, sitio.left() + ancho / 2, nivel_.cajon, tema::kAmbar);
    }

  private:
    void Columna(QPainter& p, const QRect& sitio, int x, qint64 piezas, const QColor& color) const {
        const int medio = sitio.width() / 2;
        // Something is never nothing: a single piece can be seen.
        const double parte = static_cast<double>(piezas) / static_cast<double>(mayor_);
        const int alto = piezas > 0 ? std::max(3, static_cast<int>(sitio.height() * parte)) : 0;
        p.fillRect(QRect(x, sitio.top(), medio - 1, sitio.height()), tema::kFilaPar);
        p.fillRect(QRect(x, sitio.bottom() + 1 - alto, medio - 1, alto), color);
    }

    NivelBarra nivel_;
    QString valor_;
    qint64 mayor_ = 1;
    double escala_ = 1;
};

BarrasNiveles::BarrasNiveles(const Importes& importes, QWidget* padre)
    : QWidget(padre), importes_(importes) {
    auto* fila = new QHBoxLayout(this);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->setSpacing(0);
}

// As short as it can be said: "0,50", "5".
QString BarrasNiveles::Denominacion(qint32 valor) const {
    try {
        const quint8 multiplicador = importes_.Multiplicador();
        if (multiplicador != 0 && valor % multiplicador == 0) {
            return QString::number(valor / multiplicador);
        }
        QString texto = importes_.FormatoImporte(valor);
        return QuitaEuro(texto).trimmed();
    } catch (const ErrorEjecucion&) {
        return QString::number(valor);
    }
}

void BarrasNiveles::Nombrar(Barra& barra) const {
    barra.setAccessibleName(u"%1: %2 %3, %4 %5"_s.arg(barra.Valor(), reciclador_)
                                .arg(barra.Nivel().reciclador)
                                .arg(cajon_)
                                .arg(barra.Nivel().cajon));
    barra.setToolTip(barra.accessibleName());
}

void BarrasNiveles::PonerPalabras(const QString& reciclador, const QString& cajon) {
    reciclador_ = reciclador;
    cajon_ = cajon;
    for (Barra* barra : barras_) {
        Nombrar(*barra);
    }
}

void BarrasNiveles::Poner(const std::vector<NivelBarra>& barras, qint64 mayor) {
    while (barras_.size() > barras.size()) {
        delete barras_.back();
        barras_.pop_back();
    }
    barras_.reserve(barras.size());
    while (barras_.size() < barras.size()) {
        auto* barra = new Barra(this);
        barra->Escalar(escala_);
        layout()->addWidget(barra);
        barra->show();
        barras_.push_back(barra);
    }
    for (std::size_t i = 0; i < barras.size(); ++i) {
        barras_[i]->Poner(barras[i], Denominacion(barras[i].denominacion), mayor);
        barras_[i]->setObjectName(u"nivel_%1"_s.arg(barras[i].denominacion));
        Nombrar(*barras_[i]);
    }
}

void BarrasNiveles::Escalar(double escala) {
    escala_ = escala;
    for (Barra* barra : barras_) {
        barra->Escalar(escala);
    }
}

MuestraNivel::MuestraNivel(Lugar lugar, QWidget* padre) : QWidget(padre), lugar_(lugar) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    Escalar(1);
}

void MuestraNivel::Escalar(double escala) {
    setFixedSize(tema::Px(kMuestra, escala), tema::Px(kMuestra, escala));
}

void MuestraNivel::paintEvent(QPaintEvent* /*evento*/) {
    QPainter(this).fillRect(rect(), lugar_ == Lugar::Reciclador ? tema::kResalte : tema::kAmbar);
}

} // namespace zv

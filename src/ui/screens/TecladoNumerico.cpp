#include "ui/screens/TecladoNumerico.h"

#include "platform/StringLiterals.h"
#include "ui/screens/BarraPie.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QEvent>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>

namespace zv {

namespace {

constexpr QSize kTecla(92, 72);
constexpr int kHueco = 8;
constexpr int kFilas = 4;
constexpr int kColumnas = 3;

// What each key writes, and where it stands: its number follows from neither.
struct Sitio {
    char cifra;
    int fila;
    int columna;
};
constexpr std::array<Sitio, 10> kSitios{{{'9', 0, 2},
                                         {'4', 1, 0},
                                         {'5', 1, 1},
                                         {'6', 1, 2},
                                         {'1', 2, 0},
                                         {'2', 2, 1},
                                         {'3', 2, 2},
                                         {'7', 0, 0},
                                         {'8', 0, 1},
                                         {'0', 3, 0}}};

void Marcar(QLineEdit& campo, bool activo) {
    campo.setProperty("activo", activo);
    campo.style()->unpolish(&campo);
    campo.style()->polish(&campo);
}

} // namespace

TecladoNumerico::TecladoNumerico(const Clave& retroceso, QChar decimal, QWidget* padre)
    : QWidget(padre), rejilla_(new QGridLayout(this)),
      retroceso_(new BotonPicto(tema::Papel::Tecla, this)) {
    rejilla_->setContentsMargins(0, 0, 0, 0);
    const bool conDecimal = !decimal.isNull();
    for (std::size_t i = 0; i < kSitios.size(); ++i) {
        const Sitio& sitio = kSitios[i];
        // Without a decimal key the 0 stands in the middle.
        const int columna = sitio.cifra == '0' && !conDecimal ? 1 : sitio.columna;
        rejilla_->addWidget(CrearTecla(static_cast<int>(i), QString(QLatin1Char(sitio.cifra))),
                            sitio.fila, columna);
    }
    if (conDecimal) {
        rejilla_->addWidget(CrearTecla(kDecimal, QString(decimal)), 3, 1);
    }
    Rotular(*retroceso_, retroceso);
    retroceso_->setIcon(tema::Icono(u"edit-clear"_s));
    retroceso_->setAutoRepeat(true);
    connect(retroceso_, &QToolButton::clicked, this, [this] { Teclear(u"{BACKSPACE}"_s); });
    rejilla_->addWidget(retroceso_, 3, conDecimal ? 2 : 0);
    Escalar(1);
}

QAbstractButton* TecladoNumerico::CrearTecla(int indice, const QString& tag) {
    auto* tecla = new QPushButton(tag, this);
    tecla->setObjectName(u"teci_%1"_s.arg(indice));
    tecla->setProperty("Tag", tag);
    tecla->setAutoDefault(false);
    connect(tecla, &QPushButton::clicked, this,
            [this, tecla] { Teclear(tecla->property("Tag").toString()); });
    teci_[static_cast<std::size_t>(indice)] = tecla;
    return tecla;
}

void TecladoNumerico::Escalar(double escala) {
    for (QAbstractButton* tecla : teci_) {
        if (tecla != nullptr) {
            tema::PonerPapel(*tecla, tema::Papel::Tecla, escala);
        }
    }
    tema::PonerPapel(*retroceso_, tema::Papel::Tecla, escala);
    rejilla_->setSpacing(tema::Px(kHueco, escala));
    for (int fila = 0; fila < kFilas; ++fila) {
        rejilla_->setRowMinimumHeight(fila, tema::Px(kTecla.height(), escala));
        rejilla_->setRowStretch(fila, 1);
    }
    for (int columna = 0; columna < kColumnas; ++columna) {
        rejilla_->setColumnMinimumWidth(columna, tema::Px(kTecla.width(), escala));
        rejilla_->setColumnStretch(columna, 1);
    }
}

int TecladoNumerico::Hueco() const {
    return rejilla_->spacing();
}

void TecladoNumerico::Servir(QLineEdit& campo) {
    campos_.append(&campo);
    campo.installEventFilter(this);
    if (!activo_ || campo.hasFocus()) {
        Activar(campo);
    }
}

QLineEdit* TecladoNumerico::CampoActivo() const {
    const auto sirve = [](const QLineEdit* campo) {
        return campo != nullptr && campo->isVisibleTo(campo->window()) && campo->isEnabled();
    };
    if (sirve(activo_)) {
        return activo_;
    }
    for (const QPointer<QLineEdit>& campo : campos_) {
        if (sirve(campo)) {
            return campo;
        }
    }
    return nullptr;
}

void TecladoNumerico::Activar(QLineEdit& campo) {
    if (activo_ == &campo) {
        return;
    }
    if (activo_) {
        Marcar(*activo_, false);
    }
    activo_ = &campo;
    Marcar(campo, true);
}

void TecladoNumerico::Teclear(const QString& teclas) {
    if (QLineEdit* campo = CampoActivo()) {
        campo->setFocus();
        EnviaTeclas(teclas);
    }
}

bool TecladoNumerico::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::FocusIn) {
        for (const QPointer<QLineEdit>& campo : campos_) {
            if (campo == objeto) {
                Activar(*campo);
            }
        }
    }
    return QWidget::eventFilter(objeto, evento);
}

} // namespace zv

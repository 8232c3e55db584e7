#include "ui/screens/VistaRejilla.h"

#include "platform/StringLiterals.h"
#include "ui/screens/Tema.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyleHints>

#include <algorithm>
#include <utility>

namespace zv {

namespace {

constexpr int kAltoTitulos = 44;
constexpr int kLetraTitulos = 14;

} // namespace

VistaRejilla::VistaRejilla(Rejilla& rejilla, const QString& nombre, QWidget* padre)
    : QTableView(padre), rejilla_(rejilla), modelo_(rejilla), delegado_(rejilla) {
    setObjectName(nombre);
    // The keyboard belongs to the screen.
    setFocusPolicy(Qt::NoFocus);
    // Nothing is ever left selected: what is chosen over the accessibility bus, whose cells can do
    // nothing else, counts as touched.
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setShowGrid(false);
    setFrameShape(QFrame::NoFrame);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView* titulos = horizontalHeader();
    titulos->setSectionResizeMode(QHeaderView::Fixed);
    titulos->setMinimumSectionSize(0);
    titulos->setHighlightSections(false);
    titulos->setSectionsClickable(false);
    titulos->viewport()->installEventFilter(this);
    Escalar(1);

    setModel(&modelo_);
    setItemDelegate(&delegado_);
    PonerAnchos();
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& elegidas) { PulsarElegidas(elegidas); });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int valor) {
        if (!siguiendo_) {
            rejilla_.PonerFilaSuperior(valor + 1);
            Q_EMIT Desplazada();
        }
    });
    rejilla_.AlCambiar([this](const Rejilla::Cambio& cambio) {
        modelo_.Seguir(cambio);
        if (cambio.columnas) {
            PonerAnchos();
        }
    });
    rejilla_.AlMover([this] { SeguirPosicion(); });
}

VistaRejilla::~VistaRejilla() {
    rejilla_.AlCambiar({});
    rejilla_.AlMover({});
    // Model and delegate are destroyed before the base class, which would use them once more.
    setItemDelegate(nullptr);
    setModel(nullptr);
}

void VistaRejilla::PonerImagen(Imagen imagen, const QAbstractButton& boton, const QColor& fondo) {
    delegado_.PonerImagen(imagen, boton, fondo);
    viewport()->update();
}

void VistaRejilla::HabilitarImagenes(int columna, bool habilitadas) {
    if (delegado_.EstaApagada(columna) == habilitadas) {
        delegado_.PonerApagada(columna, !habilitadas);
        viewport()->update();
    }
}

void VistaRejilla::SenalarFilaActual() {
    señalaActual_ = true;
    delegado_.SenalarFilaActual();
}

void VistaRejilla::DesplazarDeLado() {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
}

void VistaRejilla::Escalar(double escala) {
    const auto px = [escala](int pixeles) { return qRound(pixeles * escala); };
    verticalHeader()->setDefaultSectionSize(px(tema::kAltoFila));
    horizontalHeader()->setFixedHeight(px(kAltoTitulos));
    tema::PonerLetra(*this, escala > 1 ? px(kLetraTitulos) : 0);
}

int VistaRejilla::AltoFila() const {
    return verticalHeader()->defaultSectionSize();
}

int VistaRejilla::AnchoBarra() const {
    return verticalScrollBar()->sizeHint().width();
}

void VistaRejilla::PonerAnchos() {
    // Edges are rounded, not widths: the columns together fill the grid.
    int twips = 0;
    for (int columna = 0; columna < rejilla_.Columnas(); ++columna) {
        const int izquierda = tema::TwipsAPixeles(twips);
        twips += rejilla_.ColumnaDe(columna).ancho;
        const int ancho = tema::TwipsAPixeles(twips) - izquierda;
        setColumnHidden(columna, ancho == 0);
        if (ancho != 0) {
            setColumnWidth(columna, ancho);
        }
    }
}

void VistaRejilla::SeguirPosicion() {
    const QScopedValueRollback siguiendo(siguiendo_, true);
    const int valor = rejilla_.FilaSuperior() - 1;
    // The bar ends where the last page is full, unless keys or pages have gone further.
    verticalScrollBar()->setMaximum(std::max(ultimaPagina_, valor));
    verticalScrollBar()->setValue(valor);
    // At the end of its bar the table shows the last row at the bottom, not the asked one on top.
    const int antes = verticalHeader()->offset();
    verticalHeader()->setOffsetToSectionPosition(valor);
    if (señalaActual_ || verticalHeader()->offset() != antes) {
        viewport()->update();
    }
}

void VistaRejilla::updateGeometries() {
    {
        // The base class moves the bar back to where the last page is full; the operator has not
        // scrolled then.
        const QScopedValueRollback siguiendo(siguiendo_, true);
        QTableView::updateGeometries();
    }
    ultimaPagina_ = verticalScrollBar()->maximum();
    SeguirPosicion();
}

VistaRejilla::Lugar VistaRejilla::LugarDe(const QPoint& punto) const {
    return LugarDe(rowAt(punto.y()) + 1, columnAt(punto.x()));
}

VistaRejilla::Lugar VistaRejilla::LugarDe(int fila, int columna) const {
    Lugar lugar{fila, columna, fila < 1, {}};
    // The grid may be ahead of what the view shows.
    for (int i = 0; fila >= 1 && fila <= rejilla_.FilasDatos() && i < rejilla_.Columnas(); ++i) {
        lugar.textos << rejilla_.Texto(fila, i);
    }
    return lugar;
}

void VistaRejilla::PulsarElegidas(const QItemSelection& elegidas) {
    const QModelIndexList indices = elegidas.indexes();
    if (indices.isEmpty()) {
        return;
    }
    const Lugar lugar = LugarDe(indices.first().row() + 1, indices.first().column());
    // Later: who has chosen waits for the answer, and the touch may bring a dialog up.
    const auto tocar = [this, lugar] {
        clearSelection();
        if (isEnabled() && LugarDe(lugar.fila, lugar.columna) == lugar) {
            Q_EMIT Soltado(lugar.fila, lugar.columna, false);
        }
    };
    QMetaObject::invokeMethod(this, tocar, Qt::QueuedConnection);
}

void VistaRejilla::SeñalarPulsada(const std::optional<Lugar>& lugar) {
    delegado_.PonerPulsada(lugar ? lugar->fila : 0, lugar ? lugar->columna : 0);
    viewport()->update();
}

void VistaRejilla::Pulsar(const std::optional<Lugar>& lugar) {
    pulsado_ = lugar;
    SeñalarPulsada(lugar);
}

void VistaRejilla::Soltar(const std::optional<Lugar>& lugar) {
    // A finger that has slid elsewhere meant neither cell; one below which another row has come,
    // not that row.
    const auto pulsado = std::exchange(pulsado_, std::nullopt);
    SeñalarPulsada(std::nullopt);
    if (pulsado && pulsado == lugar) {
        anterior_ = pulsado;
        Q_EMIT Soltado(lugar->fila, lugar->columna, lugar->debajo);
    }
}

// The base class would move a selection and scroll after the pointer: nothing of it is wanted.
void VistaRejilla::mousePressEvent(QMouseEvent* evento) {
    if (LlegaTarde(*evento)) {
        ultimoToque_ = evento->timestamp();
        Pulsar(std::nullopt);
        return;
    }
    const bool izquierdo = evento->button() == Qt::LeftButton;
    Pulsar(izquierdo ? std::optional(LugarDe(evento->position().toPoint())) : std::nullopt);
}

// Quick touches mean one row: when the first has taken it away, those that follow are none, however
// many they are and wherever the finger comes down. Counted by the time of the events: what the
// first one does may take a while, and the next waits meanwhile.
bool VistaRejilla::LlegaTarde(const QMouseEvent& evento) const {
    return anterior_ && LugarDe(anterior_->fila, anterior_->columna) != anterior_ &&
           evento.timestamp() - ultimoToque_ <
               static_cast<quint64>(QGuiApplication::styleHints()->mouseDoubleClickInterval());
}

// The system calls two touches one: where the first has brought another row below the finger, the
// second is none.
void VistaRejilla::mouseDoubleClickEvent(QMouseEvent* evento) {
    mousePressEvent(evento);
    if (pulsado_ != anterior_) {
        Pulsar(std::nullopt);
    }
}

void VistaRejilla::mouseMoveEvent(QMouseEvent* evento) {
    evento->accept();
    if (pulsado_) {
        const bool encima = LugarDe(evento->position().toPoint()) == pulsado_;
        SeñalarPulsada(encima ? pulsado_ : std::nullopt);
    }
}

void VistaRejilla::mouseReleaseEvent(QMouseEvent* evento) {
    if (evento->button() == Qt::LeftButton) {
        const QPoint punto = evento->position().toPoint();
        if (pulsado_) {
            ultimoToque_ = evento->timestamp();
        }
        Soltar(viewport()->rect().contains(punto) ? std::optional(LugarDe(punto)) : std::nullopt);
    }
}

bool VistaRejilla::eventFilter(QObject* objeto, QEvent* evento) {
    QWidget* titulos = horizontalHeader()->viewport();
    if (objeto == titulos && (evento->type() == QEvent::MouseButtonPress ||
                              evento->type() == QEvent::MouseButtonDblClick ||
                              evento->type() == QEvent::MouseButtonRelease)) {
        const auto* raton = static_cast<QMouseEvent*>(evento);
        if (raton->button() == Qt::LeftButton) {
            const QPoint punto = raton->position().toPoint();
            const Lugar lugar{0, columnAt(punto.x()), false, {}};
            if (evento->type() == QEvent::MouseButtonRelease) {
                Soltar(titulos->rect().contains(punto) ? std::optional(lugar) : std::nullopt);
            } else {
                Pulsar(lugar);
            }
        }
    }
    return QTableView::eventFilter(objeto, evento);
}

} // namespace zv

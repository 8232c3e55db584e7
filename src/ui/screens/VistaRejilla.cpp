#include "ui/screens/VistaRejilla.h"

#include "platform/StringLiterals.h"
#include "ui/screens/Tema.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

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
    setSelectionMode(QAbstractItemView::NoSelection);
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
    if (verticalHeader()->offset() != antes) {
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
    const int fila = rowAt(punto.y());
    Lugar lugar{fila + 1, columnAt(punto.x()), fila < 0, {}};
    for (int columna = 0; fila >= 0 && columna < rejilla_.Columnas(); ++columna) {
        lugar.textos << rejilla_.Texto(lugar.fila, columna);
    }
    return lugar;
}

void VistaRejilla::Soltar(const std::optional<Lugar>& lugar) {
    // A finger that has slid elsewhere meant neither cell; one below which another row has come,
    // not that row.
    if (const auto pulsado = std::exchange(pulsado_, std::nullopt); pulsado && pulsado == lugar) {
        Q_EMIT Soltado(lugar->fila, lugar->columna, lugar->debajo);
    }
}

// The base class would move a selection and scroll after the pointer: nothing of it is wanted.
void VistaRejilla::mousePressEvent(QMouseEvent* evento) {
    pulsado_.reset();
    if (evento->button() == Qt::LeftButton) {
        pulsado_ = LugarDe(evento->position().toPoint());
    }
}

void VistaRejilla::mouseDoubleClickEvent(QMouseEvent* evento) {
    mousePressEvent(evento);
}

void VistaRejilla::mouseMoveEvent(QMouseEvent* evento) {
    evento->accept();
}

void VistaRejilla::mouseReleaseEvent(QMouseEvent* evento) {
    if (evento->button() == Qt::LeftButton) {
        const QPoint punto = evento->position().toPoint();
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
                pulsado_ = lugar;
            }
        }
    }
    return QTableView::eventFilter(objeto, evento);
}

} // namespace zv

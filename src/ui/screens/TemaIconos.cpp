// Icons of the theme: SVG files of Debian's breeze-icon-theme drawn in the colour asked, at the
// size asked; a plain drawing of our own when a file is missing.
#include "platform/StringLiterals.h"
#include "ui/screens/Tema.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QStandardPaths>
#include <QSvgRenderer>

#include <memory>

namespace zv::tema {

namespace {

// The theme's close icon is a full disc, too heavy beside a title; a plain cross stands for it. Its
// minimise icon is the arrow that turns pages here; a bar stands for it. Our own program's icon is
// in no theme.
bool SiemprePropio(const QString& nombre) {
    return nombre == QLatin1String("window-close") || nombre == QLatin1String("window-minimize") ||
           nombre == QLatin1String("zvmonitor");
}

// The file's bytes; empty when no folder has the icon. 22 px is the theme's drawing for tool bars:
// of one colour, and its strokes stay strong when enlarged for a finger.
QByteArray BuscarSvg(const QStringList& carpetas, const QString& nombre) {
    static constexpr const char* kClases[] = {"actions", "status",      "devices",   "places",
                                              "apps",    "preferences", "categories"};
    static constexpr const char* kTamaños[] = {"22", "32", "16", "24", "48", "64", "symbolic"};
    if (nombre.isEmpty() || nombre.contains(QLatin1Char('/')) || SiemprePropio(nombre)) {
        return {};
    }
    for (const QString& carpeta : carpetas) {
        for (const char* clase : kClases) {
            for (const char* tamaño : kTamaños) {
                QFile fichero(carpeta + QLatin1Char('/') + QLatin1String(clase) + QLatin1Char('/') +
                              QLatin1String(tamaño) + QLatin1Char('/') + nombre + u".svg"_s);
                if (fichero.open(QIODevice::ReadOnly)) {
                    return fichero.readAll();
                }
            }
        }
    }
    return {};
}

// On a square of 22 units, with a pen of 1.8. False for a name that has no drawing.
bool Dibujar(QPainter& p, const QString& nombre) {
    if (nombre == QLatin1String("zvmonitor")) {
        // Coins on the header's ground.
        p.setPen(Qt::NoPen);
        p.setBrush(kCabecera);
        p.drawRoundedRect(QRectF(0, 0, 22, 22), 4, 4);
        p.setPen(QPen(kCabecera, 1.2));
        p.setBrush(kAmbar);
        for (const qreal y : {13.5, 10.0, 6.5}) {
            p.drawEllipse(QPointF(11, y + 1), 6.6, 3.4);
        }
        return true;
    }
    if (nombre == QLatin1String("dialog-ok") || nombre == QLatin1String("dialog-ok-apply")) {
        p.drawPolyline(QPolygonF({{4, 12}, {9, 17}, {18, 6}}));
    } else if (nombre == QLatin1String("dialog-cancel") ||
               nombre == QLatin1String("window-close") || nombre == QLatin1String("edit-delete")) {
        p.drawLine(QPointF(5, 5), QPointF(17, 17));
        p.drawLine(QPointF(17, 5), QPointF(5, 17));
    } else if (nombre == QLatin1String("list-add")) {
        p.drawLine(QPointF(11, 4), QPointF(11, 18));
        p.drawLine(QPointF(4, 11), QPointF(18, 11));
    } else if (nombre == QLatin1String("window-minimize")) {
        p.drawLine(QPointF(5, 16), QPointF(17, 16));
    } else if (nombre == QLatin1String("list-remove")) {
        p.drawLine(QPointF(4, 11), QPointF(18, 11));
    } else if (nombre == QLatin1String("go-up") || nombre == QLatin1String("arrow-up")) {
        p.drawPolyline(QPolygonF({{5, 14}, {11, 8}, {17, 14}}));
    } else if (nombre == QLatin1String("go-down") || nombre == QLatin1String("arrow-down")) {
        p.drawPolyline(QPolygonF({{5, 8}, {11, 14}, {17, 8}}));
    } else if (nombre == QLatin1String("edit-clear")) {
        p.drawPolygon(QPolygonF({{2, 11}, {8, 5}, {20, 5}, {20, 17}, {8, 17}}));
        p.drawLine(QPointF(11, 8.5), QPointF(16, 13.5));
        p.drawLine(QPointF(16, 8.5), QPointF(11, 13.5));
    } else if (nombre == QLatin1String("input-keyboard")) {
        p.drawRoundedRect(QRectF(2, 5, 18, 12), 2, 2);
        p.drawLine(QPointF(6, 9), QPointF(16, 9));
        p.drawLine(QPointF(8, 13), QPointF(14, 13));
    } else {
        return false;
    }
    return true;
}

class IconEngine final : public QIconEngine {
  public:
    IconEngine(const QByteArray& svg, QString nombre, const QColor& color, const QColor& marcado)
        : nombre_(std::move(nombre)), color_(color), marcado_(marcado) {
        if (svg.isEmpty()) {
            return;
        }
        normal_ = Leer(svg, color_);
        if (marcado_.isValid()) {
            conMarca_ = Leer(svg, marcado_);
        }
    }

    void paint(QPainter* p, const QRect& donde, QIcon::Mode modo, QIcon::State estado) override {
        const bool marcado = estado == QIcon::On && marcado_.isValid();
        // The theme's icons are square; a wide place must not stretch them.
        const int lado = qMin(donde.width(), donde.height());
        QRectF cuadro(0, 0, lado, lado);
        cuadro.moveCenter(QRectF(donde).center());
        p->save();
        p->setRenderHint(QPainter::Antialiasing);
        if (modo == QIcon::Disabled) {
            p->setOpacity(p->opacity() * 0.35);
        }
        if (const auto& svg = marcado ? conMarca_ : normal_) {
            svg->render(p, cuadro);
        } else {
            DibujarPropio(*p, cuadro, marcado ? marcado_ : color_);
        }
        p->restore();
    }

    QPixmap pixmap(const QSize& tamaño, QIcon::Mode modo, QIcon::State estado) override {
        return scaledPixmap(tamaño, modo, estado, 1.0);
    }

    // tamaño comes in device pixels already.
    QPixmap scaledPixmap(const QSize& tamaño, QIcon::Mode modo, QIcon::State estado,
                         qreal) override {
        QPixmap mapa(tamaño);
        mapa.fill(Qt::transparent);
        QPainter p(&mapa);
        paint(&p, QRect(QPoint(0, 0), tamaño), modo, estado);
        return mapa;
    }

    QIconEngine* clone() const override { return new IconEngine(*this); }
    QString iconName() override { return nombre_; }
    bool isNull() override { return false; }

  private:
    static std::shared_ptr<QSvgRenderer> Leer(QByteArray svg, const QColor& color) {
        svg.replace("currentColor", color.name().toLatin1());
        auto lector = std::make_shared<QSvgRenderer>(svg);
        return lector->isValid() ? lector : nullptr;
    }

    void DibujarPropio(QPainter& p, const QRectF& cuadro, const QColor& color) const {
        p.translate(cuadro.topLeft());
        p.scale(cuadro.width() / 22, cuadro.height() / 22);
        p.setPen(QPen(color, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.setBrush(Qt::NoBrush);
        if (Dibujar(p, nombre_)) {
            return;
        }
        // Unknown name: its initial in a frame still tells two buttons apart.
        p.drawRoundedRect(QRectF(3, 3, 16, 16), 3, 3);
        p.setFont(Fuente(11, true));
        p.drawText(QRectF(3, 3, 16, 16), Qt::AlignCenter,
                   nombre_.isEmpty() ? u"?"_s : nombre_.left(1).toUpper());
    }

    QString nombre_;
    QColor color_;
    QColor marcado_;
    std::shared_ptr<QSvgRenderer> normal_;
    std::shared_ptr<QSvgRenderer> conMarca_;
};

} // namespace

QStringList CarpetasDeIconos() {
    return QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, u"icons/breeze"_s,
                                     QStandardPaths::LocateDirectory);
}

QIcon IconoDe(const QStringList& carpetas, const QString& nombre, const QColor& color,
              const QColor& colorMarcado) {
    return QIcon(new IconEngine(BuscarSvg(carpetas, nombre), nombre, color, colorMarcado));
}

QIcon Icono(const QString& nombre, const QColor& color, const QColor& colorMarcado) {
    return IconoDe(CarpetasDeIconos(), nombre, color, colorMarcado);
}

} // namespace zv::tema

#include "engine/BotonAcceso.h"

#include "platform/StringLiterals.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace zv {

namespace {

constexpr int kTwipsPorPixel = 15;
constexpr int kAltoCabecera = 855; // twips
constexpr int kAnchosDesdeElBorde = 5;

} // namespace

void BotonAcceso::Pulsar() {
    if (pulsado_) {
        return;
    }
    const QScopedValueRollback pulsado(pulsado_, true);
    if (ventana_.WindowState() == ventana::kMinimizada) {
        ventana_.PonerWindowState(ventana::kMaximizada);
    }
    cobroManual_(u"VENTA"_s);
}

QPoint BotonAcceso::SitioInicial(int anchoPantalla, const QSize& boton) {
    const QSize twips = boton * kTwipsPorPixel;
    const int izquierda = anchoPantalla * kTwipsPorPixel - kAnchosDesdeElBorde * twips.width();
    const int arriba = (kAltoCabecera - twips.height()) / 2;
    return {izquierda / kTwipsPorPixel, arriba / kTwipsPorPixel};
}

QPoint BotonAcceso::Entero(const QPoint& sitio, const QSize& boton, const QRect& pantalla) {
    // The upper left corner counts on a screen that is too small for it.
    const int x = std::min(sitio.x(), pantalla.x() + pantalla.width() - boton.width());
    const int y = std::min(sitio.y(), pantalla.y() + pantalla.height() - boton.height());
    return {std::max(x, pantalla.x()), std::max(y, pantalla.y())};
}

} // namespace zv

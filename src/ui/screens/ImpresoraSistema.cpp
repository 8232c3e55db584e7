#include "ui/screens/ImpresoraSistema.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

#include <QDir>
#include <QFont>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStorageInfo>

#include <cmath>
#include <cups/cups.h>
#include <utility>

namespace zv {
namespace {

constexpr double kTwipsPorPulgada = 1440;
// The toolkit writes a document into a temporary file before it is sent, and does not tell when
// that fails: the disk must have room for a long one.
constexpr qint64 kEspacioMinimo = qint64{16} << 20;

QFont FuenteDe(const FuenteImpresora& fuente) {
    QFont letra(fuente.nombre, fuente.tamaño);
    letra.setBold(fuente.negrita);
    letra.setItalic(fuente.cursiva);
    letra.setUnderline(fuente.subrayado);
    return letra;
}

QPageLayout::Orientation OrientacionDe(Orientacion orientacion) {
    return orientacion == Orientacion::Apaisada ? QPageLayout::Landscape : QPageLayout::Portrait;
}

void Dibujar(QPainter& pintor, const PaginaImpresa& pagina, const QPrinter& impresora,
             double escala) {
    for (const TextoImpreso& texto : pagina.textos) {
        const QFont letra = FuenteDe(texto.fuente);
        pintor.setFont(letra);
        const double alto = QFontMetricsF(letra, &impresora).ascent();
        pintor.drawText(QPointF(texto.sitio.x() * escala, texto.sitio.y() * escala + alto),
                        texto.texto);
    }
}

} // namespace

ImpresoraSistema::ImpresoraSistema(QString trabajo) : trabajo_(std::move(trabajo)) {}

ImpresoraSistema::~ImpresoraSistema() = default;

int ImpresoraSistema::EnTwips(double puntos) const {
    return static_cast<int>(std::ceil(puntos * kTwipsPorPulgada / impresora_->resolution()));
}

void ImpresoraSistema::Abrir() {
    const QPrinterInfo informe = QPrinterInfo::defaultPrinter();
    if (informe.isNull()) {
        throw errores::ErrorDeImpresora(u"no hay ninguna"_s);
    }
    if (informe.state() == QPrinter::Error) {
        throw errores::ErrorDeImpresora(informe.printerName() + u" está parada"_s);
    }
    impresora_ = std::make_unique<QPrinter>(informe, QPrinter::HighResolution);
    impresora_->setDocName(trabajo_);
    impresora_->setPageOrientation(QPageLayout::Portrait);
}

int ImpresoraSistema::Ancho(const QString& texto, const FuenteImpresora& fuente) {
    return EnTwips(QFontMetricsF(FuenteDe(fuente), impresora_.get()).horizontalAdvance(texto));
}

int ImpresoraSistema::AltoLinea(const FuenteImpresora& fuente) {
    return EnTwips(QFontMetricsF(FuenteDe(fuente), impresora_.get()).height());
}

QSize ImpresoraSistema::Pagina(Orientacion orientacion) {
    QPageLayout hoja = impresora_->pageLayout();
    hoja.setOrientation(OrientacionDe(orientacion));
    const QSizeF puntos = hoja.paintRectPixels(impresora_->resolution()).size();
    return {EnTwips(puntos.width()), EnTwips(puntos.height())};
}

void ImpresoraSistema::Enviar(const DocumentoImpreso& documento) {
    const auto impresora = std::exchange(impresora_, nullptr);
    if (QStorageInfo(QDir::tempPath()).bytesAvailable() < kEspacioMinimo) {
        throw errores::ErrorDeImpresora(u"no queda espacio en el disco"_s);
    }
    const double escala = impresora->resolution() / kTwipsPorPulgada;
    impresora->setPageOrientation(OrientacionDe(documento.front().orientacion));
    QPainter pintor;
    if (!pintor.begin(impresora.get())) {
        throw errores::ErrorDeImpresora(u"no se puede empezar el documento"_s);
    }
    for (std::size_t i = 0; i < documento.size(); ++i) {
        if (i > 0) {
            impresora->setPageOrientation(OrientacionDe(documento[i].orientacion));
            if (!impresora->newPage()) {
                throw errores::ErrorDeImpresora(u"no se puede pasar de página"_s);
            }
        }
        Dibujar(pintor, documento[i], *impresora, escala);
    }
    // The end sends the document; how that went only the print system's client says.
    pintor.end();
    if (const ipp_status_t estado = cupsLastError(); estado > IPP_STATUS_OK_CONFLICTING) {
        throw errores::ErrorDeImpresora(QString::fromUtf8(cupsLastErrorString()));
    }
}

} // namespace zv

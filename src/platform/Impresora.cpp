#include "platform/Impresora.h"

#include "platform/StringLiterals.h"

#include <QStringList>

#include <utility>

namespace zv {

void Impresora::Preparar() {
    if (abierto_) {
        return;
    }
    Abrir();
    documento_.assign(1, {});
    abierto_ = true;
}

void Impresora::PonerFuente(const FuenteImpresora& fuente) {
    Preparar();
    fuente_ = fuente;
}

void Impresora::PonerX(int twips) {
    Preparar();
    x_ = twips;
}

void Impresora::PonerY(int twips) {
    Preparar();
    y_ = twips;
}

void Impresora::EscribirTrozo(const QString& texto) {
    if (texto.isEmpty()) {
        return;
    }
    if (!CabeLinea()) {
        const int x = x_;
        NuevaPagina();
        x_ = x;
    }
    documento_.back().textos.push_back({QPoint(x_, y_), texto, fuente_});
    x_ += Ancho(texto, fuente_);
}

void Impresora::BajarLinea() {
    x_ = 0;
    y_ += AltoLinea(fuente_);
}

void Impresora::Escribir(const QString& texto, bool saltoLinea) {
    Preparar();
    QString lineas = texto;
    lineas.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    bool primera = true;
    for (const QString& linea : lineas.split(u'\n')) {
        if (!std::exchange(primera, false)) {
            BajarLinea();
        }
        EscribirTrozo(linea);
    }
    if (saltoLinea) {
        BajarLinea();
    }
}

int Impresora::AnchoTexto(const QString& texto) {
    Preparar();
    return Ancho(texto, fuente_);
}

int Impresora::AnchoPagina() {
    Preparar();
    return Pagina(orientacion_).width();
}

void Impresora::PonerOrientacion(Orientacion orientacion) {
    Preparar();
    if (orientacion == orientacion_) {
        return;
    }
    orientacion_ = orientacion;
    if (!documento_.back().textos.empty()) {
        NuevaPagina();
    }
    documento_.back().orientacion = orientacion;
}

bool Impresora::CabeLinea() {
    Preparar();
    // A line higher than the page stays at its top.
    return y_ <= 0 || y_ + AltoLinea(fuente_) <= Pagina(orientacion_).height();
}

void Impresora::NuevaPagina() {
    Preparar();
    documento_.push_back({orientacion_, {}});
    x_ = 0;
    y_ = 0;
}

void Impresora::TerminarDocumento() {
    // What fails now must not come out with the next document.
    const DocumentoImpreso documento = std::move(documento_);
    Abandonar();
    for (const PaginaImpresa& pagina : documento) {
        if (!pagina.textos.empty()) {
            Enviar(documento);
            return;
        }
    }
}

void Impresora::Abandonar() noexcept {
    abierto_ = false;
    documento_.clear();
    orientacion_ = Orientacion::Vertical;
    x_ = 0;
    y_ = 0;
}

} // namespace zv

#include "ui/Rejilla.h"

#include "ui/Textos.h"

#include <algorithm>
#include <utility>

namespace zv {

Rejilla::Rejilla(std::vector<Columna> columnas) : columnas_(std::move(columnas)) {}

void Rejilla::PonerColumnas(std::vector<Columna> columnas) {
    const SinDibujo sinDibujo(*this);
    Vaciar();
    columnas_ = std::move(columnas);
    cambio_.columnas = true;
    HaCambiado();
}

void Rejilla::PonerTitulos(const Textos& textos) {
    for (Columna& columna : columnas_) {
        const QString texto = columna.clave != nullptr ? textos.Traduce(*columna.clave) : QString();
        columna.titulo = columna.delante + texto + columna.detras;
    }
    cambio_.columnas = true;
    HaCambiado();
}

void Rejilla::PonerAncho(int columna, int twips) {
    if (columnas_[Indice(columna)].ancho != twips) {
        columnas_[Indice(columna)].ancho = twips;
        cambio_.columnas = true;
        HaCambiado();
    }
}

void Rejilla::Recortar(int cuantas) {
    const SinDibujo sinDibujo(*this);
    filas_ = std::clamp(cuantas, 0, filas_);
    textos_.resize(Celda(filas_ + 1, 0));
    if (filas_ == 0) {
        aspectos_.clear();
    } else if (!aspectos_.empty()) {
        aspectos_.resize(textos_.size());
    }
    cambio_.conservadas = std::min(cambio_.conservadas, filas_);
    cambio_.ultima = std::min(cambio_.ultima, filas_);
    PonerCeldaActual(std::min(posicion_.filaActual, filas_), posicion_.columnaActual);
    PonerFilaSuperior(posicion_.filaSuperior);
    HaCambiado();
}

int Rejilla::AñadirFila() {
    ++filas_;
    textos_.resize(Celda(filas_ + 1, 0));
    if (!aspectos_.empty()) {
        aspectos_.resize(textos_.size());
    }
    HaCambiado();
    return filas_;
}

void Rejilla::PonerTexto(int fila, int columna, QString texto) {
    textos_[Celda(fila, columna)] = std::move(texto);
    Tocar(fila);
}

Aspecto Rejilla::AspectoDe(int fila, int columna) const {
    return fila == 0 || aspectos_.empty() ? Aspecto() : aspectos_[Celda(fila, columna)];
}

Aspecto& Rejilla::AspectoPara(int fila, int columna) {
    if (aspectos_.empty()) {
        aspectos_.resize(textos_.size());
    }
    return aspectos_[Celda(fila, columna)];
}

void Rejilla::PonerImagen(int fila, int columna, Imagen imagen) {
    AspectoPara(fila, columna).imagen = imagen;
    Tocar(fila);
}

void Rejilla::PonerFondo(int fila, int columna, ColorCelda fondo) {
    AspectoPara(fila, columna).fondo = fondo;
    Tocar(fila);
}

void Rejilla::PonerColorFila(int fila, ColorCelda texto, bool negrita) {
    for (int columna = 0; columna < Columnas(); ++columna) {
        Aspecto& aspecto = AspectoPara(fila, columna);
        aspecto.texto = texto;
        aspecto.negrita = negrita;
    }
    Tocar(fila);
}

QString Rejilla::PalabraImagen(int fila, int columna) const {
    return AspectoDe(fila, columna).imagen == Imagen::Ninguna ? QString()
                                                              : ColumnaDe(columna).titulo;
}

void Rejilla::PonerDibujo(bool encendido) {
    dibujo_ = encendido;
    Avisar();
}

void Rejilla::PonerCeldaActual(int fila, int columna) {
    posicion_.filaActual = fila;
    posicion_.columnaActual = columna;
    Avisar();
}

void Rejilla::PonerPagina(int filas) {
    posicion_.pagina = std::max(1, filas);
    PonerFilaSuperior(posicion_.filaSuperior);
}

void Rejilla::PonerFilaSuperior(int fila) {
    posicion_.filaSuperior = filas_ <= posicion_.pagina ? 1 : std::clamp(fila, 1, filas_);
    Avisar();
}

void Rejilla::PonerALaVista(int fila) {
    if (fila < posicion_.filaSuperior) {
        PonerFilaSuperior(fila);
    } else if (fila >= posicion_.filaSuperior + posicion_.pagina) {
        PonerFilaSuperior(fila - posicion_.pagina + 1);
    }
}

void Rejilla::IrA(int fila) {
    const SinDibujo sinDibujo(*this);
    PonerFilaSuperior(fila);
    PonerFilaActual(std::min(posicion_.filaSuperior, filas_));
}

void Rejilla::PaginaArriba() {
    IrA(posicion_.filaSuperior - posicion_.pagina);
}

void Rejilla::PaginaAbajo() {
    IrA(posicion_.filaSuperior + posicion_.pagina);
}

void Rejilla::Tocar(int fila) {
    // Rows that the last notice did not tell of are new as a whole.
    if (fila <= cambio_.conservadas) {
        const bool primera = cambio_.primera > cambio_.ultima;
        cambio_.primera = primera ? fila : std::min(cambio_.primera, fila);
        cambio_.ultima = primera ? fila : std::max(cambio_.ultima, fila);
    }
    HaCambiado();
}

void Rejilla::HaCambiado() {
    cambiado_ = true;
    Avisar();
}

void Rejilla::Avisar() {
    if (!dibujo_) {
        return;
    }
    if (std::exchange(cambiado_, false)) {
        const Cambio cambio = std::exchange(cambio_, Cambio{.conservadas = filas_});
        if (alCambiar_) {
            alCambiar_(cambio);
        }
    }
    if (avisada_ != posicion_) {
        avisada_ = posicion_;
        if (alMover_) {
            alMover_();
        }
    }
}

QString TextoDeCelda(const QString& texto) {
    constexpr qsizetype kCaracteres = 255;
    qsizetype fin = texto.indexOf(QChar(u'\0'));
    if (fin < 0) {
        fin = texto.size();
    }
    if (fin > kCaracteres) {
        // A character of two units is not parted.
        fin = texto.at(kCaracteres - 1).isHighSurrogate() ? kCaracteres - 1 : kCaracteres;
    }
    return fin == texto.size() ? texto : texto.left(fin);
}

} // namespace zv

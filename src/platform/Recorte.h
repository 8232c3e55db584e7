// A text without what stands idle at its two ends.
#pragma once

#include <QStringView>

namespace zv {

// sobra tells whether a character at an end goes.
template <class Sobra>
QStringView Recortar(QStringView texto, const Sobra& sobra) {
    while (!texto.isEmpty() && sobra(texto.front())) {
        texto = texto.sliced(1);
    }
    while (!texto.isEmpty() && sobra(texto.back())) {
        texto.chop(1);
    }
    return texto;
}

} // namespace zv

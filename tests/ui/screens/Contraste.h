// How well one colour can be read on another: 4.5 is enough for texts, 3 for borders and marks.
#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

namespace zv::test {

inline double Luminancia(const QColor& color) {
    const auto lineal = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * lineal(color.redF()) + 0.7152 * lineal(color.greenF()) +
           0.0722 * lineal(color.blueF());
}

inline double Contraste(const QColor& uno, const QColor& otro) {
    const double a = Luminancia(uno);
    const double b = Luminancia(otro);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

} // namespace zv::test

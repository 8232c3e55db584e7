#include "ui/FechaCorta.h"

namespace zv {
namespace {

void PonerDosCifras(QString& texto, int valor) {
    texto += QLatin1Char(static_cast<char>('0' + valor / 10 % 10));
    texto += QLatin1Char(static_cast<char>('0' + valor % 10));
}

} // namespace

QString FechaCorta(const QDateTime& fecha, bool sinHora) {
    if (!fecha.isValid()) {
        return {};
    }
    // By hand: this runs for each row of each refill.
    QString texto;
    texto.reserve(17);
    int ano = 0;
    int mes = 0;
    int dia = 0;
    fecha.date().getDate(&ano, &mes, &dia);
    PonerDosCifras(texto, dia);
    texto += QLatin1Char('/');
    PonerDosCifras(texto, mes);
    texto += QLatin1Char('/');
    PonerDosCifras(texto, ano);
    if (!sinHora) {
        const QTime hora = fecha.time();
        texto += QLatin1Char(' ');
        PonerDosCifras(texto, hora.hour());
        texto += QLatin1Char(':');
        PonerDosCifras(texto, hora.minute());
        texto += QLatin1Char(':');
        PonerDosCifras(texto, hora.second());
    }
    return texto;
}

} // namespace zv

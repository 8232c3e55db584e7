// The wait is an event loop of its own, which sleeps between events.
#include "barcode/Espera.h"

#include <QEventLoop>
#include <QTimer>

namespace zv {

void Espera(int segundos) {
    constexpr int kMilisegundos = 1000;
    QEventLoop bucle;
    QTimer reloj;
    reloj.setSingleShot(true);
    reloj.setTimerType(Qt::PreciseTimer);
    QObject::connect(&reloj, &QTimer::timeout, &bucle, &QEventLoop::quit);
    reloj.start(segundos * kMilisegundos);
    bucle.exec();
}

} // namespace zv

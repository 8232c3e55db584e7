// Bounded waiting on the event loop.
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace zv::test {

// Works the event loop until `listo` answers true; false when that takes longer than the bound.
template <typename Condicion>
bool Esperar(Condicion listo, int topeMs = 10'000) {
    const QDeadlineTimer tope(topeMs);
    QTimer despertador; // so that waiting for events ends also when there are none
    despertador.start(10);
    while (!listo()) {
        if (tope.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

// One turn of the event loop as a program makes it, which announces that it is about to wait.
inline void Vuelta() {
    QEventLoop bucle;
    QMetaObject::invokeMethod(&bucle, &QEventLoop::quit, Qt::QueuedConnection);
    bucle.exec();
}

} // namespace zv::test

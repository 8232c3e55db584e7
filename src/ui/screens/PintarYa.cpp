#include "ui/screens/PintarYa.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QThread>
#include <QWidget>
#include <QWindow>

namespace zv {

namespace {

constexpr int kPrimeraPinturaMs = 500; // a window that stays hidden must not hold anybody up

// While it lives no descriptor speaks: some event loops do not know the flag that keeps them quiet.
// What has come in is told again afterwards.
class DescriptoresCallados final : public QObject {
  public:
    DescriptoresCallados() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject* /*objeto*/, QEvent* evento) override {
        return evento->type() == QEvent::SockAct;
    }
};

// A window that has just been shown can be painted when the window system has put it up. What comes
// of that is looked at alone: no key, no click, no timer, no message of anybody.
void Esperar(const QWindow& ventana) {
    constexpr QEventLoop::ProcessEventsFlags kSoloVentana = QEventLoop::ExcludeUserInputEvents |
                                                            QEventLoop::ExcludeSocketNotifiers |
                                                            QEventLoop::X11ExcludeTimers;
    const DescriptoresCallados callados;
    const QDeadlineTimer limite(kPrimeraPinturaMs);
    while (!ventana.isExposed() && !limite.hasExpired()) {
        QCoreApplication::processEvents(kSoloVentana);
        QThread::msleep(1);
    }
}

} // namespace

void PintarYa(QWidget& ventana) {
    if (!ventana.isVisible() || ventana.isMinimized()) {
        return;
    }
    if (const QWindow* sistema = ventana.windowHandle()) {
        Esperar(*sistema);
    }
    ventana.repaint();
}

} // namespace zv

// SIGTERM and SIGINT as an event of the loop, without a handler and so without global state.
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace zv::simulador {

class Terminacion : public QObject {
    Q_OBJECT

  public:
    // Blocks the two signals in this thread and those that it starts: construct it first.
    explicit Terminacion(QObject* padre = nullptr);
    ~Terminacion() override;

    // From here on `pedida` tells of them; needs an event loop.
    void Escuchar();

  Q_SIGNALS:
    void pedida();

  private:
    int fd_ = -1;
    std::unique_ptr<QSocketNotifier> aviso_;
};

} // namespace zv::simulador

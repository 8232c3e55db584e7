// SIGTERM and SIGINT (the session ends, somebody stops the service) as an event of the loop, so
// that the program leaves its marks in order before it ends.
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace zv {

class TerminationSignal final : public QObject {
    Q_OBJECT

  public:
    // alTerminar runs on the event loop, once. One object at a time per process.
    explicit TerminationSignal(std::function<void()> alTerminar);
    ~TerminationSignal() override;

  private:
    std::function<void()> alTerminar_;
    std::unique_ptr<QSocketNotifier> aviso_;
};

} // namespace zv

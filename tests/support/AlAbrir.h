// Answers the next modal dialog: the action runs in the dialog's own event loop, once it is shown.
// A dialog that never comes, and one that is still open after the action, fail the test.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>

namespace zv::test {

class AlAbrir {
  public:
    explicit AlAbrir(std::function<void(QDialog&)> accion) : accion_(std::move(accion)) {
        QTimer::singleShot(0, &contexto_, [this] { Hacer(); });
    }
    AlAbrir(const AlAbrir&) = delete;
    AlAbrir& operator=(const AlAbrir&) = delete;
    ~AlAbrir() { EXPECT_TRUE(hecho_) << "the dialog never came"; }

  private:
    void Hacer() {
        const QPointer<QDialog> dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialogo) {
            return;
        }
        hecho_ = true;
        accion_(*dialogo);
        if (dialogo && dialogo->isVisible()) {
            ADD_FAILURE() << "the dialog is still open: " << dialogo->objectName().toStdString();
            dialogo->done(0);
        }
    }

    QObject contexto_;
    std::function<void(QDialog&)> accion_;
    bool hecho_ = false;
};

} // namespace zv::test

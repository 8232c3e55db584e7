// A login answered by a script: the test says in order who will identify himself. A login that the
// script does not hold, and an answer nobody asked for, fail the test.
#pragma once

#include "access/PantallaLogin.h"

#include <QStringList>

#include <deque>
#include <functional>
#include <gtest/gtest.h>

namespace zv::test {

class LoginGuion final : public PantallaLogin {
  public:
    using Accion = std::function<void()>;

    LoginGuion() = default;
    LoginGuion(const LoginGuion&) = delete;
    LoginGuion& operator=(const LoginGuion&) = delete;
    ~LoginGuion() override { EXPECT_EQ(guion_.size(), 0U) << "nobody asked for a login"; }

    // mientras runs while the login would be up.
    void Espera(const QString& nombre, qint16 nivel, Accion mientras = {}) {
        guion_.push_back({{nombre, nivel}, std::move(mientras)});
    }
    void EsperaCancelado(Accion mientras = {}) { guion_.push_back({{}, std::move(mientras)}); }

    Identificado Identificar(const QString& lugar) override {
        lugares << lugar;
        if (guion_.empty()) {
            ADD_FAILURE() << "unexpected login at " << lugar.toStdString();
            return {};
        }
        const Paso paso = guion_.front();
        guion_.pop_front();
        if (paso.mientras) {
            paso.mientras();
        }
        return paso.quien;
    }

    // The places that asked, in order.
    QStringList lugares;

  private:
    struct Paso {
        Identificado quien;
        Accion mientras;
    };
    std::deque<Paso> guion_;
};

} // namespace zv::test

// Other screens played by a script: the test says in order which of them will be opened, and
// whether the user may go on. A call that the script does not hold, and an entry that nobody asked
// for, fail the test.
#pragma once

#include "till/Pantallas.h"

#include <QStringList>

#include <deque>
#include <functional>
#include <optional>
#include <set>

namespace zv::test {

class PantallasGuion final : public Pantallas {
  public:
    using Accion = std::function<void()>;
    using AccionCfg = std::function<void(Configuracio& cfg)>;

    PantallasGuion() = default;
    PantallasGuion(const PantallasGuion&) = delete;
    PantallasGuion& operator=(const PantallasGuion&) = delete;
    ~PantallasGuion() override;

    // What comes next. mientras runs while the screen or the login would be up: timers still tick
    // there.
    void EsperaAbrir(Pantalla pantalla, Accion mientras = {});
    // mientras changes the configuration as the screen would.
    void EsperaBalanza(AccionCfg mientras = {});
    void EsperaValidar(qint16 nivel, const QString& lugar, bool pasa, Accion mientras = {});

    // Every call that came, in order, as "Abrir(Caja)" and "ValidarUsuari(1,authCaja)".
    const QStringList& Llamadas() const { return llamadas_; }
    std::size_t Pendientes() const { return guion_.size(); }
    // Forgets what still waits, for a test that stops half way.
    void Olvida() { guion_.clear(); }

    bool Existe(Pantalla pantalla) const override { return !faltan.contains(pantalla); }
    void Abrir(Pantalla pantalla) override;
    void AbrirBalanza(Configuracio& cfg) override;
    bool ValidarUsuari(qint16 nivel, const QString& lugar) override;

    // Screens that do not exist; opening one of them is as unexpected as any.
    std::set<Pantalla> faltan;

  private:
    struct Paso {
        QString llamada;
        bool pasa;
        Accion mientras;
    };
    std::optional<Paso> Siguiente(const QString& llamada);

    std::deque<Paso> guion_;
    QStringList llamadas_;
    Configuracio* balanza_ = nullptr; // handed over with the screen that is open
};

} // namespace zv::test

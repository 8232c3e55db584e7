// From the press of a button to the login painted, with a thousand users; and what a guarded place
// costs when nobody is defined.
#include "BancoMedida.h"
#include "Medida.h"
#include "app/screens/PantallasPrograma.h"
#include "engine/screens/frmZVMonitor.h"
#include "ui/screens/Tema.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMouseEvent>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsuarios = 1000;
constexpr int kVeces = 40;
constexpr double kLimiteLoginMs = 100;
constexpr double kLimiteSinNadieUs = 20;

using Reloj = std::chrono::steady_clock;

// When the login has been painted for the first time; it is closed then.
class Vigia final : public QObject {
  public:
    Reloj::time_point pintado;
    bool visto = false;

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override {
        auto* dialogo = qobject_cast<QDialog*>(objeto);
        if (dialogo != nullptr && evento->type() == QEvent::Paint && !visto) {
            visto = true;
            // The controls of the window are painted in the same turn.
            QTimer::singleShot(0, dialogo, [this, dialogo] {
                pintado = Reloj::now();
                dialogo->done(0);
            });
        }
        return QObject::eventFilter(objeto, evento);
    }
};

void Pulsar(QWidget& boton) {
    const QPointF centro = QRectF(boton.rect()).center();
    for (const QEvent::Type tipo : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent evento(tipo, centro, boton.mapToGlobal(centro), Qt::LeftButton,
                           tipo == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                           Qt::NoModifier);
        QCoreApplication::sendEvent(&boton, &evento);
    }
}

int Medir(zv::bench::BancoMedida& banco, zv::PantallasPrograma& pantallas, QWidget& pantalla) {
    auto& seguretat = banco.monitor.Partes().entorno.seguretat;
    const auto nadie = zv::bench::Medir(20000, [&] { pantallas.ValidarUsuari(2, u"authCobro"_s); });
    seguretat.PonerRecargar(true);
    const auto recargando = zv::bench::Medir(
        2000, [&] { pantallas.ValidarUsuari(2, u"authCobro"_s); },
        [&] { seguretat.PonerRecargar(true); });
    std::printf("ValidarUsuari, nobody defined: median %.2f us (limit: %g us); with its table read "
                "again: %.2f us\n",
                nadie.medianaUs, kLimiteSinNadieUs, recargando.medianaUs);

    zv::DatabaseEngine& motor = banco.monitor.Partes().entorno.Database();
    motor.Comenzar();
    for (int i = 0; i < kUsuarios; ++i) {
        motor.Ejecutar(u"INSERT INTO Usuarios (nombre,password,rol) VALUES (?,'1234',2)"_s,
                       {u"USUARIO %1"_s.arg(i)});
    }
    motor.Confirmar();
    seguretat.PonerRecargar(true);

    auto* boton = pantalla.findChild<QAbstractButton*>(u"boton_10"_s);
    std::vector<double> tiempos;
    for (int i = 0; i < kVeces; ++i) {
        // The pulse brings the footer's buttons back.
        do {
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        } while (!boton->isEnabled());
        Vigia vigia;
        qApp->installEventFilter(&vigia);
        const auto inicio = Reloj::now();
        if (i % 2 == 0) {
            Pulsar(*boton);
        } else {
            pantallas.ValidarUsuari(1, u"authCaja"_s);
        }
        if (!vigia.visto) {
            std::puts("the login was not shown");
            return EXIT_FAILURE;
        }
        tiempos.push_back(
            std::chrono::duration<double, std::milli>(vigia.pintado - inicio).count());
    }
    const auto login = zv::bench::Resumir(std::move(tiempos));
    std::printf("press to login painted, %d users: median %.1f ms, worst %.1f ms (limit: %g ms)\n",
                kUsuarios, login.medianaUs, login.peorUs, kLimiteLoginMs);
    return nadie.medianaUs <= kLimiteSinNadieUs && login.peorUs <= kLimiteLoginMs ? EXIT_SUCCESS
                                                                                  : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    zv::tema::Aplicar(app);
    std::optional<zv::frmZVMonitor> pantalla;
    zv::PantallasPrograma pantallas([&] { return pantalla ? &*pantalla : nullptr; });
    zv::bench::BancoMedida banco(pantallas);
    pantallas.PonerEntorno(banco.monitor.Partes().entorno);
    pantalla.emplace(banco.monitor.Partes(), zv::AccionesVentana{});
    banco.monitor.PonerVentana(*pantalla);
    if (!banco.monitor.Cargar()) {
        return EXIT_FAILURE;
    }
    return Medir(banco, pantallas, *pantalla);
}

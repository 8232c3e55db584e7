// The monitor's own client against the device: each way in which a change, a float, a payment and
// a charge by hand can end, by what the customer does, by a fault, and by the operator's keys.
#include "MostradorEnHilo.h"
#include "device/gateway/GatewayClient.h"
#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"
#include "support/LogMemoria.h"
#include "support/VentanaGuion.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zv::simulador {
namespace {

enum class Tecla { Ninguna, TerminarAlAbrir, Terminar, Cancelar };

struct Caso {
    const char* cliente;
    const char* fallos;
    const char* llamada;   // cambio, ingreso, or with an amount pago, cobro
    const char* resultado; // "ok in out code"; in is 0 for a payment, out for a float
    Tecla tecla = Tecla::Ninguna;
};

void PrintTo(const Caso& caso, std::ostream* salida) {
    *salida << caso.cliente << " | " << caso.fallos << " | " << caso.llamada;
}

GatewayOptions Rapidas() {
    GatewayOptions o;
    o.reintento = 5;
    o.reanudar = 150;
    o.tic = 2;
    return o;
}

class Turno {
  public:
    explicit Turno(const Caso& caso)
        : caso_(caso), mostrador(Leido(caso.cliente), QString::fromUtf8(caso.fallos)) {
        cliente.Address(u"127.0.0.1:%1"_s.arg(mostrador.puerto));
        ventana.alAbrir = [this] {
            if (caso_.tecla == Tecla::TerminarAlAbrir) {
                ventana.Terminar();
            }
        };
        // The operator presses once, when money is in.
        ventana.alProgresar = [this] {
            const Tecla tecla = std::exchange(caso_.tecla, Tecla::Ninguna);
            if (tecla == Tecla::Terminar) {
                ventana.Terminar();
            } else if (tecla == Tecla::Cancelar) {
                ventana.Cancelar();
            }
        };
        ventana.alNegar = [this] { ventana.Cancelar(); };
    }

    bool Conectar() {
        bool bien = false;
        cliente.Connect(bien);
        return bien;
    }
    QString Llamar() {
        const QStringList partes = QString::fromUtf8(caso_.llamada).split(u' ');
        const qint32 importe = partes.value(1).toInt();
        qint32 entra = 0;
        qint32 sale = 0;
        bool bien = false;
        if (partes.first() == QLatin1String("cambio")) {
            cliente.Change(entra, sale, bien);
        } else if (partes.first() == QLatin1String("ingreso")) {
            cliente.AddChange(entra, bien);
        } else if (partes.first() == QLatin1String("pago")) {
            cliente.Pay(importe, sale, bien);
        } else {
            cliente.Charge(importe, entra, sale, bien);
        }
        return u"%1 %2 %3 %4"_s.arg(bien ? u"ok"_s : u"no"_s)
            .arg(entra)
            .arg(sale)
            .arg(cliente.ErrorCode());
    }

  private:
    static Cliente Leido(const char* guion) {
        QString error;
        return Cliente::Leer(QString::fromUtf8(guion), error).value_or(Cliente());
    }

    Caso caso_;
    QTemporaryDir carpeta_;
    Textos textos_{carpeta_.path()};

  public:
    MostradorEnHilo mostrador;
    test::LogMemoria log;
    VentanaGuion ventana;
    GatewayClient cliente{log, textos_, &ventana, Rapidas()};
};

// What PAIDINVALUE and PAIDOUTVALUE of the last line of the log say stays in the device.
qint64 QuedaSegunElLog(const test::LogMemoria& log) {
    const QString linea = log.lineas.last();
    const auto valor = [&linea](const QString& nombre) {
        return linea.section(nombre + u'=', 1).section(u' ', 0, 0).toLongLong();
    };
    return valor(u"PAIDINVALUE"_s) - valor(u"PAIDOUTVALUE"_s);
}

class OperacionesManuales : public testing::TestWithParam<Caso> {};

TEST_P(OperacionesManuales, EndAsToldAndTheMoneyAgrees) {
    Turno turno(GetParam());
    ASSERT_TRUE(turno.mostrador.bien);
    ASSERT_TRUE(turno.Conectar());
    const qint64 antes = turno.mostrador.Saldo();
    EXPECT_EQ(turno.Llamar(), QString::fromUtf8(GetParam().resultado));
    EXPECT_EQ(turno.mostrador.Saldo() - antes, QuedaSegunElLog(turno.log));
    EXPECT_EQ(turno.log.lineas.size(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Cambio, OperacionesManuales,
    testing::Values(
        Caso{"manual,cambio=1000", "", "cambio", "ok 1000 1000 0"},
        Caso{"manual,cambio=terminar", "", "cambio", "ok 0 0 0"},
        Caso{"manual,cambio=cancelar", "", "cambio", "no 0 0 0"},
        Caso{"manual,cambio=1000+500+cancelar", "", "cambio", "no 1500 1500 0"},
        Caso{"manual,cambio=1000+esperar", "", "cambio", "ok 1000 1000 0", Tecla::Terminar},
        Caso{"manual,cambio=1000+esperar", "", "cambio", "no 1000 1000 0", Tecla::Cancelar},
        Caso{"manual", "", "cambio", "ok 0 0 0", Tecla::TerminarAlAbrir},
        Caso{"manual,cambio=1000+esperar", "terminar:error=8", "cambio", "no 1000 1000 0",
             Tecla::Terminar},
        Caso{"manual,cambio=1000", "cambio:error=4", "cambio", "no 0 0 4"},
        Caso{"manual,cambio=1000", "cambio:error=12", "cambio", "no 0 0 12"},
        Caso{"manual,cambio=1000", "cambio:error=27", "cambio", "no 0 0 27"},
        Caso{"manual,cambio=1000", "cambio:error=31", "cambio", "no 0 0 31"},
        Caso{"manual,cambio=1000", "cambio:parcial=40", "cambio", "no 1000 0 40"},
        Caso{"manual,cambio=20000", "", "cambio", "ok 20000 20000 0"},
        Caso{"manual,cambio=1", "", "cambio", "no 1 1 4"}, // nothing else is worth as little
        Caso{"manual,cambio=1000", "cambio#1:cortar=antes", "cambio", "ok 1000 1000 0"},
        Caso{"manual,cambio=1000", "cambio#1:cortar=durante", "cambio", "ok 1000 1000 0"},
        Caso{"manual,cambio=1000", "cambio#1:cortar=despues", "cambio", "ok 1000 1000 0"},
        Caso{"manual,cambio=1000+esperar", "terminar#1:cortar=antes", "cambio", "ok 1000 1000 0",
             Tecla::Terminar},
        Caso{"manual,cambio=1000+esperar", "terminar#1:cortar=durante", "cambio", "ok 1000 1000 0",
             Tecla::Terminar},
        Caso{"manual,cambio=1000+esperar", "terminar#1:cortar=despues", "cambio", "ok 1000 1000 0",
             Tecla::Terminar}));

INSTANTIATE_TEST_SUITE_P(
    Ingreso, OperacionesManuales,
    testing::Values(
        Caso{"manual,ingreso=1000+200", "", "ingreso", "ok 1200 0 0"},
        Caso{"manual,ingreso=terminar", "", "ingreso", "ok 0 0 0"},
        Caso{"manual,ingreso=cancelar", "", "ingreso", "no 0 0 0"},
        Caso{"manual,ingreso=1000+cancelar", "", "ingreso", "no 1000 0 0"},
        Caso{"manual,ingreso=1000+esperar", "", "ingreso", "ok 1000 0 0", Tecla::Terminar},
        Caso{"manual,ingreso=1000+esperar", "", "ingreso", "no 1000 0 0", Tecla::Cancelar},
        Caso{"manual,ingreso=1000", "ingreso:error=12", "ingreso", "no 0 0 12"},
        Caso{"manual,ingreso=1000", "ingreso:atasco", "ingreso", "no 1000 0 12"},
        Caso{"manual,ingreso=1000", "ingreso:nolisto=31", "ingreso", "no 0 0 31"},
        Caso{"manual,ingreso=1000", "ingreso:cancelar", "ingreso", "no 1000 0 0"},
        Caso{"manual,ingreso=1000", "ingreso#1:cortar=antes", "ingreso", "ok 1000 0 0"},
        Caso{"manual,ingreso=1000", "ingreso#1:cortar=durante", "ingreso", "ok 1000 0 0"},
        Caso{"manual,ingreso=1000", "ingreso#1:cortar=despues", "ingreso", "ok 1000 0 0"}));

INSTANTIATE_TEST_SUITE_P(
    Pago, OperacionesManuales,
    testing::Values(Caso{"manual", "", "pago 1503", "ok 0 1503 0"},
                    Caso{"manual", "", "pago 42761", "no 0 0 4"}, // more than there is
                    Caso{"manual", "pago:error=4", "pago 1503", "no 0 0 4"},
                    Caso{"manual", "pago:error=12", "pago 1503", "no 0 0 12"},
                    Caso{"manual", "pago:nolisto=31", "pago 1503", "no 0 0 31"},
                    Caso{"manual", "pago:cancelar", "pago 1503", "no 0 0 0"},
                    Caso{"manual", "pago#1:cortar=antes", "pago 1503", "ok 0 1503 0"},
                    Caso{"manual", "pago#1:cortar=durante", "pago 1503", "ok 0 1503 0"},
                    Caso{"manual", "pago#1:cortar=despues", "pago 1503", "ok 0 1503 0"}));

INSTANTIATE_TEST_SUITE_P(
    Cobro, OperacionesManuales,
    testing::Values(Caso{"manual,cobro=1000+500", "", "cobro 1250", "ok 1500 250 0"},
                    Caso{"manual,cobro=cancelar", "", "cobro 1250", "no 0 0 0"},
                    Caso{"manual,cobro=1000+cancelar", "", "cobro 1250", "no 1000 1000 0"},
                    Caso{"manual,cobro=1000", "", "cobro 1250", "no 1000 1000 0", Tecla::Cancelar},
                    Caso{"manual,cobro=2000", "cobro:error=27", "cobro 1250", "no 0 0 27"},
                    Caso{"manual,cobro=2000", "cobro:parcial=27", "cobro 2000", "no 2000 0 27"},
                    Caso{"manual,cobro=2000", "cobro:error=31", "cobro 1250", "no 0 0 31"}));

// The link is gone for longer than the client waits; the operation goes on without it.
class OperacionesInterrumpidas : public testing::TestWithParam<Caso> {};

TEST_P(OperacionesInterrumpidas, EndWithOneAndTellTheTrueAmountsAtTheNextConnection) {
    Turno turno(GetParam());
    ASSERT_TRUE(turno.mostrador.bien);
    ASSERT_TRUE(turno.Conectar());
    const qint64 antes = turno.mostrador.Saldo();
    EXPECT_EQ(turno.Llamar(), QString::fromUtf8(GetParam().resultado));
    ASSERT_EQ(turno.log.lineas.size(), 1);
    EXPECT_TRUE(turno.log.lineas.first().startsWith(u">>> Operación interrumpida en Zorvex: "_s));
    ASSERT_TRUE(test::Esperar([&] { return turno.Conectar(); }));
    EXPECT_EQ(turno.mostrador.Saldo() - antes, QuedaSegunElLog(turno.log));
    // The second line tells of what was open there, and then it is forgotten.
    const bool empezada = !turno.mostrador.Sucesos().filter(u"inicio"_s).isEmpty();
    ASSERT_EQ(turno.log.lineas.size(), empezada ? 2 : 1);
    EXPECT_EQ(turno.log.CuentaInicio(u">>> Operación pendiente en Zorvex: "_s), empezada ? 1 : 0);
    turno.cliente.Disconnect();
    EXPECT_TRUE(turno.Conectar());
    EXPECT_EQ(turno.log.lineas.size(), empezada ? 2 : 1);
}

INSTANTIATE_TEST_SUITE_P(
    Todas, OperacionesInterrumpidas,
    testing::Values(
        Caso{"manual,cambio=1000", "cambio#1:cortar=antes+400", "cambio", "no 0 0 1"},
        Caso{"manual,cambio=1000+esperar", "cambio#1:cortar=durante+400", "cambio", "no 0 0 1"},
        Caso{"manual,cambio=1000", "cambio#1:cortar=despues+400", "cambio", "no 1000 1000 1"},
        Caso{"manual,ingreso=1000", "ingreso#1:cortar=antes+400", "ingreso", "no 0 0 1"},
        Caso{"manual,ingreso=1000+esperar", "ingreso#1:cortar=durante+400", "ingreso", "no 0 0 1"},
        Caso{"manual,ingreso=1000", "ingreso#1:cortar=despues+400", "ingreso", "no 1000 0 1"},
        Caso{"manual", "pago#1:cortar=antes+400", "pago 500", "no 0 0 1"},
        Caso{"manual", "pago#1:cortar=durante+400", "pago 500", "no 0 0 1"},
        Caso{"manual", "pago#1:cortar=despues+400", "pago 500", "no 0 500 1"}));

} // namespace
} // namespace zv::simulador

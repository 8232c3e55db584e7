// The key that ends a change or a float well, and gateways that know nothing of it.
#include "BancoPasarela.h"
#include "platform/StringLiterals.h"

#include <QCoreApplication>
#include <QTimer>

namespace zv {
namespace {

const QString kCambio = u"change.start"_s;
const QString kIngreso = u"addChange.start"_s;
const QString kTerminar = u"op.finish"_s;
const QString kEstado = u"op.status"_s;
const QString kFin = u"op.result"_s;

class GatewayClientTerminarTest : public BancoPasarela {
  protected:
    static QString Cambiar(GatewayClient& cliente) {
        qint32 entra = -1;
        qint32 sale = -1;
        bool bien = false;
        cliente.Change(entra, sale, bien);
        return u"%1 %2 %3 %4"_s.arg(bien ? u"ok"_s : u"no"_s)
            .arg(entra)
            .arg(sale)
            .arg(cliente.ErrorCode());
    }
    // Tells that it runs, and then its good end.
    static PasarelaGuion::Reaccion Obedece(const QString& metodo, qint64 entra, qint64 sale) {
        return [=](EnlaceGuion& enlace, const QJsonObject& peticion) {
            const QString op = PasarelaGuion::OpId(peticion);
            enlace.Contestar(peticion, PasarelaGuion::EnMarcha(op, metodo, entra, 0));
            enlace.Notificar(kFin, PasarelaGuion::Hecha(op, metodo, entra, sale));
        };
    }
    // Refuses, and lets the device's own key end the operation.
    static PasarelaGuion::Reaccion Niega(int codigo) {
        return [=](EnlaceGuion& enlace, const QJsonObject& peticion) {
            enlace.Rechazar(peticion, codigo, u"no"_s);
            enlace.Notificar(
                kFin, PasarelaGuion::Hecha(PasarelaGuion::OpId(peticion), kCambio, 2000, 2000));
        };
    }
    static PasarelaGuion::Reaccion Sigue(qint64 entra) {
        return Contesta(
            [entra](const QString& op) { return PasarelaGuion::EnMarcha(op, kCambio, entra, 0); });
    }
    // The cashier presses the key as soon as the note is in.
    void PulsarAlEntrar() {
        ventana.alProgresar = [this] {
            if (ventana.lineas.last() == QLatin1String("progreso 2000 0")) {
                ventana.Terminar();
            }
        };
    }
};

TEST_F(GatewayClientTerminarTest, EndsAChangeWell) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCambio, Empieza(2000));
    pasarela.Al(kTerminar, Obedece(kCambio, 2000, 2000));
    ventana.alProgresar = [this] {
        if (ventana.lineas.last() == QLatin1String("progreso 2000 0")) {
            ventana.Terminar();
            ventana.Terminar(); // a second press changes nothing
        }
    };
    EXPECT_EQ(Cambiar(cliente), u"ok 2000 2000 0"_s);
    EXPECT_EQ(ventana.lineas, Lista({"abrir 2 0 con terminar", "aviso ", "progreso 2000 0",
                                     "progreso 2000 2000", "cerrar"}));
    EXPECT_EQ(OpId(kTerminar), OpId(kCambio));
    EXPECT_TRUE(pasarela.Espera(u"op.ack"_s));
    EXPECT_EQ(pasarela.Metodos(), Lista({"session.hello", "change.start", "op.finish", "op.ack"}));
}

TEST_F(GatewayClientTerminarTest, EndsAFloatWell) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kIngreso, Empieza(2000));
    pasarela.Al(kTerminar, Obedece(kIngreso, 2000, 0));
    PulsarAlEntrar();
    qint32 entra = 0;
    bool bien = false;
    cliente.AddChange(entra, bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(entra, 2000);
    EXPECT_EQ(ventana.lineas.first(), u"abrir 3 0 con terminar"_s);
}

TEST_F(GatewayClientTerminarTest, HasTheKeyForNoOtherOperation) {
    GatewayClient& cliente = Conectado();
    bool bien = false;
    qint32 a = 0;
    qint32 b = 0;
    qint32 queda = 0;
    Cobrar(cliente);
    Cobrar(cliente, -300);
    cliente.Pay(500, a, bien);
    cliente.CashBoxControl(7, a, b, queda, bien);
    cliente.Connect(bien); // that answer lacked its amounts
    cliente.EmptyCB(1, a, bien);
    EXPECT_EQ(ventana.lineas.filter(u"abrir"_s).size(), 5);
    EXPECT_TRUE(ventana.lineas.filter(u"con terminar"_s).isEmpty());
}

TEST_F(GatewayClientTerminarTest, TakesAnyErrorForARefusalAndGoesOn) {
    for (const int codigo : {-32601, -32012, -32020, -32011, -32603}) {
        GatewayClient& cliente = Conectado();
        ventana.lineas.clear();
        pasarela.Al(kCambio, Empieza(2000));
        pasarela.Al(kTerminar, Niega(codigo));
        PulsarAlEntrar();
        EXPECT_EQ(Cambiar(cliente), u"ok 2000 2000 0"_s) << codigo;
        EXPECT_EQ(ventana.lineas.count(u"sin terminar"_s), 1) << codigo;
    }
}

TEST_F(GatewayClientTerminarTest, CanBeCancelledAfterARefusal) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCambio, Empieza(2000));
    pasarela.Al(kTerminar, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Rechazar(peticion, -32012, u"no"_s);
    });
    pasarela.Al(u"op.cancel"_s, Contesta([](const QString& op) {
                    return PasarelaGuion::Fallida(op, kCambio, 0, {}, 2000, 2000);
                }));
    PulsarAlEntrar();
    ventana.alNegar = [this] { ventana.Cancelar(); };
    EXPECT_EQ(Cambiar(cliente), u"no 2000 2000 0"_s);
}

TEST_F(GatewayClientTerminarTest, HasNoTimeLimitAfterARefusal) {
    GatewayOptions opciones = Rapidas();
    opciones.cancelacion = 20;
    GatewayClient& cliente = Conectado(opciones);
    pasarela.Al(kCambio, Empieza(2000));
    pasarela.Al(kTerminar, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Rechazar(peticion, -32601, u"no"_s);
    });
    PulsarAlEntrar();
    ventana.alNegar = [this] {
        QTimer::singleShot(100, qApp, [this] {
            pasarela.Notificar(kFin, PasarelaGuion::Hecha(OpId(kCambio), kCambio, 2000, 2000));
        });
    };
    EXPECT_EQ(Cambiar(cliente), u"ok 2000 2000 0"_s);
}

TEST_F(GatewayClientTerminarTest, KeepsAPressBeforeTheStartIsAnswered) {
    GatewayClient& cliente = Conectado();
    ventana.alAbrir = [this] { ventana.Terminar(); };
    pasarela.Al(kCambio, Empieza());
    pasarela.Al(kTerminar, Obedece(kCambio, 0, 0));
    EXPECT_EQ(Cambiar(cliente), u"ok 0 0 0"_s);
    EXPECT_EQ(pasarela.Recibidas(kTerminar).size(), 1);
}

TEST_F(GatewayClientTerminarTest, IsCancelledWhenTheCashierAsksForBoth) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCambio, Empieza(2000));
    pasarela.Al(kTerminar, Sigue(2000));
    pasarela.Al(u"op.cancel"_s, Contesta([](const QString& op) {
                    return PasarelaGuion::Fallida(op, kCambio, 0, {}, 2000, 2000);
                }));
    ventana.alProgresar = [this] {
        if (ventana.lineas.last() == QLatin1String("progreso 2000 0")) {
            ventana.Terminar();
            ventana.Cancelar();
            ventana.Terminar(); // too late
        }
    };
    EXPECT_EQ(Cambiar(cliente), u"no 2000 2000 0"_s);
    EXPECT_EQ(pasarela.Recibidas(kTerminar).size(), 1);
}

TEST_F(GatewayClientTerminarTest, AsksAgainWhenTheLinkTookTheRequestWithIt) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCambio, Empieza(2000));
    pasarela.Al(kTerminar, Corta());
    pasarela.Al(kEstado, Sigue(2000));
    pasarela.Al(kTerminar, Obedece(kCambio, 2000, 2000));
    PulsarAlEntrar();
    EXPECT_EQ(Cambiar(cliente), u"ok 2000 2000 0"_s);
    EXPECT_EQ(OpId(kTerminar, 0), OpId(kTerminar, 1));
    EXPECT_EQ(pasarela.Recibidas(kCambio).size(), 1);
}

TEST_F(GatewayClientTerminarTest, FindsTheEndThatItAskedForBeforeTheLinkWasLost) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCambio, Empieza(2000));
    pasarela.Al(kTerminar, Corta());
    pasarela.Al(kEstado, Contesta([](const QString& op) {
                    return PasarelaGuion::Hecha(op, kCambio, 2000, 2000);
                }));
    PulsarAlEntrar();
    EXPECT_EQ(Cambiar(cliente), u"ok 2000 2000 0"_s);
    EXPECT_EQ(pasarela.Recibidas(kTerminar).size(), 1);
}

TEST_F(GatewayClientTerminarTest, DoesNotAskAgainWhatHasBeenRefused) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCambio, Empieza(2000));
    pasarela.Al(kTerminar, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Rechazar(peticion, -32601, u"no"_s);
        enlace.Cortar();
    });
    pasarela.Al(kEstado, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        const QString op = PasarelaGuion::OpId(peticion);
        enlace.Contestar(peticion, PasarelaGuion::EnMarcha(op, kCambio, 2000, 0));
        enlace.Notificar(kFin, PasarelaGuion::Hecha(op, kCambio, 2000, 2000));
    });
    PulsarAlEntrar();
    EXPECT_EQ(Cambiar(cliente), u"ok 2000 2000 0"_s);
    EXPECT_EQ(pasarela.Recibidas(kTerminar).size(), 1);
}

TEST_F(GatewayClientTerminarTest, StartsAndEndsWhatNeverArrived) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCambio, Corta());
    pasarela.Al(kCambio, Empieza());
    pasarela.Al(kTerminar, Obedece(kCambio, 0, 0));
    ventana.alAvisar = [this] {
        if (ventana.lineas.last() != QLatin1String("aviso ")) {
            ventana.Terminar();
        }
    };
    EXPECT_EQ(Cambiar(cliente), u"ok 0 0 0"_s);
    EXPECT_EQ(OpId(kCambio, 0), OpId(kCambio, 1));
}

TEST_F(GatewayClientTerminarTest, GivesUpAnOperationThatNeverEnds) {
    GatewayOptions opciones = Rapidas();
    opciones.cancelacion = 60;
    GatewayClient& cliente = Conectado(opciones);
    pasarela.Al(kCambio, Empieza(2000));
    pasarela.Al(kTerminar, Sigue(2000));
    PulsarAlEntrar();
    EXPECT_EQ(Cambiar(cliente), u"no 2000 0 905"_s);
    EXPECT_EQ(cliente.ErrorMessage(), u"Zorvex no ha terminado la operación"_s);
}

} // namespace
} // namespace zv

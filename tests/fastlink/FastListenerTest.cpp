// The connections by themselves: what the system refuses, what a peer does not take, and an end
// that nobody announced.
#include "fastlink/FastListener.h"

#include "platform/StringLiterals.h"
#include "support/Esperas.h"
#include "support/ImprimeQt.h"
#include "support/NumeroError.h"
#include "support/SinPrivilegios.h"

#include <QFile>
#include <QHash>

#include <arpa/inet.h>
#include <csignal>
#include <gtest/gtest.h>
#include <linux/sockios.h>
#include <netinet/in.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <vector>

namespace zv::test {
namespace {

constexpr int kReanudarMs = 20;

// While it lives, this process can open nothing more.
class SinDescriptores {
  public:
    explicit SinDescriptores(rlim_t limite = Siguiente()) {
        ::getrlimit(RLIMIT_NOFILE, &antes_);
        rlimit ahora = antes_;
        ahora.rlim_cur = limite;
        ::setrlimit(RLIMIT_NOFILE, &ahora);
    }
    ~SinDescriptores() { ::setrlimit(RLIMIT_NOFILE, &antes_); }
    SinDescriptores(const SinDescriptores&) = delete;
    SinDescriptores& operator=(const SinDescriptores&) = delete;

  private:
    // The lowest number that is free.
    static rlim_t Siguiente() {
        return static_cast<rlim_t>(FileDescriptor(::dup(STDERR_FILENO)).Numero());
    }
    rlimit antes_{};
};

class FastListenerTest : public testing::Test {
  protected:
    // A client of bare calls; the system has accepted it when this returns.
    FileDescriptor Conectar() const { return Conectar(ws.Puerto()); }
    static FileDescriptor Conectar(quint16 puerto) {
        FileDescriptor cliente(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
        const int pequeño = 4096;
        ::setsockopt(cliente.Numero(), SOL_SOCKET, SO_RCVBUF, &pequeño, sizeof pequeño);
        sockaddr_in destino{};
        destino.sin_family = AF_INET;
        destino.sin_port = htons(puerto);
        destino.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_EQ(::connect(cliente.Numero(), reinterpret_cast<const sockaddr*>(&destino),
                            sizeof destino),
                  0);
        return cliente;
    }
    bool EsperaConectado(qint16 indice) {
        return Esperar([&] { return ws.Conectado(indice); });
    }
    bool EsperaCerrado(qint16 indice) {
        return Esperar([&] { return !ws.Conectado(indice); });
    }
    // What has come; whether the other side has hung up.
    struct Leido {
        QByteArray datos;
        bool fin = false;
    };
    static const Leido& Leer(const FileDescriptor& cliente, Leido& leido) {
        QByteArray trozo(65536, Qt::Uninitialized);
        for (;;) {
            const ssize_t n = ::recv(cliente.Numero(), trozo.data(),
                                     static_cast<std::size_t>(trozo.size()), MSG_DONTWAIT);
            if (n <= 0) {
                leido.fin = leido.fin || n == 0;
                return leido;
            }
            leido.datos.append(trozo.constData(), n);
        }
    }
    static ssize_t Enviar(const FileDescriptor& cliente, const QByteArray& datos) {
        return ::send(cliente.Numero(), datos.constData(), static_cast<std::size_t>(datos.size()),
                      MSG_DONTWAIT | MSG_NOSIGNAL);
    }
    // Says something and waits for the answer.
    static QByteArray Pregunta(const FileDescriptor& cliente) {
        ::send(cliente.Numero(), "hola", 4, MSG_NOSIGNAL);
        Leido leido;
        EXPECT_TRUE(Esperar([&] { return !Leer(cliente, leido).datos.isEmpty(); }));
        return leido.datos;
    }
    // Turns of the event loop, each with all that is ready.
    static void Vueltas(int cuantas) {
        for (int i = 0; i < cuantas; ++i) {
            QCoreApplication::processEvents();
        }
    }

    QHash<qint16, QByteArray> llegado;
    int piezas = 0;
    FastListener ws{QHostAddress(QHostAddress::LocalHost),
                    {[this](qint16 indice, const QByteArray& datos) {
                        llegado[indice] += datos;
                        ++piezas;
                        if (datos == "hola") {
                            ws.Enviar(indice, "eco");
                        }
                    }},
                    kReanudarMs};
};

TEST_F(FastListenerTest, WithoutDescriptorsItRestsAndThenAccepts) {
    ws.Escuchar(0);
    const FileDescriptor cliente = Conectar();
    {
        const SinDescriptores sin;
        Vueltas(5);
        EXPECT_FALSE(ws.Conectado(1));
        EXPECT_TRUE(ws.Escuchando());
    }
    EXPECT_TRUE(EsperaConectado(1));
}

TEST_F(FastListenerTest, ClosedWhileItRestsItStaysClosedAndOpensAgain) {
    ws.Escuchar(0);
    const FileDescriptor cliente = Conectar();
    {
        const SinDescriptores sin;
        Vueltas(5);
    }
    ws.DejarDeEscuchar();
    bool pasado = false;
    QTimer::singleShot(kReanudarMs * 3, [&] { pasado = true; });
    ASSERT_TRUE(Esperar([&] { return pasado; }));
    EXPECT_FALSE(ws.Escuchando());
    EXPECT_EQ(ws.NumSockets(), 0);
    ws.Escuchar(0);
    const FileDescriptor otro = Conectar();
    EXPECT_TRUE(EsperaConectado(1));
}

TEST_F(FastListenerTest, BeyondItsMeansItRefusesAndServesThoseThatAreConnected) {
    constexpr qint16 kMaximo = 128; // of a process that may open few
    std::unique_ptr<FastListener> pocos;
    {
        const SinDescriptores sin(200);
        pocos =
            std::make_unique<FastListener>(QHostAddress(QHostAddress::LocalHost),
                                           ListenerCallbacks{[&](qint16 indice, const QByteArray&) {
                                               pocos->Enviar(indice, "ya");
                                           }});
    }
    pocos->Escuchar(0);
    std::vector<FileDescriptor> clientes;
    for (qint16 i = 1; i <= kMaximo; ++i) {
        clientes.push_back(Conectar(pocos->Puerto()));
        ASSERT_TRUE(Esperar([&] { return pocos->Conectado(i); })) << i;
    }
    const FileDescriptor sobra = Conectar(pocos->Puerto());
    Leido leido;
    EXPECT_TRUE(Esperar([&] { return Leer(sobra, leido).fin; }));
    EXPECT_EQ(pocos->NumSockets(), kMaximo);
    EXPECT_EQ(Pregunta(clientes[0]), QByteArray("ya"));

    // One that goes leaves its place.
    clientes[6] = FileDescriptor();
    ASSERT_TRUE(Esperar([&] { return !pocos->Conectado(7); }));
    const FileDescriptor siguiente = Conectar(pocos->Puerto());
    EXPECT_TRUE(Esperar([&] { return pocos->Conectado(7); }));
    EXPECT_EQ(Pregunta(siguiente), QByteArray("ya"));
}

TEST_F(FastListenerTest, AllThatIsPendingIsOnePiece) {
    ws.Escuchar(0);
    const FileDescriptor cliente = Conectar();
    ASSERT_TRUE(EsperaConectado(1));
    // The system lets more of a connection wait, once it has carried something.
    const QByteArray trozo(1'000'000, 'x');
    for (int i = 0; i < 10; ++i) {
        llegado.clear();
        qsizetype enviado = 0;
        ASSERT_TRUE(Esperar([&] {
            enviado += std::max<ssize_t>(0, Enviar(cliente, trozo.left(trozo.size() - enviado)));
            return llegado.value(1).size() == trozo.size();
        }));
    }
    llegado.clear();
    piezas = 0;
    const ssize_t enviado = Enviar(cliente, trozo.left(100'000));
    ASSERT_EQ(enviado, 100'000);
    int camino = 1; // bytes that the other side has not got yet
    for (int i = 0; camino > 0 && i < 1'000'000; ++i) {
        ::ioctl(cliente.Numero(), SIOCOUTQ, &camino);
    }
    ASSERT_EQ(camino, 0);
    ASSERT_TRUE(Esperar([&] { return llegado.value(1).size() == enviado; }));
    EXPECT_EQ(piezas, 1);
}

TEST_F(FastListenerTest, WhatThePeerDoesNotTakeAtOnceWaitsInItsOrder) {
    ws.Escuchar(0);
    const QByteArray trozo(100'000, 'x');
    // How much a peer that takes nothing is sent before it is given up.
    const FileDescriptor mudo = Conectar();
    ASSERT_TRUE(EsperaConectado(1));
    int tope = 0;
    while (ws.Conectado(1) && tope < 1000) {
        ws.Enviar(1, trozo);
        ++tope;
    }
    ASSERT_FALSE(ws.Conectado(1));
    ASSERT_GT(tope, 10);

    // Half a megabyte less waits here, behind what the system has taken.
    const FileDescriptor lento = Conectar();
    ASSERT_TRUE(EsperaConectado(1));
    QByteArray todo;
    for (int i = 0; i < tope - 5; ++i) {
        const QByteArray numerado = QByteArray::number(i) + trozo;
        ws.Enviar(1, numerado);
        todo += numerado;
    }
    ASSERT_TRUE(ws.Conectado(1));
    Leido leido;
    EXPECT_TRUE(Esperar([&] { return Leer(lento, leido).datos.size() >= todo.size(); }));
    EXPECT_TRUE(leido.datos == todo) << leido.datos.size() << " of " << todo.size();
    EXPECT_EQ(Pregunta(lento), QByteArray("eco"));
    // Nothing of the one that was given up comes to its successor.
    EXPECT_TRUE(leido.datos.startsWith("0x"));
}

TEST_F(FastListenerTest, APeerThatVanishedIsClosedBySending) {
    ws.Escuchar(0);
    FileDescriptor cliente = Conectar();
    ASSERT_TRUE(EsperaConectado(1));
    cliente = FileDescriptor();
    // Before the event loop knows; the process lives on, though nobody has told it to ignore that.
    const auto antes = ::signal(SIGPIPE, SIG_DFL);
    ws.Enviar(1, "uno");
    ws.Enviar(1, "dos");
    ::signal(SIGPIPE, antes);
    EXPECT_FALSE(ws.Conectado(1));
    ws.Enviar(1, "tres");
    ws.Enviar(2, "nadie");
    const FileDescriptor otro = Conectar();
    ASSERT_TRUE(EsperaConectado(1));
    EXPECT_EQ(Pregunta(otro), QByteArray("eco"));
}

TEST_F(FastListenerTest, AResetConnectionIsClosed) {
    ws.Escuchar(0);
    FileDescriptor cliente = Conectar();
    ASSERT_TRUE(EsperaConectado(1));
    const linger sinDespedida{1, 0};
    ::setsockopt(cliente.Numero(), SOL_SOCKET, SO_LINGER, &sinDespedida, sizeof sinDespedida);
    cliente = FileDescriptor();
    EXPECT_TRUE(EsperaCerrado(1));
    EXPECT_TRUE(llegado.isEmpty());
}

TEST_F(FastListenerTest, HalfClosedCountsAsGone) {
    ws.Escuchar(0);
    const FileDescriptor cliente = Conectar();
    ASSERT_TRUE(EsperaConectado(1));
    ::send(cliente.Numero(), "adios", 5, MSG_NOSIGNAL);
    ::shutdown(cliente.Numero(), SHUT_WR);
    EXPECT_TRUE(EsperaCerrado(1));
    EXPECT_EQ(llegado.value(1), QByteArray("adios"));
}

TEST_F(FastListenerTest, EveryFailureToListenHasItsNumber) {
    FastListener ajena(QHostAddress(u"203.0.113.1"_s), {});
    EXPECT_EQ(NumeroError([&] { ajena.Escuchar(0); }), 10022);
    EXPECT_EQ(NumeroError([&] { ws.Escuchar(-1); }), 380);
    EXPECT_EQ(NumeroError([&] { ws.Escuchar(65536); }), 380);
    QFile primero(u"/proc/sys/net/ipv4/ip_unprivileged_port_start"_s);
    if (primero.open(QIODevice::ReadOnly) && primero.readAll().trimmed().toInt() > 80) {
        const SinPrivilegios nadie;
        EXPECT_EQ(NumeroError([&] { ws.Escuchar(80); }), 10013);
    }
    ws.Escuchar(0);
    FastListener otra(QHostAddress(QHostAddress::LocalHost), {});
    EXPECT_EQ(NumeroError([&] { otra.Escuchar(ws.Puerto()); }), 10048);
    EXPECT_FALSE(otra.Escuchando());
}

} // namespace
} // namespace zv::test

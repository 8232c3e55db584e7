// Load for the fast link, from outside: clients that send one message after its answer.
//   bench_fast_load turns  ADDRESS PORT MESSAGES PREFIX           one client, "C" then "S"
//   bench_fast_load many   ADDRESS PORT CLIENTS MESSAGES CHARGES PREFIX
//                          clients at once; of MESSAGES in all, CHARGES are "C", the rest "S"
//   bench_fast_load state  ADDRESS PORT MESSAGES FIRST LAST       "S" of P<n>, n from FIRST to LAST
//   bench_fast_load hold   ADDRESS PORT CLIENTS SECONDS           open connections that say nothing
//   bench_fast_load bare   DATABASE ROWS PREFIX                   the same rows by bare sqlite3
//   calls
// Every answer is checked; an answer too many, a wrong one, or none within ten seconds ends it
// with 1. Charges that were answered "OK|Added" are written to stdout of "many" with --list.
#include "Medida.h"

#include <arpa/inet.h>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <netinet/tcp.h>
#include <poll.h>
#include <random>
#include <sqlite3.h>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
constexpr int kPlazoMs = 10000;
constexpr int kSilencioMs = 500;

[[noreturn]] void Fin(const std::string& motivo) {
    std::fprintf(stderr, "bench_fast_load: %s\n", motivo.c_str());
    std::exit(EXIT_FAILURE);
}

int Numero(const char* texto) {
    return static_cast<int>(std::strtol(texto, nullptr, 10));
}

int Conectar(const char* direccion, int puerto) {
    const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in destino{};
    destino.sin_family = AF_INET;
    destino.sin_port = htons(static_cast<std::uint16_t>(puerto));
    if (fd < 0 || ::inet_pton(AF_INET, direccion, &destino.sin_addr) != 1 ||
        ::connect(fd, reinterpret_cast<sockaddr*>(&destino), sizeof destino) != 0) {
        Fin(std::string("no connection: ") + std::strerror(errno));
    }
    const int si = 1;
    ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &si, sizeof si);
    return fd;
}

void Enviar(int fd, const std::string& mensaje) {
    if (::send(fd, mensaje.data(), mensaje.size(), MSG_NOSIGNAL) !=
        static_cast<ssize_t>(mensaje.size())) {
        Fin("the connection is gone");
    }
}

std::string Recibir(int fd) {
    pollfd espera{fd, POLLIN, 0};
    if (::poll(&espera, 1, kPlazoMs) != 1) {
        Fin("no answer");
    }
    std::array<char, 256> datos{};
    const ssize_t n = ::recv(fd, datos.data(), datos.size(), 0);
    if (n <= 0) {
        Fin("the connection is gone");
    }
    return {datos.data(), static_cast<std::size_t>(n)};
}

void Exigir(const std::string& respuesta, bool cobro) {
    const bool bien =
        cobro ? respuesta == "OK|Added" : respuesta == "OK|PENDING" || respuesta == "OK|OK";
    if (!bien) {
        Fin("answer \"" + respuesta + "\"");
    }
}

std::string Cobro(const std::string& id) {
    return "C|" + id + "|1250|A-17|3|TPV1|Ana|EFECTIVO";
}

void Mostrar(const char* que, std::vector<double> tiempos) {
    const auto resumen = zv::bench::Resumir(std::move(tiempos));
    std::printf("%s: median %.2f ms, worst %.2f ms\n", que, resumen.medianaUs / 1000,
                resumen.peorUs / 1000);
}

int Turnos(const char* direccion, int puerto, int mensajes, const std::string& prefijo) {
    const int fd = Conectar(direccion, puerto);
    std::vector<double> todos;
    std::vector<double> cobros;
    std::vector<double> estados;
    for (int i = 0; i < mensajes; ++i) {
        const bool cobro = i % 2 == 0;
        const std::string id = prefijo + std::to_string(i / 2);
        const auto inicio = Clock::now();
        Enviar(fd, cobro ? Cobro(id) : "S|" + id);
        Exigir(Recibir(fd), cobro);
        const double us = std::chrono::duration<double, std::micro>(Clock::now() - inicio).count();
        todos.push_back(us);
        (cobro ? cobros : estados).push_back(us);
    }
    ::close(fd);
    Mostrar("C", std::move(cobros));
    Mostrar("S", std::move(estados));
    Mostrar("all", std::move(todos));
    return EXIT_SUCCESS;
}

struct Cliente {
    int fd = -1;
    int enviados = 0;
    int cobros = 0;
    bool cobro = false; // what is waited for
    Clock::time_point desde;
};

int Muchos(const char* direccion, int puerto, int cuantos, int mensajes, int cobros,
           const std::string& prefijo, bool lista) {
    std::vector<Cliente> clientes(static_cast<std::size_t>(cuantos));
    std::vector<pollfd> esperas;
    for (Cliente& c : clientes) {
        c.fd = Conectar(direccion, puerto);
        esperas.push_back({c.fd, POLLIN, 0});
    }
    const int porCliente = mensajes / cuantos;
    const int cobrosPorCliente = cobros / cuantos;
    const auto id = [&](std::size_t quien, int cual) {
        return prefijo + std::to_string(quien) + "-" + std::to_string(cual);
    };
    // Charges are spread evenly; each client asks for the last one that it has queued.
    const auto enviar = [&](std::size_t quien) {
        Cliente& c = clientes[quien];
        c.cobro = c.cobros == 0 || static_cast<long>(c.enviados) * cobrosPorCliente >=
                                       static_cast<long>(c.cobros) * porCliente;
        c.cobros += c.cobro ? 1 : 0;
        ++c.enviados;
        c.desde = Clock::now();
        Enviar(c.fd, c.cobro ? Cobro(id(quien, c.cobros - 1)) : "S|" + id(quien, c.cobros - 1));
    };
    std::vector<double> tiempos;
    tiempos.reserve(static_cast<std::size_t>(mensajes));
    int quedan = porCliente * cuantos;
    const auto inicio = Clock::now();
    for (std::size_t i = 0; i < clientes.size(); ++i) {
        enviar(i);
    }
    while (quedan > 0) {
        if (::poll(esperas.data(), esperas.size(), kPlazoMs) <= 0) {
            Fin("no answer");
        }
        for (std::size_t i = 0; i < clientes.size(); ++i) {
            if ((esperas[i].revents & (POLLIN | POLLHUP | POLLERR)) == 0) {
                continue;
            }
            Cliente& c = clientes[i];
            Exigir(Recibir(c.fd), c.cobro);
            tiempos.push_back(
                std::chrono::duration<double, std::micro>(Clock::now() - c.desde).count());
            if (lista && c.cobro) {
                std::printf("%s\n", id(i, c.cobros - 1).c_str());
                std::fflush(stdout);
            }
            --quedan;
            if (c.enviados < porCliente) {
                enviar(i);
            }
        }
    }
    const double segundos = std::chrono::duration<double>(Clock::now() - inicio).count();
    int hechos = 0;
    for (const Cliente& c : clientes) {
        hechos += c.cobros;
    }
    if (!lista) {
        std::printf("%d clients, %zu messages, %d of them charges, in %.2f s: %.0f answers a "
                    "second\n",
                    cuantos, tiempos.size(), hechos, segundos,
                    static_cast<double>(tiempos.size()) / segundos);
        Mostrar("answer", std::move(tiempos));
        std::fflush(stdout);
    }
    // An answer too many would come now.
    if (::poll(esperas.data(), esperas.size(), kSilencioMs) != 0) {
        Fin("an answer that nobody asked for");
    }
    for (const Cliente& c : clientes) {
        ::close(c.fd);
    }
    return EXIT_SUCCESS;
}

int Estados(const char* direccion, int puerto, int mensajes, int primero, int ultimo) {
    const int fd = Conectar(direccion, puerto);
    std::mt19937 azar(20260314); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same run each time
    std::uniform_int_distribution<int> cual(primero, ultimo);
    std::vector<double> tiempos;
    for (int i = 0; i < mensajes; ++i) {
        const auto inicio = Clock::now();
        Enviar(fd, "S|P" + std::to_string(cual(azar)));
        Exigir(Recibir(fd), false);
        tiempos.push_back(std::chrono::duration<double, std::micro>(Clock::now() - inicio).count());
    }
    ::close(fd);
    Mostrar("S", std::move(tiempos));
    return EXIT_SUCCESS;
}

int Mantener(const char* direccion, int puerto, int cuantos, int segundos) {
    std::vector<int> abiertos;
    for (int i = 0; i < cuantos; ++i) {
        abiertos.push_back(Conectar(direccion, puerto));
    }
    std::printf("open\n");
    std::fflush(stdout);
    std::this_thread::sleep_for(std::chrono::seconds(segundos));
    for (const int fd : abiertos) {
        ::close(fd);
    }
    return EXIT_SUCCESS;
}

// What any program would do: one row, one durable commit.
int Desnudo(const char* ruta, int filas, const std::string& prefijo) {
    sqlite3* base = nullptr;
    sqlite3_stmt* buscar = nullptr;
    sqlite3_stmt* poner = nullptr;
    if (sqlite3_open(ruta, &base) != SQLITE_OK ||
        sqlite3_exec(base, "PRAGMA synchronous=FULL", nullptr, nullptr, nullptr) != SQLITE_OK ||
        sqlite3_busy_timeout(base, kPlazoMs) != SQLITE_OK ||
        sqlite3_prepare_v2(base, "SELECT 1 FROM cola WHERE id1=?", -1, &buscar, nullptr) !=
            SQLITE_OK ||
        sqlite3_prepare_v2(
            base,
            "INSERT INTO cola (fecha,importe,id1,id2,idcaja,terminal,vendedor,"
            "formapago,creditoError) VALUES "
            "(datetime('now','localtime'),1250,?,'A-17',3,'TPV1','Ana','EFECTIVO',0)",
            -1, &poner, nullptr) != SQLITE_OK) {
        Fin(sqlite3_errmsg(base));
    }
    std::vector<double> tiempos;
    for (int i = 0; i < filas; ++i) {
        const std::string id = prefijo + std::to_string(i);
        const auto inicio = Clock::now();
        for (sqlite3_stmt* sentencia : {buscar, poner}) {
            sqlite3_bind_text(sentencia, 1, id.c_str(), -1, SQLITE_TRANSIENT);
            if (sqlite3_step(sentencia) != SQLITE_DONE) {
                Fin(sqlite3_errmsg(base));
            }
            sqlite3_reset(sentencia);
        }
        tiempos.push_back(std::chrono::duration<double, std::micro>(Clock::now() - inicio).count());
    }
    sqlite3_finalize(buscar);
    sqlite3_finalize(poner);
    sqlite3_close(base);
    Mostrar("bare", std::move(tiempos));
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    const std::string modo = argc > 1 ? argv[1] : "";
    if (modo == "turns" && argc == 6) {
        return Turnos(argv[2], Numero(argv[3]), Numero(argv[4]), argv[5]);
    }
    if (modo == "many" && (argc == 8 || (argc == 9 && std::string(argv[8]) == "--list"))) {
        return Muchos(argv[2], Numero(argv[3]), Numero(argv[4]), Numero(argv[5]), Numero(argv[6]),
                      argv[7], argc == 9);
    }
    if (modo == "state" && argc == 7) {
        return Estados(argv[2], Numero(argv[3]), Numero(argv[4]), Numero(argv[5]), Numero(argv[6]));
    }
    if (modo == "hold" && argc == 6) {
        return Mantener(argv[2], Numero(argv[3]), Numero(argv[4]), Numero(argv[5]));
    }
    if (modo == "bare" && argc == 5) {
        return Desnudo(argv[2], Numero(argv[3]), argv[4]);
    }
    std::fputs("usage: see the head of bench/fast_load.cpp\n", stderr);
    return 2;
}

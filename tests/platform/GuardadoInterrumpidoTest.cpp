// Programs killed in the middle of saving: what they leave is the old text or the new one.
#include "platform/PrivateProfile.h"
#include "platform/RegistryTree.h"
#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"

#include <QElapsedTimer>

#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace zv {
namespace {

using test::CarpetaTemporal;

// Runs guardar(1), guardar(2)... in a process of its own and kills it at a random point after some
// saves have been told done. Answers the number of the last one that is known to be done.
int GuardarHastaMorir(const std::function<void(int)>& guardar, std::mt19937& azar) {
    int tubo[2] = {-1, -1};
    EXPECT_EQ(::pipe(tubo), 0);
    const pid_t hijo = ::fork();
    if (hijo == 0) {
        ::close(tubo[0]);
        for (int i = 1;; ++i) {
            guardar(i);
            if (::write(tubo[1], &i, sizeof i) != sizeof i) {
                ::_exit(1);
            }
        }
    }
    ::close(tubo[1]);
    const int guardados = static_cast<int>(1 + azar() % 3);
    int ultimo = 0;
    while (ultimo < guardados && ::read(tubo[0], &ultimo, sizeof ultimo) == sizeof ultimo) {
    }
    const qint64 nanosegundos = static_cast<qint64>(azar() % 1500000);
    QElapsedTimer reloj;
    reloj.start();
    while (reloj.nsecsElapsed() < nanosegundos) {
    }
    EXPECT_EQ(::kill(hijo, SIGKILL), 0);
    int estado = 0;
    EXPECT_EQ(::waitpid(hijo, &estado, 0), hijo);
    EXPECT_TRUE(WIFSIGNALED(estado)) << "the process ended by itself";
    // Done and told, perhaps, between the last look and the kill.
    int otro = 0;
    while (::read(tubo[0], &otro, sizeof otro) == sizeof otro) {
        ultimo = otro;
    }
    ::close(tubo[0]);
    return ultimo;
}

constexpr int kVueltas = 50;

// Long enough for a write to take several steps of the system.
QString Relleno(int i) {
    return QString::number(i) + u':' + QString(20000, QChar(u'a' + i % 26));
}

TEST(GuardadoInterrumpido, LeavesTheOldOrTheNewIniFile) {
    const CarpetaTemporal carpeta;
    const QByteArray antes = "; nota\r\n[A]\r\nx=Espa\xF1"
                             "a\r\nk=";
    const QByteArray despues = "\r\n[B]\r\ny=1\r\n";
    std::mt19937 azar(1); // NOLINT(bugprone-random-generator-seed): repeatable
    for (int vuelta = 0; vuelta < kVueltas; ++vuelta) {
        const QString ruta = carpeta.Pon(u"ZVMonitor.ini"_s, antes + "0:" + despues);
        const int ultimo = GuardarHastaMorir(
            [&](int i) { perfil::Escribir(ruta, u"A"_s, u"k"_s, Relleno(i)); }, azar);
        const QByteArray bytes = carpeta.Lee(u"ZVMonitor.ini"_s);
        const bool esUltimo = bytes == antes + Relleno(ultimo).toLatin1() + despues;
        const bool esSiguiente = bytes == antes + Relleno(ultimo + 1).toLatin1() + despues;
        ASSERT_TRUE(esUltimo || esSiguiente)
            << "round " << vuelta << ", " << bytes.size() << " bytes after save " << ultimo;
    }
    // What killed saves leave: some of them were really caught half way.
    EXPECT_GT(carpeta.Entradas().size(), 1);
}

TEST(GuardadoInterrumpido, LeavesTheOldOrTheNewRegistryValue) {
    const CarpetaTemporal carpeta;
    std::mt19937 azar(2); // NOLINT(bugprone-random-generator-seed): repeatable
    const RegistryName nombre{u"Zorvex\\ZVMonitor"_s, u"Saldo_Exit"_s};
    for (int vuelta = 0; vuelta < kVueltas; ++vuelta) {
        RegistryTree registry(carpeta.Ruta());
        registry.GuardarValor(nombre, u"0:"_s);
        const int ultimo =
            GuardarHastaMorir([&](int i) { registry.GuardarValor(nombre, Relleno(i)); }, azar);
        const QString leido = registry.LeerValor(nombre, {});
        ASSERT_TRUE(leido == Relleno(ultimo) || leido == Relleno(ultimo + 1))
            << "round " << vuelta << ", " << leido.size() << " after save " << ultimo;
    }
}

} // namespace
} // namespace zv

// Starting programs and opening addresses. What is started tells about itself through a pipe.
#include "platform/Shell.h"

#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"

#include <array>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zv {
namespace {

class ShellReal : public testing::Test {
  protected:
    ShellReal() {
        const QByteArray ruta = QFile::encodeName(carpeta.Ruta(QStringLiteral("tubo")));
        EXPECT_EQ(::mkfifo(ruta.constData(), 0600), 0);
        tubo = ::open(ruta.constData(), O_RDWR | O_CLOEXEC);
    }
    ~ShellReal() override { ::close(tubo); }

    // A program that writes its folder and its arguments into the pipe.
    QString Programa(const QString& nombre) const {
        QString ruta = carpeta.Pon(
            nombre, "#!/bin/sh\nprintf '%s' \"$(pwd)|$*\" > '" +
                        QFile::encodeName(carpeta.Ruta(QStringLiteral("tubo"))) + "'\n");
        EXPECT_EQ(::chmod(QFile::encodeName(ruta).constData(), 0755), 0);
        return ruta;
    }
    QString LoQueDice() const {
        struct pollfd espera {
            tubo, POLLIN, 0
        };
        if (::poll(&espera, 1, 20000) != 1) {
            return QStringLiteral("(nothing)");
        }
        std::array<char, 4096> bytes{};
        const ssize_t n = ::read(tubo, bytes.data(), bytes.size());
        return QFile::decodeName(QByteArray(bytes.data(), n));
    }

    test::CarpetaTemporal carpeta;
    int tubo = -1;
};

TEST_F(ShellReal, StartsAProgramInItsWorkingFolder) {
    const QString programa = Programa(QStringLiteral("mi programa.sh"));
    const QString donde = carpeta.PonCarpeta(QStringLiteral("aquí"));
    EXPECT_TRUE(ShellSistema().Abrir(programa, donde));
    EXPECT_EQ(LoQueDice(), QFileInfo(donde).canonicalFilePath() + u'|');
}

TEST_F(ShellReal, OpensAnAddressAndADocumentWithTheDesktopsOpener) {
    ShellSistema shell(Programa(QStringLiteral("abridor")));
    EXPECT_TRUE(shell.AbrirDireccion(QStringLiteral("https://example.org/a?b=c d;e")));
    EXPECT_TRUE(LoQueDice().endsWith(QStringLiteral("|https://example.org/a?b=c d;e")));
    const QString documento = carpeta.Pon(QStringLiteral("manual.pdf"), "x");
    EXPECT_TRUE(shell.Abrir(documento, {}));
    EXPECT_TRUE(LoQueDice().endsWith(u'|' + documento));
}

TEST_F(ShellReal, TellsWhenNothingCouldBeStarted) {
    ShellSistema shell(carpeta.Ruta(QStringLiteral("no-hay-abridor")));
    EXPECT_FALSE(shell.Abrir(carpeta.Ruta(QStringLiteral("no-hay")), {}));
    EXPECT_FALSE(shell.Abrir(QString(), {}));
    EXPECT_FALSE(shell.Abrir(QStringLiteral("no-hay-tal-programa-en-el-sistema"), {}));
    EXPECT_FALSE(shell.AbrirDireccion(QStringLiteral("https://example.org")));
    EXPECT_FALSE(shell.AbrirDireccion(QString()));
    EXPECT_FALSE(shell.Abrir(Programa(QStringLiteral("p.sh")),
                             carpeta.Ruta(QStringLiteral("no-hay-carpeta"))));
}

} // namespace
} // namespace zv

// Starting programs and opening addresses. What is started tells about itself through a pipe.
#include "platform/Shell.h"

#include "platform/StringLiterals.h"
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
        const QByteArray ruta = QFile::encodeName(carpeta.Ruta(u"tubo"_s));
        EXPECT_EQ(::mkfifo(ruta.constData(), 0600), 0);
        tubo = ::open(ruta.constData(), O_RDWR | O_CLOEXEC);
    }
    ~ShellReal() override { ::close(tubo); }

    // A program that writes its folder and its arguments into the pipe.
    QString Programa(const QString& nombre) const {
        QString ruta = carpeta.Pon(nombre, "#!/bin/sh\nprintf '%s' \"$(pwd)|$*\" > '" +
                                               QFile::encodeName(carpeta.Ruta(u"tubo"_s)) + "'\n");
        EXPECT_EQ(::chmod(QFile::encodeName(ruta).constData(), 0755), 0);
        return ruta;
    }
    QString LoQueDice() const {
        struct pollfd espera {
            tubo, POLLIN, 0
        };
        if (::poll(&espera, 1, 20000) != 1) {
            return u"(nothing)"_s;
        }
        std::array<char, 4096> bytes{};
        const ssize_t n = ::read(tubo, bytes.data(), bytes.size());
        return QFile::decodeName(QByteArray(bytes.data(), n));
    }

    test::CarpetaTemporal carpeta;
    int tubo = -1;
};

TEST_F(ShellReal, StartsAProgramInItsWorkingFolder) {
    const QString programa = Programa(u"mi programa.sh"_s);
    const QString donde = carpeta.PonCarpeta(u"aquí"_s);
    EXPECT_TRUE(ShellSistema().Abrir(programa, donde));
    EXPECT_EQ(LoQueDice(), QFileInfo(donde).canonicalFilePath() + u'|');
}

TEST_F(ShellReal, OpensAnAddressAndADocumentWithTheDesktopsOpener) {
    ShellSistema shell(Programa(u"abridor"_s));
    EXPECT_TRUE(shell.AbrirDireccion(u"https://example.org/a?b=c d;e"_s));
    EXPECT_TRUE(LoQueDice().endsWith(u"|https://example.org/a?b=c d;e"_s));
    const QString documento = carpeta.Pon(u"manual.pdf"_s, "x");
    EXPECT_TRUE(shell.Abrir(documento, {}));
    EXPECT_TRUE(LoQueDice().endsWith(u'|' + documento));
}

TEST_F(ShellReal, TellsWhenNothingCouldBeStarted) {
    ShellSistema shell(carpeta.Ruta(u"no-hay-abridor"_s));
    EXPECT_FALSE(shell.Abrir(carpeta.Ruta(u"no-hay"_s), {}));
    EXPECT_FALSE(shell.Abrir(QString(), {}));
    EXPECT_FALSE(shell.Abrir(u"no-hay-tal-programa-en-el-sistema"_s, {}));
    EXPECT_FALSE(shell.AbrirDireccion(u"https://example.org"_s));
    EXPECT_FALSE(shell.AbrirDireccion(QString()));
    EXPECT_FALSE(shell.Abrir(Programa(u"p.sh"_s), carpeta.Ruta(u"no-hay-carpeta"_s)));
}

} // namespace
} // namespace zv

#include "config/BancoConfig.h"
#include "platform/StringLiterals.h"

#include <sys/stat.h>

namespace zv {
namespace {

class MarcaActivoTest : public BancoConfig {
  protected:
    // Changes with every write of the value, also of the same text.
    quint64 Identidad() const {
        struct stat datos {};
        const QString fichero = carpeta.Ruta(u"Registro/HKLM/Software/Zorvex/ZVMonitor/Activo"_s);
        EXPECT_EQ(::stat(QFile::encodeName(fichero).constData(), &datos), 0);
        return datos.st_ino;
    }
    void Pon(const char* valor) {
        registry.GuardarValor(u"Zorvex\\ZVMonitor"_s, u"Activo"_s, QString::fromUtf8(valor));
    }
    MarcaActivo marca{registry};
};

TEST_F(MarcaActivoTest, IsOneWhileBusyAndZeroAfterwards) {
    marca.MarcarActivo(true);
    EXPECT_EQ(Registrado("Activo"), u"1"_s);
    marca.MarcarActivo(false);
    EXPECT_EQ(Registrado("Activo"), u"0"_s);
}

TEST_F(MarcaActivoTest, TrueIsWrittenWithoutALook) {
    Pon("1");
    const auto antes = Identidad();
    marca.MarcarActivo(true);
    EXPECT_NE(Identidad(), antes);
}

TEST_F(MarcaActivoTest, AQuietSystemWritesNothing) {
    marca.MarcarActivo(false);
    EXPECT_FALSE(carpeta.Esta(u"Registro"_s));
    for (const char* quieto : {"0", "", "2", "no"}) {
        Pon(quieto);
        const auto antes = Identidad();
        marca.MarcarActivo(false);
        EXPECT_EQ(Identidad(), antes);
        EXPECT_EQ(Registrado("Activo"), QString::fromUtf8(quieto));
    }
}

TEST_F(MarcaActivoTest, AMarkThatAnotherProgramWroteIsTakenBack) {
    carpeta.Pon(u"Registro/HKLM/Software/Zorvex/ZVMonitor/Activo"_s, "1\n");
    marca.MarcarActivo(false);
    EXPECT_EQ(Registrado("Activo"), u"0"_s);
}

} // namespace
} // namespace zv

// The arrays of texts against the English language file that comes with the program.
#include "device/Claves.h"

#include "config/Modo.h"
#include "engine/Claves.h"
#include "platform/StringLiterals.h"
#include "support/IdiomaIngles.h"
#include "support/ImprimeQt.h"

#include <span>

namespace zv::test {
namespace {

struct Carpeta {
    const char* nombre;
    std::span<const Clave> claves;
};

const Carpeta kCarpetas[] = {
    {"device", texto::kClavesDevice},
    {"engine", texto::kClavesEngine},
};

class ClavesTest : public testing::Test {
  protected:
    IdiomaIngles idioma_;
};

TEST_F(ClavesTest, EveryEntryHasItsEnglishText) {
    for (const Carpeta& carpeta : kCarpetas) {
        for (const Clave& clave : carpeta.claves) {
            const auto valor = idioma_.documento.Valor(clave.Seccion(), clave.Nombre());
            EXPECT_TRUE(valor && !valor->isEmpty())
                << carpeta.nombre << ": " << clave.Seccion().toStdString() << " "
                << clave.Nombre().toStdString();
        }
    }
}

TEST_F(ClavesTest, ButtonsOfTheModesGiveTheModes) {
    const QString modos[] = {modo::kAuto, modo::kManual, modo::kSemi};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(texto::kModos[i]->Nombre(), u"btnModo_%1"_s.arg(i));
        EXPECT_EQ(texto::kModos[i]->PorDefecto(), modos[i]);
    }
}

} // namespace
} // namespace zv::test

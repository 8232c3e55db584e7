// A till without a printer. What needs one is tested against a print server of its own.
#include "ui/screens/ImpresoraSistema.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest.h>

namespace zv::test {
namespace {

TEST(ImpresoraSistema, WithoutAPrinterTheFirstLineFails) {
    const CarpetaTemporal carpeta;
    qputenv("CUPS_SERVER", QFile::encodeName(carpeta.Ruta(u"nadie.sock"_s)));
    ImpresoraSistema impresora(u"Caja"_s);
    // As long as it is not there, each time anew.
    for (int vez = 0; vez < 2; ++vez) {
        try {
            impresora.Escribir(u"x"_s, true);
            FAIL() << "printed on nothing";
        } catch (const ErrorEjecucion& e) {
            EXPECT_EQ(e.Numero(), 482);
            EXPECT_EQ(e.Descripcion(), u"Error de impresora (no hay ninguna)"_s);
        }
    }
    EXPECT_NO_THROW(impresora.Abandonar());
    EXPECT_NO_THROW(impresora.TerminarDocumento());
}

} // namespace
} // namespace zv::test

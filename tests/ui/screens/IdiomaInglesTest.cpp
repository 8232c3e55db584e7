// The shared dialogs in English: nothing of them stays Spanish.
#include "platform/StringLiterals.h"
#include "support/PantallaInglesa.h"
#include "ui/screens/DialogosPrueba.h"
#include "ui/screens/frmCash.h"
#include "ui/screens/frmImpresio.h"
#include "ui/screens/frmMensaje.h"
#include "ui/screens/frmTexto.h"

#include <QMessageBox>

namespace zv::test {
namespace {

class IdiomaInglesTest : public DialogosPrueba {
  protected:
    IdiomaInglesTest() { IdiomaIngles().PonerEn(carpetaInglesa_.Ruta()); }

    CarpetaTemporal carpetaInglesa_;
    Textos ingleses_{carpetaInglesa_.Ruta()};
};

TEST_F(IdiomaInglesTest, MessageDialog) {
    frmMensaje castellana(textos_);
    frmMensaje inglesa(ingleses_);
    ComprobarEnIngles(castellana, inglesa);
    castellana.PonerEstilo(EstiloMensaje::Aceptar);
    inglesa.PonerEstilo(EstiloMensaje::Aceptar);
    EXPECT_EQ(Boton(inglesa, "boton_1").text(), u"OK"_s);
}

TEST_F(IdiomaInglesTest, TextPrompt) {
    frmTexto castellana(textos_, {});
    frmTexto inglesa(ingleses_, {});
    ComprobarEnIngles(castellana, inglesa);
}

TEST_F(IdiomaInglesTest, AmountPrompt) {
    frmCash castellana(textos_, importes_);
    frmCash inglesa(ingleses_, importes_);
    ComprobarEnIngles(castellana, inglesa);
}

TEST_F(IdiomaInglesTest, ChoiceOfPrintouts) {
    frmImpresio castellana(textos_);
    frmImpresio inglesa(ingleses_);
    ComprobarEnIngles(castellana, inglesa);
    EXPECT_EQ(inglesa.Titulo(), u"Print"_s);
}

TEST_F(IdiomaInglesTest, PlainBox) {
    DialogosPantalla dialogos(u"ZVMonitor"_s, ingleses_, importes_, [this] { return &ventana_; });
    QString caption;
    AlAbrir abrir([&caption](QDialog& caja) {
        caption = caja.findChild<QAbstractButton*>()->text();
        caja.done(0);
    });
    dialogos.CajaSimple(u"Error"_s);
    EXPECT_EQ(caption, u"OK"_s);
}

} // namespace
} // namespace zv::test

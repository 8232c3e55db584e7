// The screens of users in English: nothing of them stays Spanish.
#include "BancoPantallas.h"
#include "access/screens/frmLogin.h"
#include "access/screens/frmUsuarios.h"
#include "support/CarpetaTemporal.h"
#include "support/PantallaInglesa.h"

namespace zv::test {
namespace {

class IdiomaInglesAccessTest : public BancoPantallas {
  protected:
    IdiomaInglesAccessTest() { IdiomaIngles().PonerEn(carpetaInglesa.Ruta()); }

    CarpetaTemporal carpetaInglesa;
    Textos ingleses{carpetaInglesa.Ruta()};
};

TEST_F(IdiomaInglesAccessTest, Login) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    frmLogin castellana(usuarios, dialogos, textos);
    frmLogin inglesa(usuarios, dialogos, ingleses);
    ComprobarEnIngles(castellana, inglesa, {u"btnUsuario_0"_s});
    EXPECT_EQ(Lista(inglesa).placeholderText(), u"Choose a user"_s);
    EXPECT_EQ(Lista(inglesa).accessibleName(), u"User"_s);
    inglesa.FormaIdentificacion(false);
    EXPECT_EQ(inglesa.Titulo(), u"Identification"_s);
    inglesa.FormaCambioContrasena();
    EXPECT_EQ(inglesa.Titulo(), u"Change password"_s);
    Mostrar(inglesa);
    ComprobarTactil(inglesa);
}

TEST_F(IdiomaInglesAccessTest, Users) {
    frmUsuarios castellana(usuarios, seguretat, dialogos, textos);
    frmUsuarios inglesa(usuarios, seguretat, dialogos, ingleses);
    ComprobarEnIngles(castellana, inglesa, {u"lbRol"_s});
    EXPECT_TRUE(Texto(inglesa, "lbRol").startsWith(u"Administrator"_s));
    Mostrar(inglesa);
    ComprobarTactil(inglesa);
}

} // namespace
} // namespace zv::test

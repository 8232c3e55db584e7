// The window of a running operation in English: nothing of it stays Spanish.
#include "device/screens/frmOperacion.h"
#include "platform/FormatoRegional.h"
#include "platform/StringLiterals.h"
#include "support/PantallaInglesa.h"
#include "ui/Importes.h"
#include "ui/Textos.h"

#include <QPushButton>
#include <QTemporaryDir>

namespace zv::test {
namespace {

class IdiomaInglesOperacionTest : public testing::Test {
  protected:
    IdiomaInglesOperacionTest() { idioma_.PonerEn(carpetaInglesa_.path()); }

    // Every text that is shown, by the name of its control.
    static std::map<QString, QString> Textos(const frmOperacion& ventana) {
        std::map<QString, QString> textos;
        for (const QWidget* control : ventana.findChildren<QWidget*>()) {
            if (control->isVisible() && TieneLetras(CaptionDe(*control))) {
                textos[control->objectName()] = CaptionDe(*control);
            }
        }
        return textos;
    }
    // None is Spanish, each stands in the file. At least so many of them are shown.
    void Comparar(std::size_t minimo) const {
        const auto castellanos = Textos(castellana_);
        const auto ingleses = Textos(inglesa_);
        EXPECT_GE(castellanos.size(), minimo);
        ASSERT_EQ(castellanos.size(), ingleses.size());
        const QString fichero = QString::fromUtf8(idioma_.bytes);
        for (const auto& [nombre, texto] : ingleses) {
            EXPECT_NE(texto, castellanos.at(nombre)) << nombre.toStdString();
            EXPECT_TRUE(fichero.contains(QLatin1Char('=') + texto + u"\r\n"_s))
                << nombre.toStdString() << ": " << texto.toStdString();
        }
    }

    IdiomaIngles idioma_;
    QTemporaryDir carpeta_;
    QTemporaryDir carpetaInglesa_;
    zv::Textos textos_{carpeta_.path()};
    zv::Textos ingleses_{carpetaInglesa_.path()};
    Importes importes_{FormatoRegional(u"es_ES"_s), [] { return quint8{100}; }};
    frmOperacion castellana_{textos_, importes_};
    frmOperacion inglesa_{ingleses_, importes_};
};

TEST_F(IdiomaInglesOperacionTest, EveryOperation) {
    for (const auto kind :
         {OperationKind::Cobro, OperationKind::Abono, OperationKind::Cambio,
          OperationKind::MeterCambio, OperationKind::Pago, OperationKind::ControlCajones,
          OperationKind::VaciadoCajon, OperationKind::Pendiente}) {
        SCOPED_TRACE(static_cast<int>(kind));
        castellana_.Abrir(
            kind, 1250, [] {}, [] {});
        inglesa_.Abrir(
            kind, 1250, [] {}, [] {});
        Comparar(3); // title, instruction, cancel
    }
}

TEST_F(IdiomaInglesOperacionTest, WhileItIsBeingCancelled) {
    castellana_.Abrir(OperationKind::Cobro, 1250, [] {}, {});
    inglesa_.Abrir(OperationKind::Cobro, 1250, [] {}, {});
    castellana_.reject();
    inglesa_.reject();
    Comparar(7);
}

} // namespace
} // namespace zv::test

// What the manuals button opens.
#include "app/Manual.h"

#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"

#include <QDir>
#include <QUrl>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

const QString kDelFabricante = u"https://zorvex.example/manuales"_s;

class ManualTest : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(QDir().mkpath(Programa())); }
    // A blank and an accent, as folders of users have them.
    QString Prefijo() const { return carpeta_.Ruta(u"Tienda Nº 1"_s); }
    QString Programa() const { return Prefijo() + u"/bin"_s; }
    QString Paginas() const {
        return QDir::cleanPath(Programa() + u'/' + QString::fromUtf8(ZV_MANUAL));
    }
    void Escribir(const QString& ruta) const {
        carpeta_.Pon(QDir(carpeta_.Ruta()).relativeFilePath(ruta), "x");
    }
    void Idioma(const QByteArray& pagina) const {
        carpeta_.Pon(u"RWLang.ini"_s, "[GEN]\r\nManual=" + pagina + "\r\n");
    }
    QString Direccion() const {
        const Textos textos(carpeta_.Ruta());
        return Manual(Programa(), textos).Direccion();
    }
    QString Pagina(const QString& nombre) const {
        return QUrl::fromLocalFile(Paginas() + u'/' + nombre).toString(QUrl::FullyEncoded);
    }

    CarpetaTemporal carpeta_;
};

TEST_F(ManualTest, WithoutAnInstalledManualItIsTheMakersAddress) {
    EXPECT_EQ(Direccion(), kDelFabricante);
}

TEST_F(ManualTest, TheInstalledManualStandsInTheDocumentationOfItsPrefix) {
    EXPECT_EQ(Paginas(), Prefijo() + u"/share/doc/zvmonitor/manual"_s);
    Escribir(Paginas() + u"/manual.es.html"_s);
    EXPECT_EQ(Direccion(), Pagina(u"manual.es.html"_s));
    EXPECT_TRUE(Direccion().startsWith(u"file:///"_s)) << Direccion().toStdString();
    EXPECT_FALSE(Direccion().contains(u' ')) << Direccion().toStdString();
}

TEST_F(ManualTest, TheLanguageFileNamesThePageOfItsLanguage) {
    Escribir(Paginas() + u"/manual.es.html"_s);
    Escribir(Paginas() + u"/manual.en.html"_s);
    const Textos textos(carpeta_.Ruta());
    const Manual manual(Programa(), textos);
    EXPECT_EQ(manual.Direccion(), Pagina(u"manual.es.html"_s));
    Idioma("manual.en.html");
    EXPECT_EQ(manual.Direccion(), Pagina(u"manual.en.html"_s)) << "at the next press";
}

TEST_F(ManualTest, APageThatIsNotThereIsTheMakersAddress) {
    Escribir(Paginas() + u"/manual.es.html"_s);
    Idioma("manual.fr.html");
    EXPECT_EQ(Direccion(), kDelFabricante);
}

TEST_F(ManualTest, AFolderIsNoPage) {
    ASSERT_TRUE(QDir().mkpath(Paginas() + u"/manual.es.html"_s));
    EXPECT_EQ(Direccion(), kDelFabricante);
    Idioma("");
    EXPECT_EQ(Direccion(), kDelFabricante) << "nor is the folder of the manual itself";
}

TEST_F(ManualTest, ALanguageFileLeadsToNoOtherFolder) {
    Escribir(Prefijo() + u"/ajeno.html"_s);
    Escribir(Paginas() + u"/manual.es.html"_s);
    Idioma("../../../../ajeno.html");
    EXPECT_EQ(Direccion(), kDelFabricante);
    Idioma((Prefijo() + u"/ajeno.html"_s).toUtf8());
    EXPECT_EQ(Direccion(), kDelFabricante);
}

} // namespace
} // namespace zv::test

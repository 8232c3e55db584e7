// The arrays of texts against the English language file that comes with the program, and against
// the sources: every text that an operator reads stands in an array.
#include "app/Claves.h"

#include "access/Claves.h"
#include "barcode/Claves.h"
#include "cashoffice/Claves.h"
#include "config/Modo.h"
#include "device/Claves.h"
#include "engine/Claves.h"
#include "platform/StringLiterals.h"
#include "registers/Claves.h"
#include "settings/Claves.h"
#include "store/Claves.h"
#include "support/IdiomaIngles.h"
#include "support/ImprimeQt.h"
#include "till/Claves.h"
#include "ui/Claves.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <set>
#include <span>

namespace zv::test {
namespace {

struct Carpeta {
    const char* nombre;
    std::span<const Clave> claves;
};

// Each folder with a Claves.h.
const Carpeta kCarpetas[] = {
    {"access", texto::kClavesAccess},
    {"app", texto::kClavesApp},
    {"barcode", texto::kClavesBarcode},
    {"cashoffice", texto::kClavesCashoffice},
    {"device", texto::kClavesDevice},
    {"engine", texto::kClavesEngine},
    {"registers", texto::kClavesRegisters},
    {"settings", texto::kClavesSettings},
    {"store", texto::kClavesStore},
    {"till", texto::kClavesTill},
    {"ui", texto::kClavesUi},
};

// Keys of the section COMMON whose screens do not stand yet. One that an array holds goes from
// here.
constexpr auto kPorVenir = "errorRecuperarDatos errorRecuperarNiveles";

const QString kFuentes = QString::fromUtf8(QT_TESTCASE_SOURCEDIR "/../src");

// A key as it stands in the file, names without case.
using Sitio = std::pair<QString, QString>;
Sitio SitioDe(const QString& seccion, const QString& clave) {
    return {seccion.toCaseFolded(), clave.toCaseFolded()};
}

class ClavesTest : public testing::Test {
  protected:
    bool Tiene(const QString& seccion, const QString& clave) const {
        const auto valor = idioma_.documento.Valor(seccion, clave);
        return valor && !valor->isEmpty();
    }
    // Sections of the file in which an entry may stand: its own, or those of all screens.
    QStringList Secciones(const Clave& clave) const {
        if (clave.seccion != kCadaPantalla) {
            return {clave.Seccion()};
        }
        QStringList pantallas;
        for (const Sitio& sitio : DelFichero()) {
            if ((sitio.first.startsWith(u"frm"_s) || sitio.first == u"balanza"_s) &&
                !pantallas.contains(sitio.first)) {
                pantallas << sitio.first;
            }
        }
        return pantallas;
    }
    std::set<Sitio> DeLasCarpetas() const {
        std::set<Sitio> sitios;
        for (const Carpeta& carpeta : kCarpetas) {
            for (const Clave& clave : carpeta.claves) {
                for (const QString& seccion : Secciones(clave)) {
                    sitios.insert(SitioDe(seccion, clave.Nombre()));
                }
            }
        }
        return sitios;
    }
    static std::set<Sitio> PorVenir() {
        std::set<Sitio> sitios;
        for (const QString& clave : QString::fromUtf8(kPorVenir).split(u' ')) {
            sitios.insert(SitioDe(u"COMMON"_s, clave));
        }
        return sitios;
    }
    // The keys of the language file in their order, a key that stands twice twice.
    std::vector<Sitio> DelFichero() const {
        std::vector<Sitio> sitios;
        QString seccion;
        for (const QString& linea : QString::fromUtf8(idioma_.bytes).split(u"\r\n"_s)) {
            if (linea.startsWith(u'[')) {
                seccion = linea.mid(1, linea.size() - 2);
            } else if (linea.contains(u'=') && !linea.startsWith(u';')) {
                sitios.push_back(SitioDe(seccion, linea.section(u'=', 0, 0)));
            }
        }
        return sitios;
    }
    // The sources in which the expression stands, but for those whose names end so.
    static QStringList Donde(const QString& expresion, const QStringList& excepto) {
        const QRegularExpression busca(expresion);
        QStringList hallados;
        QDirIterator ficheros(kFuentes, {u"*.cpp"_s, u"*.h"_s}, QDir::Files,
                              QDirIterator::Subdirectories);
        while (ficheros.hasNext()) {
            QFile fichero(ficheros.next());
            const QString ruta = fichero.fileName();
            EXPECT_TRUE(fichero.open(QIODevice::ReadOnly)) << ruta.toStdString();
            const auto hallado = busca.match(QString::fromUtf8(fichero.readAll()));
            if (hallado.hasMatch() &&
                std::none_of(excepto.begin(), excepto.end(),
                             [&ruta](const QString& fin) { return ruta.endsWith(fin); })) {
                hallados << ruta + u": "_s + hallado.captured();
            }
        }
        return hallados;
    }

    IdiomaIngles idioma_;
};

TEST_F(ClavesTest, EveryFolderWithTextsIsKnownHere) {
    QStringList nombres;
    for (const Carpeta& carpeta : kCarpetas) {
        nombres << QString::fromLatin1(carpeta.nombre);
        EXPECT_FALSE(carpeta.claves.empty()) << carpeta.nombre;
    }
    QStringList enDisco;
    QDirIterator ficheros(kFuentes, {u"Claves.h"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (ficheros.hasNext()) {
        enDisco << ficheros.next().section(u'/', -2, -2);
    }
    enDisco.sort();
    EXPECT_EQ(nombres, enDisco);
}

// Whether a control that many screens have is translated on each of them is a matter of the
// screens' own tests.
TEST_F(ClavesTest, EveryEntryHasItsEnglishText) {
    for (const Carpeta& carpeta : kCarpetas) {
        for (const Clave& clave : carpeta.claves) {
            const QStringList secciones = Secciones(clave);
            EXPECT_TRUE(
                std::any_of(secciones.begin(), secciones.end(),
                            [&](const QString& seccion) { return Tiene(seccion, clave.Nombre()); }))
                << carpeta.nombre << ": " << clave.Seccion().toStdString() << " "
                << clave.Nombre().toStdString();
        }
    }
}

TEST_F(ClavesTest, EveryKeyToComeHasItsEnglishText) {
    const std::set<Sitio> carpetas = DeLasCarpetas();
    for (const Sitio& sitio : PorVenir()) {
        EXPECT_TRUE(Tiene(sitio.first, sitio.second)) << sitio.second.toStdString();
        EXPECT_FALSE(carpetas.contains(sitio)) << sitio.second.toStdString() << " has come";
    }
}

TEST_F(ClavesTest, NothingIsLeftOverInTheLanguageFile) {
    std::set<Sitio> conocidos = DeLasCarpetas();
    conocidos.merge(PorVenir());
    for (const Sitio& sitio : DelFichero()) {
        EXPECT_TRUE(conocidos.contains(sitio))
            << sitio.first.toStdString() << " " << sitio.second.toStdString();
    }
}

TEST_F(ClavesTest, NoTextStandsInTwoEntries) {
    std::set<std::pair<Sitio, QString>> vistos;
    for (const Carpeta& carpeta : kCarpetas) {
        for (const Clave& clave : carpeta.claves) {
            EXPECT_TRUE(
                vistos.insert({SitioDe(clave.Seccion(), clave.Nombre()), clave.PorDefecto()})
                    .second)
                << carpeta.nombre << ": " << clave.Nombre().toStdString();
        }
    }
}

// A text that is looked up with a key of its own, or an entry outside the arrays, would be unknown
// to all of the above.
TEST_F(ClavesTest, NoLookUpGoesPastTheArrays) {
    const QStringList sinMas{u"ui/Textos.h"_s, u"ui/Textos.cpp"_s, u"ui/screens/Traduccion.cpp"_s};
    const QString directo = uR"(\bTraduce\(\s*(?:u?"|QString|\{|Clave\b))"_s;
    EXPECT_EQ(Donde(directo, {}), QStringList());
    EXPECT_EQ(Donde(uR"(\b(?:TextoForm|TextoIdioma)\()"_s, sinMas), QStringList());
    EXPECT_EQ(Donde(uR"(\bClave\b(?:\s+\w+)?(?:\[\])?\s*=?\s*[{(]+\s*u")"_s,
                    {u"/Claves.h"_s, u"ui/Clave.h"_s}),
              QStringList());
}

// The program's own name is the same in all languages.
TEST_F(ClavesTest, NoScreenHoldsACaptionOfItsOwn) {
    const QString pone = u"setText|setToolTip|setAccessibleName|setPlaceholderText|setWindowTitle|"
                         "PonerTitulo|PonerCaption|PonerSentido|new Q\\w+"_s;
    const QString literal = uR"((?:%1)\(\s*u?"(?!ZVMonitor"|frm\w+"|lb\w+"|btn\w+")[^"\n]*\p{L})"_s;
    EXPECT_EQ(Donde(literal.arg(pone), {}), QStringList());
}

TEST_F(ClavesTest, ButtonsOfTheModesGiveTheModesInEveryLanguage) {
    const QString modos[] = {modo::kAuto, modo::kManual, modo::kSemi};
    for (std::size_t i = 0; i < 3; ++i) {
        const Clave& clave = *texto::kModos[i];
        EXPECT_EQ(clave.Nombre(), u"btnModo_%1"_s.arg(i));
        EXPECT_EQ(clave.PorDefecto(), modos[i]);
        EXPECT_EQ(idioma_.documento.Valor(clave.Seccion(), clave.Nombre()), modos[i]);
    }
}

TEST_F(ClavesTest, NoLineIsLongerThanTheProgramReadsAndNoKeyStandsTwice) {
    for (const QString& linea : QString::fromUtf8(idioma_.bytes).split(u"\r\n"_s)) {
        EXPECT_LE(linea.section(u'=', 1).size(), 256) << linea.toStdString();
    }
    std::set<Sitio> vistos;
    for (const Sitio& sitio : DelFichero()) {
        EXPECT_TRUE(vistos.insert(sitio).second)
            << sitio.first.toStdString() << " " << sitio.second.toStdString();
    }
    EXPECT_GT(vistos.size(), 200U);
}

} // namespace
} // namespace zv::test

// The registry tree: values as files that other programs share.
#include "platform/RegistryTree.h"

#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"
#include "support/SinPrivilegios.h"

#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace zv {
namespace {

using test::CarpetaTemporal;

class RegistroArbol : public testing::Test {
  protected:
    QString Valor(const char* clave, const char* valor, const char* defecto = "defecto") const {
        return registry.LeerValor(QString::fromUtf8(clave), QString::fromUtf8(valor),
                                  QString::fromUtf8(defecto));
    }
    void Guarda(const char* clave, const char* valor, const char* dato) {
        registry.GuardarValor(QString::fromUtf8(clave), QString::fromUtf8(valor),
                              QString::fromUtf8(dato));
    }
    // Result code; what was read is in resultado.
    int Lee(const char* raiz, const char* clave, const char* valor, const char* tipo) {
        return registry.LeerRegistro(QString::fromUtf8(raiz), QString::fromUtf8(clave),
                                     QString::fromUtf8(valor), QString::fromUtf8(tipo),
                                     u"defecto"_s, resultado);
    }
    int Escribe(const char* clave, const char* valor, const char* tipo, const char* dato) {
        return registry.EscribirRegistro(u"HKLM"_s, QString::fromUtf8(clave),
                                         QString::fromUtf8(valor), QString::fromUtf8(tipo),
                                         QString::fromUtf8(dato));
    }
    int Borra(const char* clave, const char* valor) {
        return registry.BorrarRegistro(u"HKLM"_s, QString::fromUtf8(clave),
                                       QString::fromUtf8(valor));
    }
    // A file of the tree, as another program would write it.
    void Pon(const char* ruta, const QByteArray& bytes) {
        carpeta.Pon(QString::fromUtf8(ruta), bytes);
    }
    QByteArray Fichero(const char* ruta) const { return carpeta.Lee(QString::fromUtf8(ruta)); }
    // Makes the folders look long unchanged, as they are in daily use.
    void Asienta(const QString& subcarpeta) const {
        QDir dir(carpeta.Ruta(subcarpeta));
        const struct timespec antes[2] = {{1000000000, 0}, {1000000000, 0}};
        while (dir.path().startsWith(carpeta.Ruta())) {
            ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(dir.path()).constData(), antes, 0),
                      0);
            dir = QDir(QFileInfo(dir.path()).path());
        }
    }

    CarpetaTemporal carpeta;
    RegistryTree registry{carpeta.Ruta()};
    QString resultado;
};

TEST_F(RegistroArbol, KeepsAValueInAFileOfItsName) {
    Guarda("Zorvex\\ZVMonitor", "Saldo_Exit", "125000");
    EXPECT_EQ(Fichero("HKLM/Software/Zorvex/ZVMonitor/Saldo_Exit"), QByteArray("125000"));
    EXPECT_EQ(Valor("Zorvex\\ZVMonitor", "Saldo_Exit"), u"125000"_s);
    EXPECT_EQ(carpeta.Entradas(u"HKLM/Software/Zorvex/ZVMonitor"_s), QStringList{u"Saldo_Exit"_s});
}

TEST_F(RegistroArbol, AMissingTreeKeyOrValueYieldsTheDefault) {
    EXPECT_EQ(Valor("Zorvex\\ZVMonitor", "Activo"), u"defecto"_s);
    EXPECT_EQ(Lee("HKLM", "Software\\Zorvex", "Activo", "S"), RegistryTree::kNoExiste);
    EXPECT_EQ(resultado, u"defecto"_s);
    Guarda("Zorvex\\ZVMonitor", "Otro", "1");
    EXPECT_EQ(Valor("Zorvex\\ZVMonitor", "Activo"), u"defecto"_s);
    const RegistryTree sinCarpeta(carpeta.Ruta(u"no/hay"_s));
    EXPECT_EQ(sinCarpeta.LeerValor(u"a"_s, u"b"_s, u"c"_s), u"c"_s);
}

TEST_F(RegistroArbol, SeesWhatAnotherProgramWritesAtOnce) {
    for (int i = 0; i < 50; ++i) {
        const QByteArray texto = QByteArray::number(i);
        ASSERT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), u"defecto"_s);
        Pon("HKLM/Software/Zorvex/ZVConnector/Activo", texto);
        ASSERT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), QString::fromUtf8(texto));
        ASSERT_TRUE(QFile::remove(carpeta.Ruta(u"HKLM/Software/Zorvex/ZVConnector/Activo"_s)));
    }
}

TEST_F(RegistroArbol, NamesIgnoreCaseOnDiskToo) {
    Pon("hklm/SOFTWARE/zorvex/ZvConnector/ACTIVO", "1");
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), u"1"_s);
    EXPECT_EQ(Valor("ZORVEX\\zvconnector", "activo"), u"1"_s);
    Guarda("Zorvex\\ZVConnector", "Activo", "0");
    EXPECT_EQ(Fichero("hklm/SOFTWARE/zorvex/ZvConnector/ACTIVO"), QByteArray("0"));
    EXPECT_EQ(carpeta.Entradas().size(), 1);
    Pon("hklm/SOFTWARE/zorvex/ZvConnector/Año", "x");
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "AÑO"), u"x"_s);
}

TEST_F(RegistroArbol, TheExactNameGoesBeforeOneOfAnotherCase) {
    Pon("HKLM/Software/A/activo", "otro");
    Pon("HKLM/Software/A/Activo", "exacto");
    EXPECT_EQ(Valor("A", "Activo"), u"exacto"_s);
    Guarda("A", "Activo", "nuevo");
    EXPECT_EQ(Fichero("HKLM/Software/A/Activo"), QByteArray("nuevo"));
    EXPECT_EQ(Fichero("HKLM/Software/A/activo"), QByteArray("otro"));
}

TEST_F(RegistroArbol, AChangeShowsAlsoInFoldersThatWereQuietForLong) {
    carpeta.PonCarpeta(u"HKLM/Software/Zorvex"_s);
    Asienta(u"HKLM/Software/Zorvex"_s);
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), u"defecto"_s);
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), u"defecto"_s);
    Pon("HKLM/Software/Zorvex/zvconnector/activo", "1");
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), u"1"_s);
    Asienta(u"HKLM/Software/Zorvex/zvconnector"_s);
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), u"1"_s);
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), u"1"_s);
    ASSERT_TRUE(QDir(carpeta.Ruta(u"HKLM/Software/Zorvex"_s)).rename(u"zvconnector"_s, u"fuera"_s));
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), u"defecto"_s);
}

TEST_F(RegistroArbol, AChangeWithinTheTimeStampsGranularityShowsToo) {
    const QString clave = carpeta.PonCarpeta(u"HKLM/Software/Zorvex"_s);
    // As a coarse file system leaves it: the stamp is the same after the change. Ahead of the
    // clock, so that it stays fresh however slowly the test runs.
    const auto sella = [&clave] {
        const time_t despues = ::time(nullptr) / 100000 * 100000 + 200000;
        const struct timespec sello[2] = {{despues, 0}, {despues, 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(clave).constData(), sello, 0), 0);
    };
    sella();
    EXPECT_EQ(Valor("Zorvex", "Activo"), u"defecto"_s);
    Pon("HKLM/Software/Zorvex/activo", "1");
    sella();
    EXPECT_EQ(Valor("Zorvex", "Activo"), u"1"_s);
}

TEST_F(RegistroArbol, BothKindsOfSlashPartKeys) {
    Guarda("Zorvex/ZVMonitor", "a", "1");
    EXPECT_EQ(Valor("\\Zorvex\\\\ZVMonitor\\", "a"), u"1"_s);
}

TEST_F(RegistroArbol, NoNameLeavesTheTree) {
    carpeta.Pon(u"secreto"_s, "x");
    RegistryTree dentro(carpeta.PonCarpeta(u"arbol"_s));
    const QString malas[] = {u"../secreto"_s, u"..\\secreto"_s, u".."_s,   u"."_s,
                             QString(),       u"a/b"_s,         u"a\\b"_s, u"a"_s + QChar(u'\0')};
    for (const QString& mala : malas) {
        EXPECT_EQ(dentro.EscribirRegistro(u"HKLM"_s, u"k"_s, mala, u"S"_s, u"1"_s),
                  RegistryTree::kNombreNoValido);
        EXPECT_EQ(dentro.LeerRegistro(u"HKLM"_s, u"k"_s, mala, u"S"_s, {}, resultado),
                  RegistryTree::kNombreNoValido);
        EXPECT_EQ(dentro.BorrarRegistro(u"HKLM"_s, u"k"_s, mala), RegistryTree::kNombreNoValido);
    }
    for (const char* clave : {"..\\..", "a\\..\\..\\b", "../x", "."}) {
        EXPECT_EQ(dentro.EscribirRegistro(u"HKLM"_s, QString::fromUtf8(clave), u"secreto"_s, u"S"_s,
                                          u"1"_s),
                  RegistryTree::kNombreNoValido);
        EXPECT_EQ(dentro.BorrarRegistro(u"HKLM"_s, QString::fromUtf8(clave), u"secreto"_s),
                  RegistryTree::kNombreNoValido);
    }
    EXPECT_TRUE(carpeta.Entradas(u"arbol"_s).isEmpty());
    EXPECT_EQ(carpeta.Lee(u"secreto"_s), QByteArray("x"));
}

TEST_F(RegistroArbol, TextLosesOneNulAndOneLineEnd) {
    Pon("HKLM/Software/A/nul", QByteArray("abc\0", 4));
    Pon("HKLM/Software/A/dos", QByteArray("abc\0\0", 5));
    Pon("HKLM/Software/A/linea", "1\n");
    Pon("HKLM/Software/A/windows", "1\r\n");
    Pon("HKLM/Software/A/lineas", "1\n\n");
    EXPECT_EQ(Valor("A", "nul"), u"abc"_s);
    EXPECT_EQ(Valor("A", "dos"), u"abc"_s + QChar(u'\0'));
    EXPECT_EQ(Valor("A", "linea"), u"1"_s);
    EXPECT_EQ(Valor("A", "windows"), u"1"_s);
    EXPECT_EQ(Valor("A", "lineas"), u"1\n"_s);
}

TEST_F(RegistroArbol, TextKeepsAnyCharacterAndReadsTheCodePage) {
    Guarda("A", "clave", " Señor Ω 💶 ");
    EXPECT_EQ(Valor("A", "clave"), u" Señor Ω 💶 "_s);
    Pon("HKLM/Software/A/ansi", "Se\xF1or");
    EXPECT_EQ(Valor("A", "ansi"), u"Señor"_s);
}

TEST_F(RegistroArbol, AnEmptyTextIsAValue) {
    Guarda("A", "vacio", "");
    EXPECT_TRUE(carpeta.Esta(u"HKLM/Software/A/vacio"_s));
    EXPECT_EQ(Valor("A", "vacio"), QString());
}

TEST_F(RegistroArbol, ReadsLongTextsUpToAMegabyte) {
    const QByteArray largo(100000, 'x');
    Pon("HKLM/Software/A/largo", largo);
    EXPECT_EQ(Valor("A", "largo"), QString::fromLatin1(largo));
    Pon("HKLM/Software/A/justo", QByteArray(512, 'y'));
    EXPECT_EQ(Valor("A", "justo").size(), 512);
    Pon("HKLM/Software/A/enorme", QByteArray(qsizetype{1} << 21, 'x'));
    EXPECT_EQ(Lee("HKLM", "Software\\A", "enorme", "S"), 234);
    EXPECT_EQ(resultado, u"defecto"_s);
}

TEST_F(RegistroArbol, EachRootIsATreeOfItsOwn) {
    for (const char* raiz : {"HKCU", "HKLM", "HKU", "HKDD", "HKCC", "HKCR"}) {
        const QString nombre = QString::fromUtf8(raiz);
        EXPECT_EQ(registry.EscribirRegistro(nombre.toLower(), u"k"_s, u"v"_s, u"s"_s, nombre), 0);
        EXPECT_EQ(carpeta.Lee(nombre + u"/k/v"_s), QByteArray(raiz));
        EXPECT_EQ(Lee(raiz, "k", "v", "S"), 0);
        EXPECT_EQ(resultado, nombre);
    }
    EXPECT_EQ(registry.RaizRegistro(u"hklm"_s), Raiz::HKLM);
    EXPECT_EQ(registry.RaizRegistro(u"HkDd"_s), Raiz::HKDD);
}

TEST_F(RegistroArbol, AnUnknownRootIsCode99) {
    EXPECT_EQ(registry.RaizRegistro(u"HKXX"_s), Raiz::Ninguna);
    EXPECT_EQ(registry.RaizRegistro(carpeta.Ruta()), Raiz::Ninguna); // a folder is no file
    EXPECT_EQ(Lee("HKXX", "k", "v", "S"), 99);
    EXPECT_EQ(resultado, u"defecto"_s);
    EXPECT_EQ(registry.EscribirRegistro(QString(), u"k"_s, u"v"_s, u"S"_s, u"1"_s), 99);
    EXPECT_EQ(registry.BorrarRegistro(u"HK"_s, u"k"_s, u"v"_s), 99);
}

TEST_F(RegistroArbol, DoubleWordsPassThroughSixteenBits) {
    EXPECT_EQ(Escribe("k", "d", "d", "258"), 0);
    EXPECT_EQ(Fichero("HKLM/k/d"), QByteArray("\x02\x01\0\0", 4));
    EXPECT_EQ(Lee("HKLM", "k", "d", "D"), 0);
    EXPECT_EQ(resultado, u"258"_s);
    EXPECT_EQ(Escribe("k", "d", "D", "-1"), 0);
    EXPECT_EQ(Fichero("HKLM/k/d"), QByteArray("\xFF\xFF\xFF\xFF", 4));
    EXPECT_EQ(Lee("HKLM", "k", "d", "d"), 0);
    EXPECT_EQ(resultado, u"-1"_s);
    EXPECT_EQ(Escribe("k", "d", "D", "32768"), RegistryTree::kDatoNoValido);
    EXPECT_EQ(Escribe("k", "d", "D", "uno"), RegistryTree::kDatoNoValido);
    EXPECT_EQ(Fichero("HKLM/k/d"), QByteArray("\xFF\xFF\xFF\xFF", 4));
    Pon("HKLM/k/largo", "12345");
    EXPECT_EQ(Lee("HKLM", "k", "largo", "D"), 234);
}

TEST_F(RegistroArbol, BooleansAreTwoBytes) {
    EXPECT_EQ(Escribe("k", "b", "B", "True"), 0);
    EXPECT_EQ(Fichero("HKLM/k/b"), QByteArray("\xFF\xFF", 2));
    EXPECT_EQ(Lee("HKLM", "k", "b", "b"), 0);
    EXPECT_EQ(resultado, u"True"_s);
    EXPECT_EQ(Escribe("k", "b", "b", "0"), 0);
    EXPECT_EQ(Fichero("HKLM/k/b"), QByteArray("\0\0", 2));
    EXPECT_EQ(Lee("HKLM", "k", "b", "B"), 0);
    EXPECT_EQ(resultado, u"False"_s);
    EXPECT_EQ(Escribe("k", "b", "B", "5"), 0);
    EXPECT_EQ(Fichero("HKLM/k/b"), QByteArray("\xFF\xFF", 2));
    EXPECT_EQ(Escribe("k", "b", "B", "falso"), 0);
    EXPECT_EQ(Fichero("HKLM/k/b"), QByteArray("\0\0", 2));
    EXPECT_EQ(Escribe("k", "b", "B", "quizá"), RegistryTree::kDatoNoValido);
}

TEST_F(RegistroArbol, AnUnknownKindIsRefused) {
    Guarda("A", "v", "1");
    EXPECT_EQ(Lee("HKLM", "Software\\A", "v", "X"), RegistryTree::kParametroNoValido);
    EXPECT_EQ(resultado, u"defecto"_s);
    EXPECT_EQ(Escribe("k", "v", "", "1"), RegistryTree::kParametroNoValido);
    EXPECT_FALSE(carpeta.Esta(u"HKLM/k"_s));
}

TEST_F(RegistroArbol, DeletingTakesTheValueAndIsNoFailureWithoutOne) {
    Guarda("A", "v", "1");
    Pon("HKLM/Software/A/V", "2");
    registry.BorrarValor(u"A"_s, u"v"_s);
    EXPECT_TRUE(carpeta.Entradas(u"HKLM/Software/A"_s).isEmpty());
    EXPECT_EQ(Valor("A", "v"), u"defecto"_s);
    EXPECT_EQ(Borra("Software\\A", "v"), 0);
    EXPECT_EQ(Borra("Software\\Nada\\Mas", "v"), 0);
}

TEST_F(RegistroArbol, AFolderInThePlaceOfAValueIsNoValue) {
    carpeta.PonCarpeta(u"HKLM/Software/A/v"_s);
    EXPECT_EQ(Valor("A", "v"), u"defecto"_s);
    EXPECT_EQ(Lee("HKLM", "Software\\A", "v", "S"), RegistryTree::kNoExiste);
    EXPECT_EQ(Escribe("Software\\A", "v", "S", "1"), RegistryTree::kAccesoDenegado);
    EXPECT_EQ(Borra("Software\\A", "v"), 0);
    EXPECT_TRUE(carpeta.Esta(u"HKLM/Software/A/v"_s));
}

TEST_F(RegistroArbol, AFileInThePlaceOfAKeyIsNoKey) {
    Pon("HKLM/Software/A", "1");
    EXPECT_EQ(Valor("A", "v"), u"defecto"_s);
    EXPECT_EQ(Escribe("Software\\A", "v", "S", "1"), RegistryTree::kAccesoDenegado);
    EXPECT_EQ(Fichero("HKLM/Software/A"), QByteArray("1"));
}

TEST_F(RegistroArbol, AReadOnlyTreeIsReadAndRefusesWrites) {
    Guarda("A", "v", "1");
    for (const char* parte : {"HKLM/Software/A", "HKLM/Software", "HKLM", "."}) {
        ASSERT_EQ(
            ::chmod(QFile::encodeName(carpeta.Ruta(QString::fromUtf8(parte))).constData(), 0555),
            0);
    }
    {
        const test::SinPrivilegios nadie;
        EXPECT_EQ(Valor("A", "v"), u"1"_s);
        EXPECT_EQ(Escribe("Software\\A", "w", "S", "2"), RegistryTree::kAccesoDenegado);
        EXPECT_EQ(Escribe("Software\\B", "v", "S", "2"), RegistryTree::kAccesoDenegado);
        EXPECT_EQ(Borra("Software\\A", "v"), RegistryTree::kAccesoDenegado);
        Guarda("A", "w", "2"); // ignored
        EXPECT_EQ(Valor("A", "w"), u"defecto"_s);
        RegistryTree nuevo(carpeta.Ruta(u"no/se/puede"_s));
        EXPECT_EQ(nuevo.EscribirRegistro(u"HKLM"_s, u"k"_s, u"v"_s, u"S"_s, u"1"_s),
                  RegistryTree::kAccesoDenegado);
    }
    for (const char* parte : {".", "HKLM", "HKLM/Software", "HKLM/Software/A"}) {
        ::chmod(QFile::encodeName(carpeta.Ruta(QString::fromUtf8(parte))).constData(), 0755);
    }
}

TEST_F(RegistroArbol, AValueThatMayNotBeReadYieldsTheDefault) {
    Guarda("A", "v", "1");
    ASSERT_EQ(::chmod(QFile::encodeName(carpeta.Ruta()).constData(), 0755), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(carpeta.Ruta(u"HKLM/Software/A/v"_s)).constData(), 0200),
              0);
    const test::SinPrivilegios nadie;
    EXPECT_EQ(Valor("A", "v"), u"defecto"_s);
    EXPECT_EQ(Lee("HKLM", "Software\\A", "v", "S"), RegistryTree::kAccesoDenegado);
}

TEST_F(RegistroArbol, CreatesTheFolderOfTheTreeWhenItFirstWrites) {
    RegistryTree nuevo(carpeta.Ruta(u"sub/Registro"_s));
    EXPECT_FALSE(carpeta.Esta(u"sub"_s));
    nuevo.GuardarValor(u"A"_s, u"v"_s, u"1"_s);
    EXPECT_EQ(Fichero("sub/Registro/HKLM/Software/A/v"), QByteArray("1"));
}

TEST_F(RegistroArbol, TwoRegistriesDoNotMeet) {
    RegistryTree uno(carpeta.Ruta(u"1"_s));
    RegistryTree dos(carpeta.Ruta(u"2"_s));
    uno.GuardarValor(u"A"_s, u"v"_s, u"1"_s);
    EXPECT_EQ(dos.LeerValor(u"A"_s, u"v"_s, {}), QString());
}

TEST_F(RegistroArbol, TellsTheFoldersOnTheWayToAValue) {
    const auto carpetas = [this](const char* clave) {
        QStringList rutas;
        for (const QByteArray& ruta : registry.Carpetas({QString::fromUtf8(clave), u"v"_s})) {
            rutas << QDir(carpeta.Ruta()).relativeFilePath(QFile::decodeName(ruta));
        }
        return rutas.join(u' ');
    };
    EXPECT_EQ(carpetas("A\\B"), u"."_s);
    Pon("HKLM/SOFTWARE/a/B/v", "1");
    EXPECT_EQ(carpetas("A\\B"), u". HKLM HKLM/SOFTWARE HKLM/SOFTWARE/a HKLM/SOFTWARE/a/B"_s);
    // The exact name comes first, even where the value is not.
    Pon("HKLM/SOFTWARE/A", "a file is no folder");
    EXPECT_TRUE(carpetas("A/B").endsWith(u"/a/B"_s));
    carpeta.PonCarpeta(u"HKLM/Software"_s);
    EXPECT_EQ(carpetas("A/B"), u". HKLM HKLM/Software"_s);
    EXPECT_EQ(carpetas("A/../B"), u"."_s);
}

TEST_F(RegistroArbol, ManyNamesDoNotPileUpOrMixUp) {
    for (int i = 0; i < 1000; ++i) {
        const QString nombre = u"v%1"_s.arg(i);
        Pon("HKLM/Software/A/v7", "siete");
        ASSERT_EQ(registry.LeerValor(u"A"_s, nombre, u"no"_s), i == 7 ? u"siete"_s : u"no"_s);
    }
    EXPECT_EQ(Valor("A", "v7"), u"siete"_s);
}

TEST_F(RegistroArbol, DefaultAndResultMayBeOneObject) {
    resultado = u"mio"_s;
    EXPECT_EQ(registry.LeerRegistro(u"HKLM"_s, u"k"_s, u"v"_s, u"S"_s, resultado, resultado),
              RegistryTree::kNoExiste);
    EXPECT_EQ(resultado, u"mio"_s);
}

class RegistroIni : public RegistroArbol {
  protected:
    int LeeIni(const char* clave, const char* tipo, const char* defecto = "defecto") {
        return registry.LeerRegistro(ini, u"Sec"_s, QString::fromUtf8(clave),
                                     QString::fromUtf8(tipo), QString::fromUtf8(defecto),
                                     resultado);
    }
    const QString ini = carpeta.Pon(u"x.ini"_s, "[Sec]\nk=texto\nn=-12abc\nv=\n");
};

TEST_F(RegistroIni, AnExistingFileIsARoot) {
    EXPECT_EQ(registry.RaizRegistro(ini), Raiz::Ini);
    EXPECT_EQ(static_cast<int>(Raiz::Ini), 1);
    EXPECT_EQ(static_cast<int>(Raiz::Ninguna), 0);
}

TEST_F(RegistroIni, TextComesFromTheSectionNamedByTheKey) {
    EXPECT_EQ(LeeIni("K", "S"), 0);
    EXPECT_EQ(resultado, u"texto"_s);
    EXPECT_EQ(LeeIni("no", "S"), 0);
    EXPECT_EQ(resultado, u"defecto"_s);
    EXPECT_EQ(LeeIni("v", "S"), 0);
    EXPECT_EQ(resultado, QString());
}

TEST_F(RegistroIni, TextHasAtMost255Characters) {
    carpeta.Pon(u"x.ini"_s, "[Sec]\nk=" + QByteArray(300, 'x') + "\n");
    EXPECT_EQ(LeeIni("k", "S"), 0);
    EXPECT_EQ(resultado.size(), 255);
}

TEST_F(RegistroIni, AnyOtherKindAnswersItsNumberAsTheCode) {
    EXPECT_EQ(LeeIni("n", "D"), -12);
    EXPECT_EQ(resultado, u"defecto"_s);
    EXPECT_EQ(LeeIni("n", "B"), -12);
    EXPECT_EQ(LeeIni("n", "Z"), -12);
    EXPECT_EQ(LeeIni("k", "D"), 0);
    EXPECT_EQ(LeeIni("no", "D", "7"), 7);
}

TEST_F(RegistroIni, WritesTextOnly) {
    EXPECT_EQ(registry.EscribirRegistro(ini, u"Sec"_s, u"k"_s, u"s"_s, u"nuevo"_s), 0);
    EXPECT_EQ(registry.EscribirRegistro(ini, u"Sec"_s, u"n"_s, u"D"_s, u"5"_s),
              RegistryTree::kParametroNoValido);
    EXPECT_EQ(Fichero("x.ini"), QByteArray("[Sec]\nk=nuevo\nn=-12abc\nv=\n"));
}

TEST_F(RegistroIni, DeletingLeavesAnEmptyValue) {
    EXPECT_EQ(registry.BorrarRegistro(ini, u"Sec"_s, u"k"_s), 0);
    EXPECT_EQ(Fichero("x.ini"), QByteArray("[Sec]\nk=\nn=-12abc\nv=\n"));
    EXPECT_EQ(registry.BorrarRegistro(ini, u"Sec"_s, u"otra"_s), 0);
    EXPECT_EQ(Fichero("x.ini"), QByteArray("[Sec]\nk=\nn=-12abc\nv=\notra=\n"));
}

TEST_F(RegistroIni, AFailureIsACodeAndNeverRaised) {
    ASSERT_EQ(::chmod(QFile::encodeName(ini).constData(), 0444), 0);
    EXPECT_EQ(registry.EscribirRegistro(ini, u"Sec"_s, u"k"_s, u"S"_s, u"nuevo"_s),
              RegistryTree::kAccesoDenegado);
    EXPECT_EQ(registry.BorrarRegistro(ini, u"Sec"_s, u"k"_s), RegistryTree::kAccesoDenegado);
    ASSERT_EQ(::chmod(QFile::encodeName(ini).constData(), 0200), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(carpeta.Ruta()).constData(), 0755), 0);
    const test::SinPrivilegios nadie;
    EXPECT_EQ(LeeIni("k", "S"), RegistryTree::kAccesoDenegado);
    EXPECT_EQ(resultado, u"defecto"_s);
}

} // namespace
} // namespace zv

// The registry tree: values as files that other programs share.
#include "platform/Registro.h"

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
        return registro.LeerValor(QString::fromUtf8(clave), QString::fromUtf8(valor),
                                  QString::fromUtf8(defecto));
    }
    void Guarda(const char* clave, const char* valor, const char* dato) {
        registro.GuardarValor(QString::fromUtf8(clave), QString::fromUtf8(valor),
                              QString::fromUtf8(dato));
    }
    // Result code; what was read is in resultado.
    int Lee(const char* raiz, const char* clave, const char* valor, const char* tipo) {
        return registro.LeerRegistro(QString::fromUtf8(raiz), QString::fromUtf8(clave),
                                     QString::fromUtf8(valor), QString::fromUtf8(tipo),
                                     QStringLiteral("defecto"), resultado);
    }
    int Escribe(const char* clave, const char* valor, const char* tipo, const char* dato) {
        return registro.EscribirRegistro(QStringLiteral("HKLM"), QString::fromUtf8(clave),
                                         QString::fromUtf8(valor), QString::fromUtf8(tipo),
                                         QString::fromUtf8(dato));
    }
    int Borra(const char* clave, const char* valor) {
        return registro.BorrarRegistro(QStringLiteral("HKLM"), QString::fromUtf8(clave),
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
    Registro registro{carpeta.Ruta()};
    QString resultado;
};

TEST_F(RegistroArbol, KeepsAValueInAFileOfItsName) {
    Guarda("Zorvex\\ZVMonitor", "Saldo_Exit", "125000");
    EXPECT_EQ(Fichero("HKLM/Software/Zorvex/ZVMonitor/Saldo_Exit"), QByteArray("125000"));
    EXPECT_EQ(Valor("Zorvex\\ZVMonitor", "Saldo_Exit"), QStringLiteral("125000"));
    EXPECT_EQ(carpeta.Entradas(QStringLiteral("HKLM/Software/Zorvex/ZVMonitor")),
              QStringList{QStringLiteral("Saldo_Exit")});
}

TEST_F(RegistroArbol, AMissingTreeKeyOrValueYieldsTheDefault) {
    EXPECT_EQ(Valor("Zorvex\\ZVMonitor", "Activo"), QStringLiteral("defecto"));
    EXPECT_EQ(Lee("HKLM", "Software\\Zorvex", "Activo", "S"), Registro::kNoExiste);
    EXPECT_EQ(resultado, QStringLiteral("defecto"));
    Guarda("Zorvex\\ZVMonitor", "Otro", "1");
    EXPECT_EQ(Valor("Zorvex\\ZVMonitor", "Activo"), QStringLiteral("defecto"));
    const Registro sinCarpeta(carpeta.Ruta(QStringLiteral("no/hay")));
    EXPECT_EQ(sinCarpeta.LeerValor(QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")),
              QStringLiteral("c"));
}

TEST_F(RegistroArbol, SeesWhatAnotherProgramWritesAtOnce) {
    for (int i = 0; i < 50; ++i) {
        const QByteArray texto = QByteArray::number(i);
        ASSERT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), QStringLiteral("defecto"));
        Pon("HKLM/Software/Zorvex/ZVConnector/Activo", texto);
        ASSERT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), QString::fromUtf8(texto));
        ASSERT_TRUE(
            QFile::remove(carpeta.Ruta(QStringLiteral("HKLM/Software/Zorvex/ZVConnector/Activo"))));
    }
}

TEST_F(RegistroArbol, NamesIgnoreCaseOnDiskToo) {
    Pon("hklm/SOFTWARE/zorvex/ZvConnector/ACTIVO", "1");
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), QStringLiteral("1"));
    EXPECT_EQ(Valor("ZORVEX\\zvconnector", "activo"), QStringLiteral("1"));
    Guarda("Zorvex\\ZVConnector", "Activo", "0");
    EXPECT_EQ(Fichero("hklm/SOFTWARE/zorvex/ZvConnector/ACTIVO"), QByteArray("0"));
    EXPECT_EQ(carpeta.Entradas().size(), 1);
    Pon("hklm/SOFTWARE/zorvex/ZvConnector/Año", "x");
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "AÑO"), QStringLiteral("x"));
}

TEST_F(RegistroArbol, TheExactNameGoesBeforeOneOfAnotherCase) {
    Pon("HKLM/Software/A/activo", "otro");
    Pon("HKLM/Software/A/Activo", "exacto");
    EXPECT_EQ(Valor("A", "Activo"), QStringLiteral("exacto"));
    Guarda("A", "Activo", "nuevo");
    EXPECT_EQ(Fichero("HKLM/Software/A/Activo"), QByteArray("nuevo"));
    EXPECT_EQ(Fichero("HKLM/Software/A/activo"), QByteArray("otro"));
}

TEST_F(RegistroArbol, AChangeShowsAlsoInFoldersThatWereQuietForLong) {
    carpeta.PonCarpeta(QStringLiteral("HKLM/Software/Zorvex"));
    Asienta(QStringLiteral("HKLM/Software/Zorvex"));
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), QStringLiteral("defecto"));
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), QStringLiteral("defecto"));
    Pon("HKLM/Software/Zorvex/zvconnector/activo", "1");
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), QStringLiteral("1"));
    Asienta(QStringLiteral("HKLM/Software/Zorvex/zvconnector"));
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), QStringLiteral("1"));
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), QStringLiteral("1"));
    ASSERT_TRUE(QDir(carpeta.Ruta(QStringLiteral("HKLM/Software/Zorvex")))
                    .rename(QStringLiteral("zvconnector"), QStringLiteral("fuera")));
    EXPECT_EQ(Valor("Zorvex\\ZVConnector", "Activo"), QStringLiteral("defecto"));
}

TEST_F(RegistroArbol, AChangeWithinTheTimeStampsGranularityShowsToo) {
    const QString clave = carpeta.PonCarpeta(QStringLiteral("HKLM/Software/Zorvex"));
    // As a coarse file system leaves it: the stamp is the same after the change. Ahead of the
    // clock, so that it stays fresh however slowly the test runs.
    const auto sella = [&clave] {
        const time_t despues = ::time(nullptr) / 100000 * 100000 + 200000;
        const struct timespec sello[2] = {{despues, 0}, {despues, 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(clave).constData(), sello, 0), 0);
    };
    sella();
    EXPECT_EQ(Valor("Zorvex", "Activo"), QStringLiteral("defecto"));
    Pon("HKLM/Software/Zorvex/activo", "1");
    sella();
    EXPECT_EQ(Valor("Zorvex", "Activo"), QStringLiteral("1"));
}

TEST_F(RegistroArbol, BothKindsOfSlashPartKeys) {
    Guarda("Zorvex/ZVMonitor", "a", "1");
    EXPECT_EQ(Valor("\\Zorvex\\\\ZVMonitor\\", "a"), QStringLiteral("1"));
}

TEST_F(RegistroArbol, NoNameLeavesTheTree) {
    carpeta.Pon(QStringLiteral("secreto"), "x");
    Registro dentro(carpeta.PonCarpeta(QStringLiteral("arbol")));
    const QString malas[] = {QStringLiteral("../secreto"),
                             QStringLiteral("..\\secreto"),
                             QStringLiteral(".."),
                             QStringLiteral("."),
                             QString(),
                             QStringLiteral("a/b"),
                             QStringLiteral("a\\b"),
                             QStringLiteral("a") + QChar(u'\0')};
    for (const QString& mala : malas) {
        EXPECT_EQ(dentro.EscribirRegistro(QStringLiteral("HKLM"), QStringLiteral("k"), mala,
                                          QStringLiteral("S"), QStringLiteral("1")),
                  Registro::kNombreNoValido);
        EXPECT_EQ(dentro.LeerRegistro(QStringLiteral("HKLM"), QStringLiteral("k"), mala,
                                      QStringLiteral("S"), {}, resultado),
                  Registro::kNombreNoValido);
        EXPECT_EQ(dentro.BorrarRegistro(QStringLiteral("HKLM"), QStringLiteral("k"), mala),
                  Registro::kNombreNoValido);
    }
    for (const char* clave : {"..\\..", "a\\..\\..\\b", "../x", "."}) {
        EXPECT_EQ(dentro.EscribirRegistro(QStringLiteral("HKLM"), QString::fromUtf8(clave),
                                          QStringLiteral("secreto"), QStringLiteral("S"),
                                          QStringLiteral("1")),
                  Registro::kNombreNoValido);
        EXPECT_EQ(dentro.BorrarRegistro(QStringLiteral("HKLM"), QString::fromUtf8(clave),
                                        QStringLiteral("secreto")),
                  Registro::kNombreNoValido);
    }
    EXPECT_TRUE(carpeta.Entradas(QStringLiteral("arbol")).isEmpty());
    EXPECT_EQ(carpeta.Lee(QStringLiteral("secreto")), QByteArray("x"));
}

TEST_F(RegistroArbol, TextLosesOneNulAndOneLineEnd) {
    Pon("HKLM/Software/A/nul", QByteArray("abc\0", 4));
    Pon("HKLM/Software/A/dos", QByteArray("abc\0\0", 5));
    Pon("HKLM/Software/A/linea", "1\n");
    Pon("HKLM/Software/A/windows", "1\r\n");
    Pon("HKLM/Software/A/lineas", "1\n\n");
    EXPECT_EQ(Valor("A", "nul"), QStringLiteral("abc"));
    EXPECT_EQ(Valor("A", "dos"), QStringLiteral("abc") + QChar(u'\0'));
    EXPECT_EQ(Valor("A", "linea"), QStringLiteral("1"));
    EXPECT_EQ(Valor("A", "windows"), QStringLiteral("1"));
    EXPECT_EQ(Valor("A", "lineas"), QStringLiteral("1\n"));
}

TEST_F(RegistroArbol, TextKeepsAnyCharacterAndReadsTheCodePage) {
    Guarda("A", "clave", " Señor Ω 💶 ");
    EXPECT_EQ(Valor("A", "clave"), QStringLiteral(" Señor Ω 💶 "));
    Pon("HKLM/Software/A/ansi", "Se\xF1or");
    EXPECT_EQ(Valor("A", "ansi"), QStringLiteral("Señor"));
}

TEST_F(RegistroArbol, AnEmptyTextIsAValue) {
    Guarda("A", "vacio", "");
    EXPECT_TRUE(carpeta.Esta(QStringLiteral("HKLM/Software/A/vacio")));
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
    EXPECT_EQ(resultado, QStringLiteral("defecto"));
}

TEST_F(RegistroArbol, EachRootIsATreeOfItsOwn) {
    for (const char* raiz : {"HKCU", "HKLM", "HKU", "HKDD", "HKCC", "HKCR"}) {
        const QString nombre = QString::fromUtf8(raiz);
        EXPECT_EQ(registro.EscribirRegistro(nombre.toLower(), QStringLiteral("k"),
                                            QStringLiteral("v"), QStringLiteral("s"), nombre),
                  0);
        EXPECT_EQ(carpeta.Lee(nombre + QStringLiteral("/k/v")), QByteArray(raiz));
        EXPECT_EQ(Lee(raiz, "k", "v", "S"), 0);
        EXPECT_EQ(resultado, nombre);
    }
    EXPECT_EQ(registro.RaizRegistro(QStringLiteral("hklm")), Raiz::HKLM);
    EXPECT_EQ(registro.RaizRegistro(QStringLiteral("HkDd")), Raiz::HKDD);
}

TEST_F(RegistroArbol, AnUnknownRootIsCode99) {
    EXPECT_EQ(registro.RaizRegistro(QStringLiteral("HKXX")), Raiz::Ninguna);
    EXPECT_EQ(registro.RaizRegistro(carpeta.Ruta()), Raiz::Ninguna); // a folder is no file
    EXPECT_EQ(Lee("HKXX", "k", "v", "S"), 99);
    EXPECT_EQ(resultado, QStringLiteral("defecto"));
    EXPECT_EQ(registro.EscribirRegistro(QString(), QStringLiteral("k"), QStringLiteral("v"),
                                        QStringLiteral("S"), QStringLiteral("1")),
              99);
    EXPECT_EQ(
        registro.BorrarRegistro(QStringLiteral("HK"), QStringLiteral("k"), QStringLiteral("v")),
        99);
}

TEST_F(RegistroArbol, DoubleWordsPassThroughSixteenBits) {
    EXPECT_EQ(Escribe("k", "d", "d", "258"), 0);
    EXPECT_EQ(Fichero("HKLM/k/d"), QByteArray("\x02\x01\0\0", 4));
    EXPECT_EQ(Lee("HKLM", "k", "d", "D"), 0);
    EXPECT_EQ(resultado, QStringLiteral("258"));
    EXPECT_EQ(Escribe("k", "d", "D", "-1"), 0);
    EXPECT_EQ(Fichero("HKLM/k/d"), QByteArray("\xFF\xFF\xFF\xFF", 4));
    EXPECT_EQ(Lee("HKLM", "k", "d", "d"), 0);
    EXPECT_EQ(resultado, QStringLiteral("-1"));
    EXPECT_EQ(Escribe("k", "d", "D", "32768"), Registro::kDatoNoValido);
    EXPECT_EQ(Escribe("k", "d", "D", "uno"), Registro::kDatoNoValido);
    EXPECT_EQ(Fichero("HKLM/k/d"), QByteArray("\xFF\xFF\xFF\xFF", 4));
    Pon("HKLM/k/largo", "12345");
    EXPECT_EQ(Lee("HKLM", "k", "largo", "D"), 234);
}

TEST_F(RegistroArbol, BooleansAreTwoBytes) {
    EXPECT_EQ(Escribe("k", "b", "B", "True"), 0);
    EXPECT_EQ(Fichero("HKLM/k/b"), QByteArray("\xFF\xFF", 2));
    EXPECT_EQ(Lee("HKLM", "k", "b", "b"), 0);
    EXPECT_EQ(resultado, QStringLiteral("True"));
    EXPECT_EQ(Escribe("k", "b", "b", "0"), 0);
    EXPECT_EQ(Fichero("HKLM/k/b"), QByteArray("\0\0", 2));
    EXPECT_EQ(Lee("HKLM", "k", "b", "B"), 0);
    EXPECT_EQ(resultado, QStringLiteral("False"));
    EXPECT_EQ(Escribe("k", "b", "B", "5"), 0);
    EXPECT_EQ(Fichero("HKLM/k/b"), QByteArray("\xFF\xFF", 2));
    EXPECT_EQ(Escribe("k", "b", "B", "falso"), 0);
    EXPECT_EQ(Fichero("HKLM/k/b"), QByteArray("\0\0", 2));
    EXPECT_EQ(Escribe("k", "b", "B", "quizá"), Registro::kDatoNoValido);
}

TEST_F(RegistroArbol, AnUnknownKindIsRefused) {
    Guarda("A", "v", "1");
    EXPECT_EQ(Lee("HKLM", "Software\\A", "v", "X"), Registro::kParametroNoValido);
    EXPECT_EQ(resultado, QStringLiteral("defecto"));
    EXPECT_EQ(Escribe("k", "v", "", "1"), Registro::kParametroNoValido);
    EXPECT_FALSE(carpeta.Esta(QStringLiteral("HKLM/k")));
}

TEST_F(RegistroArbol, DeletingTakesTheValueAndIsNoFailureWithoutOne) {
    Guarda("A", "v", "1");
    Pon("HKLM/Software/A/V", "2");
    registro.BorrarValor(QStringLiteral("A"), QStringLiteral("v"));
    EXPECT_TRUE(carpeta.Entradas(QStringLiteral("HKLM/Software/A")).isEmpty());
    EXPECT_EQ(Valor("A", "v"), QStringLiteral("defecto"));
    EXPECT_EQ(Borra("Software\\A", "v"), 0);
    EXPECT_EQ(Borra("Software\\Nada\\Mas", "v"), 0);
}

TEST_F(RegistroArbol, AFolderInThePlaceOfAValueIsNoValue) {
    carpeta.PonCarpeta(QStringLiteral("HKLM/Software/A/v"));
    EXPECT_EQ(Valor("A", "v"), QStringLiteral("defecto"));
    EXPECT_EQ(Lee("HKLM", "Software\\A", "v", "S"), Registro::kNoExiste);
    EXPECT_EQ(Escribe("Software\\A", "v", "S", "1"), Registro::kAccesoDenegado);
    EXPECT_EQ(Borra("Software\\A", "v"), 0);
    EXPECT_TRUE(carpeta.Esta(QStringLiteral("HKLM/Software/A/v")));
}

TEST_F(RegistroArbol, AFileInThePlaceOfAKeyIsNoKey) {
    Pon("HKLM/Software/A", "1");
    EXPECT_EQ(Valor("A", "v"), QStringLiteral("defecto"));
    EXPECT_EQ(Escribe("Software\\A", "v", "S", "1"), Registro::kAccesoDenegado);
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
        EXPECT_EQ(Valor("A", "v"), QStringLiteral("1"));
        EXPECT_EQ(Escribe("Software\\A", "w", "S", "2"), Registro::kAccesoDenegado);
        EXPECT_EQ(Escribe("Software\\B", "v", "S", "2"), Registro::kAccesoDenegado);
        EXPECT_EQ(Borra("Software\\A", "v"), Registro::kAccesoDenegado);
        Guarda("A", "w", "2"); // ignored
        EXPECT_EQ(Valor("A", "w"), QStringLiteral("defecto"));
        Registro nuevo(carpeta.Ruta(QStringLiteral("no/se/puede")));
        EXPECT_EQ(nuevo.EscribirRegistro(QStringLiteral("HKLM"), QStringLiteral("k"),
                                         QStringLiteral("v"), QStringLiteral("S"),
                                         QStringLiteral("1")),
                  Registro::kAccesoDenegado);
    }
    for (const char* parte : {".", "HKLM", "HKLM/Software", "HKLM/Software/A"}) {
        ::chmod(QFile::encodeName(carpeta.Ruta(QString::fromUtf8(parte))).constData(), 0755);
    }
}

TEST_F(RegistroArbol, AValueThatMayNotBeReadYieldsTheDefault) {
    Guarda("A", "v", "1");
    ASSERT_EQ(::chmod(QFile::encodeName(carpeta.Ruta()).constData(), 0755), 0);
    ASSERT_EQ(
        ::chmod(QFile::encodeName(carpeta.Ruta(QStringLiteral("HKLM/Software/A/v"))).constData(),
                0200),
        0);
    const test::SinPrivilegios nadie;
    EXPECT_EQ(Valor("A", "v"), QStringLiteral("defecto"));
    EXPECT_EQ(Lee("HKLM", "Software\\A", "v", "S"), Registro::kAccesoDenegado);
}

TEST_F(RegistroArbol, CreatesTheFolderOfTheTreeWhenItFirstWrites) {
    Registro nuevo(carpeta.Ruta(QStringLiteral("sub/Registro")));
    EXPECT_FALSE(carpeta.Esta(QStringLiteral("sub")));
    nuevo.GuardarValor(QStringLiteral("A"), QStringLiteral("v"), QStringLiteral("1"));
    EXPECT_EQ(Fichero("sub/Registro/HKLM/Software/A/v"), QByteArray("1"));
}

TEST_F(RegistroArbol, TwoRegistriesDoNotMeet) {
    Registro uno(carpeta.Ruta(QStringLiteral("1")));
    Registro dos(carpeta.Ruta(QStringLiteral("2")));
    uno.GuardarValor(QStringLiteral("A"), QStringLiteral("v"), QStringLiteral("1"));
    EXPECT_EQ(dos.LeerValor(QStringLiteral("A"), QStringLiteral("v"), {}), QString());
}

TEST_F(RegistroArbol, ManyNamesDoNotPileUpOrMixUp) {
    for (int i = 0; i < 1000; ++i) {
        const QString nombre = QStringLiteral("v%1").arg(i);
        Pon("HKLM/Software/A/v7", "siete");
        ASSERT_EQ(registro.LeerValor(QStringLiteral("A"), nombre, QStringLiteral("no")),
                  i == 7 ? QStringLiteral("siete") : QStringLiteral("no"));
    }
    EXPECT_EQ(Valor("A", "v7"), QStringLiteral("siete"));
}

TEST_F(RegistroArbol, DefaultAndResultMayBeOneObject) {
    resultado = QStringLiteral("mio");
    EXPECT_EQ(registro.LeerRegistro(QStringLiteral("HKLM"), QStringLiteral("k"),
                                    QStringLiteral("v"), QStringLiteral("S"), resultado, resultado),
              Registro::kNoExiste);
    EXPECT_EQ(resultado, QStringLiteral("mio"));
}

class RegistroIni : public RegistroArbol {
  protected:
    int LeeIni(const char* clave, const char* tipo, const char* defecto = "defecto") {
        return registro.LeerRegistro(ini, QStringLiteral("Sec"), QString::fromUtf8(clave),
                                     QString::fromUtf8(tipo), QString::fromUtf8(defecto),
                                     resultado);
    }
    const QString ini = carpeta.Pon(QStringLiteral("x.ini"), "[Sec]\nk=texto\nn=-12abc\nv=\n");
};

TEST_F(RegistroIni, AnExistingFileIsARoot) {
    EXPECT_EQ(registro.RaizRegistro(ini), Raiz::Ini);
    EXPECT_EQ(static_cast<int>(Raiz::Ini), 1);
    EXPECT_EQ(static_cast<int>(Raiz::Ninguna), 0);
}

TEST_F(RegistroIni, TextComesFromTheSectionNamedByTheKey) {
    EXPECT_EQ(LeeIni("K", "S"), 0);
    EXPECT_EQ(resultado, QStringLiteral("texto"));
    EXPECT_EQ(LeeIni("no", "S"), 0);
    EXPECT_EQ(resultado, QStringLiteral("defecto"));
    EXPECT_EQ(LeeIni("v", "S"), 0);
    EXPECT_EQ(resultado, QString());
}

TEST_F(RegistroIni, TextHasAtMost255Characters) {
    carpeta.Pon(QStringLiteral("x.ini"), "[Sec]\nk=" + QByteArray(300, 'x') + "\n");
    EXPECT_EQ(LeeIni("k", "S"), 0);
    EXPECT_EQ(resultado.size(), 255);
}

TEST_F(RegistroIni, AnyOtherKindAnswersItsNumberAsTheCode) {
    EXPECT_EQ(LeeIni("n", "D"), -12);
    EXPECT_EQ(resultado, QStringLiteral("defecto"));
    EXPECT_EQ(LeeIni("n", "B"), -12);
    EXPECT_EQ(LeeIni("n", "Z"), -12);
    EXPECT_EQ(LeeIni("k", "D"), 0);
    EXPECT_EQ(LeeIni("no", "D", "7"), 7);
}

TEST_F(RegistroIni, WritesTextOnly) {
    EXPECT_EQ(registro.EscribirRegistro(ini, QStringLiteral("Sec"), QStringLiteral("k"),
                                        QStringLiteral("s"), QStringLiteral("nuevo")),
              0);
    EXPECT_EQ(registro.EscribirRegistro(ini, QStringLiteral("Sec"), QStringLiteral("n"),
                                        QStringLiteral("D"), QStringLiteral("5")),
              Registro::kParametroNoValido);
    EXPECT_EQ(Fichero("x.ini"), QByteArray("[Sec]\nk=nuevo\nn=-12abc\nv=\n"));
}

TEST_F(RegistroIni, DeletingLeavesAnEmptyValue) {
    EXPECT_EQ(registro.BorrarRegistro(ini, QStringLiteral("Sec"), QStringLiteral("k")), 0);
    EXPECT_EQ(Fichero("x.ini"), QByteArray("[Sec]\nk=\nn=-12abc\nv=\n"));
    EXPECT_EQ(registro.BorrarRegistro(ini, QStringLiteral("Sec"), QStringLiteral("otra")), 0);
    EXPECT_EQ(Fichero("x.ini"), QByteArray("[Sec]\nk=\nn=-12abc\nv=\notra=\n"));
}

TEST_F(RegistroIni, AFailureIsACodeAndNeverRaised) {
    ASSERT_EQ(::chmod(QFile::encodeName(ini).constData(), 0444), 0);
    EXPECT_EQ(registro.EscribirRegistro(ini, QStringLiteral("Sec"), QStringLiteral("k"),
                                        QStringLiteral("S"), QStringLiteral("nuevo")),
              Registro::kAccesoDenegado);
    EXPECT_EQ(registro.BorrarRegistro(ini, QStringLiteral("Sec"), QStringLiteral("k")),
              Registro::kAccesoDenegado);
    ASSERT_EQ(::chmod(QFile::encodeName(ini).constData(), 0200), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(carpeta.Ruta()).constData(), 0755), 0);
    const test::SinPrivilegios nadie;
    EXPECT_EQ(LeeIni("k", "S"), Registro::kAccesoDenegado);
    EXPECT_EQ(resultado, QStringLiteral("defecto"));
}

} // namespace
} // namespace zv

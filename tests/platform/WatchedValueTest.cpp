// A value that is asked for all the time is the one that stands in the registry, whoever wrote it
// and however.
#include "platform/WatchedValue.h"

#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"
#include "support/SinPrivilegios.h"

#include <QElapsedTimer>

#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

namespace zv {
namespace {

using test::CarpetaTemporal;

const QString kClave = u"sobre/Registro/HKLM/Software/Zorvex/ZVConnector"_s;
const QString kFichero = kClave + u"/Activo"_s;

class WatchedValueTest : public testing::Test {
  protected:
    QByteArray Ruta(const QString& relativa) const {
        return QFile::encodeName(carpeta.Ruta(relativa));
    }
    void Renombra(const QString& viejo, const QString& nuevo) const {
        ASSERT_EQ(::rename(Ruta(viejo).constData(), Ruta(nuevo).constData()), 0);
    }
    void Borra(const QString& relativa) const { QDir(carpeta.Ruta(relativa)).removeRecursively(); }
    // A file in the place of a folder goes, so that the value can be written again.
    void Despeja() const {
        for (QString ruta = kClave; ruta.contains(u'/'); ruta.truncate(ruta.lastIndexOf(u'/'))) {
            QFile::remove(carpeta.Ruta(ruta));
        }
    }
    // For as long as it takes until the folders are watched.
    void Preguntar() {
        QElapsedTimer reloj;
        for (reloj.start(); reloj.elapsed() < 120;) {
            valor.Leer();
        }
    }
    // Writes by a second name of the file, of which the system does not tell.
    void PonSinAviso(const QByteArray& bytes, const QString& fichero = kFichero) const {
        if (!carpeta.Esta(u"segundo"_s)) {
            ASSERT_EQ(::link(Ruta(fichero).constData(), Ruta(u"segundo"_s).constData()), 0);
        }
        carpeta.Pon(u"segundo"_s, bytes);
    }
    // The value stands as "0" and is watched: what happens unseen is not seen.
    void PonVigilado(const QString& fichero = kFichero) {
        carpeta.Pon(fichero, "0");
        QElapsedTimer reloj;
        reloj.start();
        for (;;) {
            Preguntar();
            PonSinAviso("9", fichero);
            const QString leido = valor.Leer();
            PonSinAviso("0", fichero);
            if (leido == u"0"_s) {
                return;
            }
            ASSERT_LT(reloj.elapsed(), 10'000) << "it is never watched";
        }
    }

    CarpetaTemporal carpeta;
    RegistryTree registry{carpeta.Ruta(u"sobre/Registro"_s)};
    RegistryName nombre{u"Zorvex\\ZVConnector"_s, u"Activo"_s};
    WatchedValue valor{registry, nombre, u"nada"_s};
};

TEST_F(WatchedValueTest, WhatHappensIsSeenAtOnce) {
    struct Cambio {
        const char* que;
        std::function<void()> hacer;
        const char* leido;
    };
    const std::vector<Cambio> cambios = {
        {"replaced", [&] { registry.GuardarValor(nombre, u"1"_s); }, "1"},
        {"written in place", [&] { carpeta.Pon(kFichero, "1"); }, "1"},
        {"deleted", [&] { registry.BorrarValor(nombre); }, "nada"},
        {"spelled otherwise", [&] { Renombra(kFichero, kClave + u"/ACTIVO"_s); }, "0"},
        {"its folder gone", [&] { Borra(kClave); }, "nada"},
        {"its folder made again",
         [&] {
             Borra(kClave);
             carpeta.Pon(kFichero, "1");
         },
         "1"},
        {"its folder a file",
         [&] {
             Borra(kClave);
             carpeta.Pon(kClave, "1");
         },
         "nada"},
        {"itself a folder",
         [&] {
             registry.BorrarValor(nombre);
             carpeta.PonCarpeta(kFichero);
         },
         "nada"},
        {"a folder above it spelled otherwise",
         [&] {
             Renombra(u"sobre/Registro/HKLM/Software"_s, u"sobre/Registro/HKLM/SOFTWARE"_s);
             carpeta.Pon(u"sobre/Registro/HKLM/SOFTWARE/Zorvex/ZVConnector/Activo"_s, "1");
         },
         "1"},
        {"an exact folder beside the one that had served",
         [&] { carpeta.PonCarpeta(u"sobre/Registro/HKLM/Software/Zorvex"_s); }, "0"},
        {"the tree replaced",
         [&] {
             Renombra(u"sobre/Registro"_s, u"sobre/Viejo"_s);
             carpeta.Pon(kFichero, "1");
         },
         "1"},
        {"the tree gone", [&] { Borra(u"sobre"_s); }, "nada"},
    };
    for (const Cambio& cambio : cambios) {
        Borra(u"sobre"_s);
        QFile::remove(carpeta.Ruta(u"segundo"_s));
        PonVigilado();
        cambio.hacer();
        EXPECT_EQ(valor.Leer(), QString::fromUtf8(cambio.leido)) << cambio.que;
        // And so does what follows, before the folders are watched again and after.
        Borra(u"sobre"_s);
        carpeta.Pon(kFichero, "2");
        EXPECT_EQ(valor.Leer(), u"2"_s) << cambio.que;
        registry.GuardarValor(nombre, u"3"_s);
        EXPECT_EQ(valor.Leer(), u"3"_s) << cambio.que;
        Preguntar();
        registry.GuardarValor(nombre, u"4"_s);
        EXPECT_EQ(valor.Leer(), u"4"_s) << cambio.que;
    }
}

TEST_F(WatchedValueTest, WhatIsSpelledOtherwiseIsWatchedToo) {
    PonVigilado(u"sobre/Registro/hklm/SOFTWARE/zorvex/zvconnector/ACTIVO"_s);
    registry.GuardarValor(nombre, u"1"_s);
    EXPECT_EQ(valor.Leer(), u"1"_s);
}

TEST_F(WatchedValueTest, WhatIsNotThereIsWatchedForToo) {
    struct Falta {
        const char* que;
        QString carpeta;
    };
    for (const Falta& falta : {Falta{"value", kClave},
                               {"key", u"sobre/Registro/HKLM/Software/Zorvex"_s},
                               {"maker", u"sobre/Registro/HKLM/Software"_s},
                               {"root", u"sobre/Registro"_s},
                               {"tree", u"sobre"_s}}) {
        Borra(u"sobre"_s);
        carpeta.PonCarpeta(falta.carpeta);
        Preguntar();
        EXPECT_EQ(valor.Leer(), u"nada"_s) << falta.que;
        carpeta.Pon(kFichero, "1");
        EXPECT_EQ(valor.Leer(), u"1"_s) << falta.que;
    }
}

TEST_F(WatchedValueTest, WhatTheSystemDoesNotTellShowsAfterAMoment) {
    PonVigilado();
    const std::vector<std::function<void()>> cambios = {
        [&] { PonSinAviso("1"); },
        [&] {
            // A folder above the tree gets another name, and another tree stands in its place.
            Renombra(u"sobre"_s, u"debajo"_s);
            carpeta.Pon(kFichero, "2");
        },
        [&] { registry.GuardarValor(nombre, u"3"_s); }};
    for (std::size_t i = 0; i < cambios.size(); ++i) {
        cambios[i]();
        QElapsedTimer reloj;
        reloj.start();
        while (valor.Leer() != QString::number(i + 1)) {
            ASSERT_LT(reloj.elapsed(), 5000) << i;
        }
    }
}

TEST_F(WatchedValueTest, AFolderThatMayNotBeWatchedIsLookedAt) {
    carpeta.Pon(kFichero, "0");
    ::chmod(Ruta(QString()).constData(), 0711);
    ::chmod(Ruta(kClave).constData(), 0311);
    {
        const int escritor = ::open(Ruta(kFichero).constData(), O_WRONLY | O_CLOEXEC);
        const test::SinPrivilegios nadie;
        Preguntar();
        for (const char* texto : {"1", "2", "3"}) {
            ASSERT_EQ(::pwrite(escritor, texto, 1, 0), 1);
            EXPECT_EQ(valor.Leer(), QString::fromUtf8(texto));
        }
        ::close(escritor);
    }
    ::chmod(Ruta(kClave).constData(), 0755);
}

// Whatever programs do to the tree, in any order: the answer is the one of a look.
TEST_F(WatchedValueTest, AnswersWhatALookAnswersAfterAnythingWhatever) {
    const std::random_device::result_type semilla = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(semilla));
    std::mt19937 azar(semilla);
    const auto uno = [&azar](const QStringList& varios) {
        return varios[static_cast<qsizetype>(azar() % static_cast<unsigned>(varios.size()))];
    };
    const QStringList carpetas = {u"sobre/Registro"_s,
                                  u"sobre/Registro/HKLM"_s,
                                  u"sobre/Registro/hklm"_s,
                                  u"sobre/Registro/HKLM/Software"_s,
                                  u"sobre/Registro/HKLM/SOFTWARE"_s,
                                  u"sobre/Registro/HKLM/Software/Zorvex"_s,
                                  u"sobre/Registro/HKLM/Software/zorvex"_s,
                                  kClave,
                                  u"sobre/Registro/HKLM/Software/Zorvex/zvconnector"_s,
                                  u"sobre/Otro"_s};
    const auto fichero = [&] { return uno(carpetas) + u'/' + uno({u"Activo"_s, u"ACTIVO"_s}); };
    const std::vector<std::function<void()>> actos = {
        [&] { registry.GuardarValor(nombre, QString::number(azar() % 3)); },
        [&] { registry.BorrarValor(nombre); },
        [&] {
            QFile escrito(carpeta.Ruta(fichero()));
            if (escrito.open(QIODevice::WriteOnly)) {
                escrito.write(QByteArray::number(azar() % 3));
            }
        },
        [&] { QFile::remove(carpeta.Ruta(fichero())); },
        [&] { QDir().mkpath(carpeta.Ruta(uno(carpetas))); },
        [&] { Borra(uno(carpetas)); },
        [&] { ::rename(Ruta(uno(carpetas)).constData(), Ruta(uno(carpetas)).constData()); },
        [&] { ::rename(Ruta(fichero()).constData(), Ruta(fichero()).constData()); },
        [&] { ::rename(Ruta(fichero()).constData(), Ruta(uno(carpetas)).constData()); },
        [&] { ::chmod(Ruta(uno(carpetas)).constData(), 0700); }};
    int vistos = 0;
    for (int i = 0; i < 800; ++i) {
        if (i % 20 == 0) {
            Despeja();
            carpeta.Pon(kFichero, "0");
            Preguntar();
        }
        actos[azar() % actos.size()]();
        const RegistryTree fresco(carpeta.Ruta(u"sobre/Registro"_s));
        const QString esperado = fresco.LeerValor(nombre, u"nada"_s);
        ASSERT_EQ(valor.Leer(), esperado) << i;
        vistos += esperado != u"nada"_s ? 1 : 0;
    }
    EXPECT_GT(vistos, 80);
}

TEST_F(WatchedValueTest, ANameThatIsRefusedYieldsTheDefault) {
    WatchedValue malo(registry, {u"Zorvex\\.."_s, u"Activo"_s}, u"nada"_s);
    EXPECT_EQ(malo.Leer(), u"nada"_s);
    QElapsedTimer reloj;
    for (reloj.start(); reloj.elapsed() < 120;) {
        EXPECT_EQ(malo.Leer(), u"nada"_s);
    }
}

} // namespace
} // namespace zv

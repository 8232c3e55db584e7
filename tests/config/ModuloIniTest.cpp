// INI access of the settings: limits and what is told of failures.
#include "config/BancoConfig.h"
#include "platform/StringLiterals.h"
#include "support/NumeroError.h"

#include <sys/stat.h>

namespace zv {
namespace {

class ModuloIniTest : public BancoConfig {
  protected:
    QString Lee(const char* clave, const char* defecto = "defecto") const {
        return ini.LeerIni(ruta, u"S"_s, QString::fromUtf8(clave), QString::fromUtf8(defecto));
    }
    void Protege(mode_t modo) const {
        ASSERT_EQ(::chmod(QFile::encodeName(ruta).constData(), modo), 0);
    }
};

TEST_F(ModuloIniTest, GivesTheValueOrTheDefault) {
    EXPECT_EQ(Lee("k"), u"defecto"_s);
    carpeta.Pon(u"ZVMonitor.ini"_s, "[S]\r\nk=valor\r\nvacio=\r\n");
    EXPECT_EQ(Lee("K"), u"valor"_s);
    EXPECT_EQ(Lee("vacio"), QString());
    EXPECT_EQ(Lee("otra"), u"defecto"_s);
}

TEST_F(ModuloIniTest, GivesAtMost255Characters) {
    carpeta.Pon(u"ZVMonitor.ini"_s,
                "[S]\nk=" + QByteArray(254, 'x') + "yz\nj=" + QByteArray(255, 'x') + "\n");
    EXPECT_EQ(Lee("k"), QString(254, u'x') + u'y');
    EXPECT_EQ(Lee("j").size(), 255);
    EXPECT_EQ(Lee("no", QByteArray(300, 'd').constData()).size(), 255);
}

TEST_F(ModuloIniTest, AFailedReadIsShownAndEmpty) {
    carpeta.PonCarpeta(u"ZVMonitor.ini"_s);
    dialogos.EsperaMensaje(
        u"Error al leer el fichero de configuración"_s,
        u"Error nº 75: Error de acceso a la ruta o al archivo: %1 (es una carpeta)"_s.arg(ruta),
        Respuesta::Aceptar, EstiloMensaje::Aceptar);
    EXPECT_EQ(Lee("k"), QString());
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(ModuloIniTest, WritesAndSaysSo) {
    EXPECT_TRUE(ini.EscribirIni(ruta, u"S"_s, u"k"_s, u"España"_s));
    EXPECT_EQ(Fichero(), QByteArray("[S]\r\nk=Espa\xF1"
                                    "a\r\n"));
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(ModuloIniTest, AFailedWriteIsLoggedAndFalse) {
    carpeta.Pon(u"ZVMonitor.ini"_s, "[S]\nk=1\n");
    Protege(0444);
    EXPECT_FALSE(ini.EscribirIni(ruta, u"S"_s, u"k"_s, u"2"_s));
    EXPECT_EQ(log.lineas, QStringList{u"GRABARINI - Error 75 - Error de acceso a la ruta o al "
                                      "archivo: %1 (permiso denegado)"_s.arg(ruta)});
    EXPECT_EQ(Fichero(), QByteArray("[S]\nk=1\n"));
}

TEST_F(ModuloIniTest, ALogThatFailsTooReachesTheCaller) {
    carpeta.PonCarpeta(u"ZVMonitor.ini"_s);
    log.fallosPendientes = 1;
    EXPECT_EQ(test::NumeroError([this] { ini.EscribirIni(ruta, u"S"_s, u"k"_s, u"2"_s); }), 75);
}

} // namespace
} // namespace zv

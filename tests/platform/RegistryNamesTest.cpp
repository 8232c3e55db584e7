#include "platform/RegistryNames.h"

#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

// Other programs read and write these values: their places are an interface.
TEST(RegistryNamesTest, EachNameIsThePlaceThatOtherProgramsKnow) {
    using namespace registry_name;
    for (const auto& [nombre, sitio] :
         {std::pair{&kSaldoInicial, "ZVMonitor/Saldo_Inicial"},
          std::pair{&kSaldoExit, "ZVMonitor/Saldo_Exit"}, std::pair{&kActivo, "ZVMonitor/Activo"},
          std::pair{&kClaveAdmin, "ZVMonitor/CLAVE_ADMIN"},
          std::pair{&kClaveAutorizado, "ZVMonitor/CLAVE_AUTORIZADO"},
          std::pair{&kClaveTecnico, "ZVMonitor/CLAVE_TECNICO"},
          std::pair{&kConectorPath, "ZVConnector/Path"},
          std::pair{&kConectorActivo, "ZVConnector/Activo"}}) {
        const test::CarpetaTemporal carpeta;
        RegistryTree registry(carpeta.Ruta());
        registry.GuardarValor(*nombre, u"dato"_s);
        EXPECT_EQ(carpeta.Lee(u"HKLM/Software/Zorvex/"_s + QLatin1String(sitio)), "dato");
        EXPECT_EQ(registry.LeerValor(*nombre, u"defecto"_s), u"dato"_s);
        registry.BorrarValor(*nombre);
        EXPECT_EQ(registry.LeerValor(*nombre, u"defecto"_s), u"defecto"_s);
    }
}

} // namespace
} // namespace zv

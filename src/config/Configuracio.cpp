// Loading and saving of the settings, key by key in the order of the file.
#include "config/Configuracio.h"

#include "platform/Conversions.h"
#include "platform/Files.h"
#include "platform/StringLiterals.h"

#include <array>

namespace zv {
namespace {

constexpr QLatin1String kZorvex("ZORVEX");
constexpr QLatin1String kMonitor("ZVMONITOR");
constexpr QLatin1String kBarcode("BARCODE");
constexpr QLatin1String kConector("CONECTOR");

constexpr QLatin1String kRegistroMonitor("Zorvex\\ZVMonitor");
constexpr QLatin1String kRegistroConector("Zorvex\\ZVConnector");
constexpr QLatin1String kClaveAdmin("CLAVE_ADMIN");
constexpr QLatin1String kClaveAutorizado("CLAVE_AUTORIZADO");
constexpr QLatin1String kClaveTecnico("CLAVE_TECNICO");

struct CampoByte {
    QLatin1String clave;
    quint8 Configuracio::*campo;
    QLatin1String defecto;
};

// The byte keys behind REFRESCO, in the order of the file.
constexpr std::array kBytesMonitor = {
    CampoByte{QLatin1String("MINIMIZADO"), &Configuracio::MINIMIZADO, QLatin1String("0")},
    CampoByte{QLatin1String("BLOQUEARPAGOS"), &Configuracio::BLOQUEARPAGOS, QLatin1String("0")},
    CampoByte{QLatin1String("PREGUNTARANULAR"), &Configuracio::PREGUNTARANULAR, QLatin1String("1")},
    CampoByte{QLatin1String("SINIMPRESORA"), &Configuracio::SINIMPRESORA, QLatin1String("0")},
    CampoByte{QLatin1String("PREGUNTARCTO"), &Configuracio::PREGUNTARCTO, QLatin1String("1")},
    CampoByte{QLatin1String("BOTONACCESO"), &Configuracio::BOTONACCESO, QLatin1String("0")},
    CampoByte{QLatin1String("PAGOSADMIN"), &Configuracio::PAGOSADMIN, QLatin1String("0")},
    CampoByte{QLatin1String("SINHORA"), &Configuracio::SINHORA, QLatin1String("0")},
    CampoByte{QLatin1String("COLID2"), &Configuracio::COLID2, QLatin1String("0")},
    CampoByte{QLatin1String("COLIDCAJA"), &Configuracio::COLIDCAJA, QLatin1String("0")},
    CampoByte{QLatin1String("COLVENDEDOR"), &Configuracio::COLVENDEDOR, QLatin1String("0")},
    CampoByte{QLatin1String("COLTERMINAL"), &Configuracio::COLTERMINAL, QLatin1String("0")},
    CampoByte{QLatin1String("COLFORMAPAGO"), &Configuracio::COLFORMAPAGO, QLatin1String("0")},
};

// Those behind BCTPRE.
constexpr std::array kBytesBarcode = {
    CampoByte{QLatin1String("BCTINI"), &Configuracio::BCTINI, QLatin1String("0")},
    CampoByte{QLatin1String("BCTFIN"), &Configuracio::BCTFIN, QLatin1String("0")},
    CampoByte{QLatin1String("BCIINI"), &Configuracio::BCIINI, QLatin1String("0")},
    CampoByte{QLatin1String("BCIFIN"), &Configuracio::BCIFIN, QLatin1String("0")},
    CampoByte{QLatin1String("BCDEC"), &Configuracio::BCDEC, QLatin1String("0")},
};

QString Marca(bool valor) {
    return valor ? u"1"_s : u"0"_s;
}

} // namespace

Configuracio::Configuracio(const ModuloIni& ini, RegistryTree& registro, QString carpeta,
                           FormatoRegional formato)
    : ini_(ini), registro_(registro), carpeta_(std::move(carpeta)), formato_(std::move(formato)) {}

void Configuracio::LeerCfgIni(const QString& ruta, bool& existe) {
    // One reading for all keys. A file that cannot be read counts as one that is not there.
    const std::optional<IniDocument> leido = ini_.LeerTodo(ruta);
    const IniDocument documento = leido.value_or(IniDocument());
    const auto leer = [&](QLatin1String seccion, QLatin1String clave, const QString& defecto) {
        return ModuloIni::Valor(documento, seccion, clave, defecto);
    };
    const auto leerByte = [&](QLatin1String seccion, const CampoByte& byte) {
        this->*byte.campo = AByte(leer(seccion, byte.clave, byte.defecto), formato_);
    };

    IP = leer(kZorvex, QLatin1String("IP"), {});
    SUITEZV = leer(kZorvex, QLatin1String("SUITEZV"), carpeta_);

    Modo = leer(kMonitor, QLatin1String("MODO"), u"AUTO"_s);
    ModoInicial = Modo;
    ModoAnterior.clear();
    REFRESCO = AEntero16(leer(kMonitor, QLatin1String("REFRESCO"), u"2"_s), formato_);
    for (const CampoByte& byte : kBytesMonitor) {
        leerByte(kMonitor, byte);
    }

    CLAVE_ADMIN = registro_.LeerValor(kRegistroMonitor, kClaveAdmin, {});
    CLAVE_TECNICO = registro_.LeerValor(kRegistroMonitor, kClaveTecnico, {});
    CLAVE_AUTORIZADO = registro_.LeerValor(kRegistroMonitor, kClaveAutorizado, {});

    const QString cero = u"0"_s;
    BCEAN = AByte(leer(kBarcode, QLatin1String("BCEAN"), cero), formato_);
    BCTPRE = ADoble(leer(kBarcode, QLatin1String("BCTPRE"), cero), formato_) == 1.0;
    for (const CampoByte& byte : kBytesBarcode) {
        leerByte(kBarcode, byte);
    }

    zvFastActive = leer(kConector, QLatin1String("ZVFastActive"), u"1"_s) != cero;
    ZVFastPort = leer(kConector, QLatin1String("ZVFastPort"), u"16501"_s);
    ZVConectorActive = leer(kConector, QLatin1String("ZVConectorActive"), cero) != cero;
    ZVConectorPath = leer(kConector, QLatin1String("ZVConectorPath"), {});
    if (ZVConectorPath.isEmpty() && ZVConectorActive) {
        ZVConectorPath = registro_.LeerValor(kRegistroConector, u"Path"_s, {});
    }

    existe = leido && ExisteFichero(ruta);
}

void Configuracio::GuardarConfig(const QString& ruta) {
    const auto escribir = [&](QLatin1String seccion, QLatin1String clave, const QString& valor) {
        // A failure is in the log by now; the other keys are still worth saving.
        ini_.EscribirIni(ruta, seccion, clave, valor);
    };
    const auto escribirByte = [&](QLatin1String seccion, const CampoByte& byte) {
        escribir(seccion, byte.clave, QString::number(this->*byte.campo));
    };

    escribir(kZorvex, QLatin1String("IP"), IP);
    escribir(kZorvex, QLatin1String("SUITEZV"), SUITEZV);

    escribir(kMonitor, QLatin1String("MODO"), Modo);
    ModoInicial = Modo;
    escribir(kMonitor, QLatin1String("REFRESCO"), QString::number(REFRESCO));
    for (const CampoByte& byte : kBytesMonitor) {
        escribirByte(kMonitor, byte);
    }

    if (CLAVE_ADMIN.isEmpty() && CLAVE_AUTORIZADO.isEmpty() && CLAVE_TECNICO.isEmpty()) {
        registro_.BorrarValor(kRegistroMonitor, kClaveAdmin);
        registro_.BorrarValor(kRegistroMonitor, kClaveAutorizado);
        registro_.BorrarValor(kRegistroMonitor, kClaveTecnico);
    } else {
        registro_.GuardarValor(kRegistroMonitor, kClaveAdmin, CLAVE_ADMIN);
        registro_.GuardarValor(kRegistroMonitor, kClaveAutorizado, CLAVE_AUTORIZADO);
        registro_.GuardarValor(kRegistroMonitor, kClaveTecnico, CLAVE_TECNICO);
    }

    escribir(kBarcode, QLatin1String("BCEAN"), QString::number(BCEAN));
    escribir(kBarcode, QLatin1String("BCTPRE"), Marca(BCTPRE));
    for (const CampoByte& byte : kBytesBarcode) {
        escribirByte(kBarcode, byte);
    }

    escribir(kConector, QLatin1String("ZVFastActive"), Marca(zvFastActive));
    escribir(kConector, QLatin1String("ZVFastPort"), ZVFastPort);
    escribir(kConector, QLatin1String("ZVConectorActive"), Marca(ZVConectorActive));
    escribir(kConector, QLatin1String("ZVConectorPath"), ZVConectorPath);
}

void Configuracio::CopyFrom(const Configuracio& otra) {
    IP = otra.IP;
    SUITEZV = otra.SUITEZV;
    Modo = otra.Modo;
    ModoInicial = otra.ModoInicial;
    REFRESCO = otra.REFRESCO;
    MINIMIZADO = otra.MINIMIZADO;
    BLOQUEARPAGOS = otra.BLOQUEARPAGOS;
    PREGUNTARANULAR = otra.PREGUNTARANULAR;
    SINIMPRESORA = otra.SINIMPRESORA;
    PREGUNTARCTO = otra.PREGUNTARCTO;
    BOTONACCESO = otra.BOTONACCESO;
    PAGOSADMIN = otra.PAGOSADMIN;
    SINHORA = otra.SINHORA;
    COLIDCAJA = otra.COLIDCAJA;
    COLID2 = otra.COLID2;
    COLVENDEDOR = otra.COLVENDEDOR;
    COLTERMINAL = otra.COLTERMINAL;
    COLFORMAPAGO = otra.COLFORMAPAGO;
    CLAVE_AUTORIZADO = otra.CLAVE_AUTORIZADO;
    CLAVE_ADMIN = otra.CLAVE_ADMIN;
    CLAVE_TECNICO = otra.CLAVE_TECNICO;
    BCEAN = otra.BCEAN;
    BCTPRE = otra.BCTPRE;
    BCTINI = otra.BCTINI;
    BCTFIN = otra.BCTFIN;
    BCIINI = otra.BCIINI;
    BCIFIN = otra.BCIFIN;
    BCDEC = otra.BCDEC;
    ZVConectorActive = otra.ZVConectorActive;
    ZVConectorPath = otra.ZVConectorPath;
    zvFastActive = otra.zvFastActive;
    ZVFastPort = otra.ZVFastPort;
}

} // namespace zv

#include "platform/RegistryTree.h"

#include "platform/CodePage.h"
#include "platform/Conversions.h"
#include "platform/ErrorEjecucion.h"
#include "platform/FileDescriptor.h"
#include "platform/Files.h"
#include "platform/NameTree.h"
#include "platform/PrivateProfile.h"
#include "platform/StringLiterals.h"

#include <QDir>
#include <QFile>
#include <QStringDecoder>
#include <QVarLengthArray>

#include <array>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>

namespace zv {

// Two changes within one tick of the file system's clock leave the same time stamp, so a folder
// counts as settled only when its last change is older than the coarsest tick.
struct RegistryTree::Sello {
    QByteArray carpeta;
    bool existe = false;
    struct stat datos {};

    void Tomar() { existe = ::stat(carpeta.constData(), &datos) == 0; }
    bool Vale() const {
        struct stat ahora {};
        if ((::stat(carpeta.constData(), &ahora) == 0) != existe) {
            return false;
        }
        return !existe || (ahora.st_ino == datos.st_ino && ahora.st_dev == datos.st_dev &&
                           ahora.st_mtim.tv_sec == datos.st_mtim.tv_sec &&
                           ahora.st_mtim.tv_nsec == datos.st_mtim.tv_nsec);
    }
    bool Asentado() const {
        constexpr qint64 kGranularidadSegundos = 2;
        timespec ahora{};
        clock_gettime(CLOCK_REALTIME_COARSE, &ahora);
        return !existe || datos.st_mtim.tv_sec + kGranularidadSegundos < ahora.tv_sec;
    }
};

struct RegistryTree::Sitio {
    QByteArray exacta; // path as the names are spelled; empty when a name is refused
    QList<QByteArray> partes;
    QByteArray valor;
    // What a search found when nothing stood at that path.
    QByteArray real; // empty: no such value
    QVarLengthArray<Sello, 8> sellos;
    bool creible = false;

    void Buscar(const QByteArray& carpeta);
    bool Vale() const {
        return creible && std::all_of(sellos.cbegin(), sellos.cend(),
                                      [](const Sello& sello) { return sello.Vale(); });
    }
};

void RegistryTree::Sitio::Buscar(const QByteArray& carpeta) {
    real.clear();
    sellos.clear();
    QByteArray ruta = carpeta;
    for (qsizetype i = 0; i <= partes.size(); ++i) {
        // The stamp is taken before the look, so that a change in between shows.
        Sello sello{ruta, false, {}};
        sello.Tomar();
        sellos.append(sello);
        const bool ultima = i == partes.size();
        const auto entrada = arbol::Entrada(ruta, ultima ? valor : partes[i],
                                            ultima ? arbol::Kind::Fichero : arbol::Kind::Carpeta);
        if (!entrada) {
            break;
        }
        ruta += '/' + *entrada;
        if (ultima) {
            real = ruta;
        } else if (*entrada == partes[i]) {
            // An exact name comes before all others: nothing new in this folder changes the answer,
            // and if the entry itself goes, the stamps below it show that.
            sellos.removeLast();
        }
    }
    creible = std::all_of(sellos.cbegin(), sellos.cend(),
                          [](const Sello& sello) { return sello.Asentado(); });
}

namespace {

struct NombreDeRaiz {
    const char* nombre;
    Raiz raiz;
};
constexpr std::array<NombreDeRaiz, 6> kRaices = {{{"HKCU", Raiz::HKCU},
                                                  {"HKLM", Raiz::HKLM},
                                                  {"HKU", Raiz::HKU},
                                                  {"HKDD", Raiz::HKDD},
                                                  {"HKCC", Raiz::HKCC},
                                                  {"HKCR", Raiz::HKCR}}};

constexpr qsizetype kTopeValor = qsizetype{1}
                                 << 20; // bytes; what a registry value may hold at most

// The number that the registry's callers know for an error of this system.
int CodigoDe(int numero) {
    switch (numero) {
    case 0:
        return RegistryTree::kBien;
    case ENOENT:
    case ENOTDIR: // a file where the key would be: there is no such key
        return RegistryTree::kNoExiste;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case EEXIST:
        return RegistryTree::kAccesoDenegado;
    case EMFILE:
    case ENFILE:
        return 4;
    case ENOMEM:
        return 8;
    case ENOSPC:
    case EDQUOT:
        return 112;
    case ENAMETOOLONG:
        return 206;
    case EFBIG:
        return 234; // more data than fits
    default:
        return 31; // general failure
    }
}

bool EsTipo(const QString& tipo, char16_t letra) {
    return tipo.size() == 1 && tipo.front().toUpper() == letra;
}

QString TextoDe(QByteArray bytes) {
    if (bytes.endsWith('\n')) {
        bytes.chop(bytes.endsWith("\r\n") ? 2 : 1);
    }
    if (bytes.endsWith('\0')) {
        bytes.chop(1);
    }
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString texto = utf8.decode(bytes);
    return utf8.hasError() ? DeCodePage(bytes) : texto;
}

// A little-endian number of two or four bytes; missing bytes are 0.
qint32 NumeroDe(const QByteArray& bytes, int tamaño) {
    quint32 numero = 0;
    for (int i = 0; i < std::min<int>(tamaño, static_cast<int>(bytes.size())); ++i) {
        numero |= static_cast<quint32>(static_cast<uchar>(bytes[i])) << (8 * i);
    }
    return static_cast<qint32>(numero);
}

QByteArray BytesDe(qint32 numero, int tamaño) {
    QByteArray bytes;
    for (int i = 0; i < tamaño; ++i) {
        bytes.append(static_cast<char>((static_cast<quint32>(numero) >> (8 * i)) & 0xFF));
    }
    return bytes;
}

bool ABooleano(const QString& dato) {
    const QString palabra = dato.trimmed().toLower();
    if (palabra == u"true"_s || palabra == u"verdadero"_s) {
        return true;
    }
    if (palabra == u"false"_s || palabra == u"falso"_s) {
        return false;
    }
    return ADoble(dato, FormatoRegional::DelSistema()) != 0;
}

// The whole number at the start of an INI value, as the platform's profile call takes it: blanks,
// a sign, digits; 0 without digits; it wraps at 32 bits.
int EnteroDePerfil(const QString& texto) {
    qsizetype i = 0;
    while (i < texto.size() && (texto[i] == u' ' || texto[i] == u'\t')) {
        ++i;
    }
    const bool negativo = i < texto.size() && texto[i] == u'-';
    i += i < texto.size() && (texto[i] == u'-' || texto[i] == u'+') ? 1 : 0;
    quint32 numero = 0;
    for (; i < texto.size() && texto[i] >= u'0' && texto[i] <= u'9'; ++i) {
        numero = numero * 10 + static_cast<quint32>(texto[i].unicode() - u'0');
    }
    return static_cast<int>(negativo ? 0 - numero : numero);
}

// A small file with as few calls as can be; big ones and odd ones take the general way.
int LeerPequeño(const QByteArray& ruta, QByteArray& bytes) {
    std::array<char, 512> trozo; // NOLINT(cppcoreguidelines-pro-type-member-init)
    ssize_t leidos = 0;
    {
        const FileDescriptor fichero(
            ::open(ruta.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
        if (!fichero.Abierto()) {
            return errno;
        }
        leidos = ::read(fichero.Numero(), trozo.data(), trozo.size());
        if (leidos < 0 && errno != EINTR) {
            return errno;
        }
    }
    if (leidos < 0 || static_cast<size_t>(leidos) == trozo.size()) {
        return LeerFicheroEntero(ruta, bytes, kTopeValor);
    }
    bytes = QByteArray(trozo.data(), leidos);
    return 0;
}

bool NoEsta(int numero) {
    return numero == ENOENT || numero == ENOTDIR || numero == EISDIR;
}

} // namespace

RegistryTree::RegistryTree(const QString& carpeta) : carpeta_(QFile::encodeName(carpeta)) {}

QByteArray RegistryTree::Carpeta(Raiz raiz) const {
    for (const NombreDeRaiz& candidata : kRaices) {
        if (candidata.raiz == raiz) {
            return candidata.nombre;
        }
    }
    return {};
}

Raiz RegistryTree::RaizRegistro(const QString& raiz) const {
    for (const NombreDeRaiz& candidata : kRaices) {
        if (raiz.compare(QLatin1String(candidata.nombre), Qt::CaseInsensitive) == 0) {
            return candidata.raiz;
        }
    }
    return ExisteFichero(raiz) ? Raiz::Ini : Raiz::Ninguna;
}

int RegistryTree::LeerTexto(Raiz raiz, const QString& clave, const QString& valor,
                            QByteArray& bytes) const {
    constexpr qsizetype kTopeSitios = 256; // far more names than the system has
    const Nombre nombre{raiz, clave, valor};
    auto hallado = sitios_.constFind(nombre);
    if (hallado == sitios_.cend()) {
        auto nuevo = std::make_shared<Sitio>();
        const auto partes = arbol::PartesDeClave(clave);
        if (partes && arbol::NombreValido(valor)) {
            nuevo->partes = *partes;
            nuevo->partes.prepend(Carpeta(raiz));
            nuevo->valor = QFile::encodeName(valor);
            nuevo->exacta = carpeta_ + '/' + nuevo->partes.join('/') + '/' + nuevo->valor;
        }
        if (sitios_.size() >= kTopeSitios) {
            sitios_.clear();
        }
        hallado = sitios_.insert(nombre, nuevo);
    }
    Sitio& sitio = **hallado;
    if (sitio.exacta.isEmpty()) {
        return kNombreNoValido;
    }
    // Nothing at the exact path before, and no folder has changed since: the answer still holds.
    const bool vale = sitio.Vale();
    int error = vale ? ENOENT : LeerPequeño(sitio.exacta, bytes);
    if (NoEsta(error)) {
        // Perhaps spelled otherwise. The search is paid again only after a change in the folders.
        if (!vale) {
            sitio.Buscar(carpeta_);
        }
        error = sitio.real.isEmpty() ? ENOENT : LeerPequeño(sitio.real, bytes);
    } else {
        sitio.creible = false;
    }
    return CodigoDe(error);
}

int RegistryTree::LeerRegistro(const QString& raiz, const QString& clave, const QString& valor,
                               const QString& tipo, const QString& defecto,
                               QString& resultado) const {
    resultado = defecto;
    const Raiz donde = RaizRegistro(raiz);
    if (donde == Raiz::Ninguna) {
        return kRaizNoValida;
    }
    const bool texto = EsTipo(tipo, u'S');
    if (donde == Raiz::Ini) {
        try {
            const QString leido = perfil::Leer(raiz, clave, valor).value_or(defecto);
            if (!texto) {
                return EnteroDePerfil(leido);
            }
            constexpr qsizetype kLargoMaximo = 255;
            resultado = leido.left(kLargoMaximo);
            return kBien;
        } catch (const ErrorEjecucion&) {
            return kAccesoDenegado;
        }
    }
    const bool booleano = EsTipo(tipo, u'B');
    if (!texto && !booleano && !EsTipo(tipo, u'D')) {
        return kParametroNoValido;
    }
    QByteArray bytes;
    const int codigo = LeerTexto(donde, clave, valor, bytes);
    if (codigo != kBien) {
        return codigo;
    }
    if (texto) {
        resultado = TextoDe(bytes);
        return kBien;
    }
    const int tamaño = booleano ? 2 : 4;
    if (bytes.size() > tamaño) {
        return CodigoDe(EFBIG);
    }
    const qint32 numero = NumeroDe(bytes, tamaño);
    resultado = !booleano ? QString::number(numero) : numero != 0 ? u"True"_s : u"False"_s;
    return kBien;
}

int RegistryTree::Escribir(Raiz raiz, const QString& clave, const QString& valor,
                           const QByteArray& bytes, Guardado guardado) {
    auto partes = arbol::PartesDeClave(clave);
    if (!partes || !arbol::NombreValido(valor)) {
        return kNombreNoValido;
    }
    partes->prepend(Carpeta(raiz));
    if (!QDir().mkpath(QFile::decodeName(carpeta_))) {
        return kAccesoDenegado;
    }
    QByteArray ruta = carpeta_;
    for (const QByteArray& parte : *partes) {
        const auto existente = arbol::Entrada(ruta, parte, arbol::Kind::Carpeta);
        ruta += '/' + existente.value_or(parte);
        if (!existente && ::mkdir(ruta.constData(), 0777) != 0) {
            return CodigoDe(errno);
        }
    }
    const QByteArray nombre = QFile::encodeName(valor);
    ruta += '/' + arbol::Entrada(ruta, nombre, arbol::Kind::Fichero).value_or(nombre);
    return CodigoDe(ReemplazarFichero(ruta, bytes, guardado));
}

int RegistryTree::EscribirRegistro(const QString& raiz, const QString& clave, const QString& valor,
                                   const QString& tipo, const QString& dato, Guardado guardado) {
    const Raiz donde = RaizRegistro(raiz);
    if (donde == Raiz::Ninguna) {
        return kRaizNoValida;
    }
    const bool texto = EsTipo(tipo, u'S');
    try {
        if (donde == Raiz::Ini) {
            if (!texto) {
                return kParametroNoValido;
            }
            perfil::Escribir(raiz, clave, valor, dato);
            return kBien;
        }
        if (texto) {
            return Escribir(donde, clave, valor, dato.toUtf8(), guardado);
        }
        if (EsTipo(tipo, u'B')) {
            return Escribir(donde, clave, valor, BytesDe(ABooleano(dato) ? -1 : 0, 2), guardado);
        }
        if (EsTipo(tipo, u'D')) {
            const qint16 numero = AEntero16(dato, FormatoRegional::DelSistema());
            return Escribir(donde, clave, valor, BytesDe(numero, 4), guardado);
        }
        return kParametroNoValido;
    } catch (const ErrorEjecucion&) {
        return donde == Raiz::Ini ? kAccesoDenegado : kDatoNoValido;
    }
}

int RegistryTree::Borrar(Raiz raiz, const QString& clave, const QString& valor) {
    auto partes = arbol::PartesDeClave(clave);
    if (!partes || !arbol::NombreValido(valor)) {
        return kNombreNoValido;
    }
    partes->prepend(Carpeta(raiz));
    QByteArray ruta = carpeta_;
    for (const QByteArray& parte : *partes) {
        const auto existente = arbol::Entrada(ruta, parte, arbol::Kind::Carpeta);
        if (!existente) {
            return kBien;
        }
        ruta += '/' + *existente;
    }
    // Every spelling goes, or another one would come to light.
    const QByteArray nombre = QFile::encodeName(valor);
    while (const auto existente = arbol::Entrada(ruta, nombre, arbol::Kind::Fichero)) {
        const QByteArray fichero = ruta + '/' + *existente;
        if (::unlink(fichero.constData()) != 0 && errno != ENOENT) {
            return CodigoDe(errno);
        }
    }
    return kBien;
}

int RegistryTree::BorrarRegistro(const QString& raiz, const QString& clave, const QString& valor) {
    const Raiz donde = RaizRegistro(raiz);
    if (donde == Raiz::Ninguna) {
        return kRaizNoValida;
    }
    if (donde != Raiz::Ini) {
        return Borrar(donde, clave, valor);
    }
    try {
        perfil::Escribir(raiz, clave, valor, QString());
        return kBien;
    } catch (const ErrorEjecucion&) {
        return kAccesoDenegado;
    }
}

QString RegistryTree::LeerValor(const QString& clave, const QString& valor,
                                const QString& defecto) const {
    QByteArray bytes;
    const int codigo = LeerTexto(Raiz::HKLM, u"Software\\"_s + clave, valor, bytes);
    return codigo == kBien ? TextoDe(bytes) : defecto;
}

QList<QByteArray> RegistryTree::Carpetas(const RegistryName& nombre) const {
    QList<QByteArray> carpetas{carpeta_};
    auto partes = arbol::PartesDeClave(u"Software\\"_s + nombre.key);
    if (!partes) {
        return carpetas;
    }
    partes->prepend(Carpeta(Raiz::HKLM));
    carpetas.reserve(partes->size() + 1);
    for (const QByteArray& parte : *partes) {
        const auto entrada = arbol::Entrada(carpetas.constLast(), parte, arbol::Kind::Carpeta);
        if (!entrada) {
            break;
        }
        carpetas.append(carpetas.constLast() + '/' + *entrada);
    }
    return carpetas;
}

void RegistryTree::GuardarValor(const QString& clave, const QString& valor, const QString& dato,
                                Guardado guardado) {
    const QString completa = u"Software\\"_s + clave + QLatin1Char('\\');
    EscribirRegistro(u"HKLM"_s, completa, valor, u"S"_s, dato, guardado);
}

void RegistryTree::BorrarValor(const QString& clave, const QString& valor) {
    BorrarRegistro(u"HKLM"_s, u"Software\\"_s + clave, valor);
}

} // namespace zv

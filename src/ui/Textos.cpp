// The language file, kept parsed for as long as the file on disk is the one that was read.
#include "ui/Textos.h"

#include "platform/Files.h"
#include "platform/StringLiterals.h"

#include <QByteArray>
#include <QFile>

#include <ctime>
#include <sys/stat.h>

namespace zv {

namespace {

// The read buffer holds so many characters of a value.
constexpr qsizetype kValorMaximo = 256;

// A file changed less than this ago may change again within one tick of the file system's clock
// and look the same: it is read again each time. 50 ms is many ticks.
constexpr qint64 kReciente = 50'000'000;

qint64 Nanosegundos(const timespec& t) {
    return static_cast<qint64>(t.tv_sec) * 1'000'000'000 + t.tv_nsec;
}

struct Huella {
    qint64 modificado = -1; // nanoseconds; -1 for no file
    qint64 cambiado = -1;
    qint64 tamaño = -1;
    quint64 inodo = 0;
    bool operator==(const Huella&) const = default;
};

Huella HuellaDe(const QByteArray& ruta) {
    struct stat s {};
    if (::stat(ruta.constData(), &s) != 0) {
        return {};
    }
    return {Nanosegundos(s.st_mtim), Nanosegundos(s.st_ctim), static_cast<qint64>(s.st_size),
            static_cast<quint64>(s.st_ino)};
}

// Blanks alone: a line break at the end of a text stays.
QString SinBlancos(const QString& texto) {
    qsizetype inicio = 0;
    qsizetype fin = texto.size();
    while (inicio < fin && texto[inicio] == QLatin1Char(' ')) {
        ++inicio;
    }
    while (fin > inicio && texto[fin - 1] == QLatin1Char(' ')) {
        --fin;
    }
    return fin - inicio == texto.size() ? texto : texto.mid(inicio, fin - inicio);
}

QString Buscar(const IniDocument& documento, const QString& seccion, const QString& clave,
               const QString& porDefecto) {
    const std::optional<QString> valor = documento.Valor(seccion, clave);
    QString texto = valor ? *valor : porDefecto;
    if (valor && texto.size() > kValorMaximo) {
        // Never half of a character.
        const bool par = texto[kValorMaximo - 1].isHighSurrogate();
        texto.truncate(par ? kValorMaximo - 1 : kValorMaximo);
    }
    if (texto.contains(QLatin1String("/CRLF/"))) {
        texto.replace(QLatin1String("/CRLF/"), QLatin1String("\r\n"));
    }
    return SinBlancos(texto);
}

} // namespace

struct Textos::Fichero {
    QByteArray ruta;
    Huella huella;
    bool reciente = false;
    IniDocument documento;

    const IniDocument& AlDia() {
        const Huella actual = HuellaDe(ruta);
        if (actual == huella && !reciente) {
            return documento;
        }
        huella = actual;
        documento = {};
        reciente = false;
        if (actual.modificado < 0) {
            return documento;
        }
        timespec ahora{};
        clock_gettime(CLOCK_REALTIME, &ahora);
        // A date in the future (another machine's clock) tells nothing either way: only the
        // change time is always this machine's.
        reciente = Nanosegundos(ahora) - actual.cambiado < kReciente;
        // One that cannot be read is as good as none.
        QByteArray bytes;
        LeerFicheroEntero(ruta, bytes);
        documento = IniDocument::Analizar(bytes);
        return documento;
    }
};

Textos::Textos(const QString& carpeta) : fichero_(std::make_unique<Fichero>()) {
    fichero_->ruta = QFile::encodeName(carpeta) + "/RWLang.ini";
}

Textos::~Textos() = default;

QString Textos::TextoIdioma(const QString& seccion, const QString& clave,
                            const QString& porDefecto) const {
    return Buscar(fichero_->AlDia(), seccion, clave, porDefecto);
}

QString Textos::Traduce(const Clave& clave) const {
    return TextoIdioma(clave.Seccion(), clave.Nombre(), clave.PorDefecto());
}

QString Textos::Traduce(const Clave& clave, const QString& detalle) const {
    return TextoIdioma(clave.Seccion(), clave.Nombre(), clave.PorDefecto().arg(detalle));
}

QString Textos::TraduceValor(const QString& valor) const {
    return TextoIdioma(u"COMMON"_s, valor, valor);
}

TextosPantalla Textos::DePantalla(const QString& pantalla) const {
    return {fichero_->AlDia(), pantalla};
}

QString TextosPantalla::TextoForm(const QString& clave, const QString& porDefecto) const {
    return Buscar(documento_, seccion_, clave, porDefecto);
}

} // namespace zv

// INI files of any bytes: lines, encodings, look-ups, one value written and read back, and the
// settings loaded from them and saved. Input: "section|key|value", then the file.
#include "config/Configuracio.h"
#include "config/ModuloIni.h"
#include "fuzz/Fuzz.h"
#include "platform/CodePage.h"
#include "platform/IniDocument.h"
#include "platform/IniLines.h"
#include "platform/PrivateProfile.h"
#include "platform/StringLiterals.h"
#include "support/LogMemoria.h"

#include <QTemporaryDir>

#include <algorithm>

namespace zv::fuzz {
namespace {

struct Valor {
    QString seccion;
    QString clave;
    QString texto;
};

// Every value in reach, the first of like names, by the lines themselves.
QList<Valor> Valores(const QByteArray& bytes) {
    QList<Valor> valores;
    const IniDocument documento = IniDocument::Analizar(bytes);
    IniLines lineas(bytes);
    std::optional<QString> seccion;
    while (const auto linea = lineas.Siguiente()) {
        const QString texto = lineas.Texto(*linea);
        const EntradaIni entrada = AnalizarLineaIni(texto);
        if (entrada.kind == EntradaIni::Kind::Seccion) {
            seccion = entrada.nombre.toString();
        } else if (entrada.kind == EntradaIni::Kind::Clave && seccion) {
            const QString clave = entrada.nombre.toString();
            const auto valor = documento.Valor(*seccion, clave);
            if (valor) { // a key of a second section of one name may be out of reach
                valores.append({*seccion, clave, *valor});
            }
        }
    }
    return valores;
}

void MirarLineas(const QByteArray& bytes) {
    IniLines lineas(bytes);
    qsizetype sitio = lineas.Principio();
    while (const auto linea = lineas.Siguiente()) {
        Exige(linea->inicio == sitio && linea->inicio <= linea->fin &&
                  linea->fin <= linea->siguiente && linea->siguiente > sitio,
              "lines lie one behind the other");
        sitio = linea->siguiente;
        const QString texto = lineas.Texto(*linea);
        Exige(!texto.contains(u'\n') && !texto.contains(u'\r'), "a line holds no line end");
        const QByteArray crudo = bytes.mid(linea->inicio, linea->fin - linea->inicio);
        // Decoders drop a mark at the beginning of a line.
        const bool conMarca = lineas.Principio() != 0 || crudo.startsWith("\xEF\xBB\xBF");
        Exige(conMarca || lineas.Codificar(texto) == crudo,
              "text without a mark is encoded back to its bytes");
    }
    Exige(bytes.size() - sitio <= 1, "lines reach to the end");
}

// What a reader gets of a value that has been written, but for its encoding.
QString Guardado(const QString& valor) {
    const qsizetype fin = std::min(
        {valor.indexOf(u'\r'), valor.indexOf(u'\n'), valor.indexOf(QChar::Null), valor.size()},
        [](qsizetype a, qsizetype b) { return static_cast<size_t>(a) < static_cast<size_t>(b); });
    return SinComillas(SinBlancos(QStringView(valor).first(fin))).toString();
}

// The same in the encoding of the file.
QString EnFichero(const QByteArray& antes, const QString& valor) {
    switch (IniLines(antes).Encoding()) {
    case IniLines::Codificacion::CodePage:
        return DeCodePage(ACodePage(valor));
    case IniLines::Codificacion::Utf8:
        // Not at the beginning, where a decoder would take a character for the mark.
        return QString::fromUtf8((u'x' + valor).toUtf8()).mid(1);
    default:
        return valor;
    }
}

// Names as a program has them: what the file would take for something else is not promised.
bool NombresLimpios(const QByteArray& antes, const QString& seccion, const QString& clave) {
    const auto limpio = [&](const QString& nombre) {
        return SinBlancos(nombre) == nombre && Guardado(u'x' + nombre) == u'x' + nombre &&
               EnFichero(antes, nombre) == nombre;
    };
    return limpio(seccion) && limpio(clave) && !clave.isEmpty() && !seccion.contains(u']') &&
           !clave.contains(u'=') && clave.front() != u';' && clave.front() != u'[';
}

void MirarEscritura(const QString& ruta, const QByteArray& antes, const QStringList& campos) {
    const QString& seccion = campos[0];
    const QString& clave = campos[1];
    perfil::Escribir(ruta, seccion, clave, campos[2]);
    const QByteArray despues = Leer(ruta);
    if (!NombresLimpios(antes, seccion, clave)) {
        return;
    }
    const QString esperado = Guardado(EnFichero(antes, campos[2]));
    Exige(perfil::Leer(ruta, seccion, clave) == esperado, "what is written is read");
    perfil::Escribir(ruta, seccion, clave, campos[2]);
    Exige(Leer(ruta) == despues || Guardado(campos[2]) != esperado,
          "writing the same again changes nothing");

    const IniDocument documento = IniDocument::Analizar(despues);
    Exige(documento.Valor(seccion, clave) == esperado, "both readers agree on what was written");
    for (const Valor& valor : Valores(antes)) {
        const bool este =
            MismoNombreIni(valor.seccion, seccion) && MismoNombreIni(valor.clave, clave);
        Exige(este || documento.Valor(valor.seccion, valor.clave) == valor.texto,
              "other values survive");
    }
    // In wide text any byte may be half of a character.
    const IniLines::Codificacion codificacion = IniLines(antes).Encoding();
    const bool ancha = codificacion == IniLines::Codificacion::Utf16Le ||
                       codificacion == IniLines::Codificacion::Utf16Be;
    if (!ancha && codificacion == IniLines(despues).Encoding()) {
        const auto distinto =
            std::mismatch(antes.cbegin(), antes.cend(), despues.cbegin(), despues.cend());
        const qsizetype delante = distinto.first - antes.cbegin();
        qsizetype detras = 0;
        while (detras < std::min(antes.size(), despues.size()) - delante &&
               antes[antes.size() - 1 - detras] == despues[despues.size() - 1 - detras]) {
            ++detras;
        }
        const QByteArray quitado = antes.mid(delante, antes.size() - delante - detras);
        Exige(!quitado.contains('\n'), "one line at most is replaced");
    }
}

void MirarAjustes(const QString& carpeta, const QString& ruta, bool guardar) {
    test::LogMemoria log;
    DialogosMudos dialogos;
    const ModuloIni ini(log, dialogos);
    RegistryTree registry(carpeta + u"/Registro"_s);
    const FormatoRegional formato(u"es_ES"_s);
    Configuracio primera(ini, registry, carpeta, formato);
    bool existe = false;
    const int numero = Numero([&] { primera.LeerCfgIni(ruta, existe); });
    Exige(numero == 0 || numero == 6 || numero == 13, "settings fail by 6 or 13 only");
    Exige(numero != 0 || existe, "settings tell of their file");
    Exige(primera.IP.size() <= 255 && primera.SUITEZV.size() <= 255, "values are cut at 255");
    if (numero != 0 || !guardar) {
        return;
    }
    const QByteArray antes = Leer(ruta);
    primera.GuardarConfig(ruta);
    Configuracio segunda(ini, registry, carpeta, formato);
    segunda.LeerCfgIni(ruta, existe);
    const auto texto = [&](const QString& valor) { return Guardado(EnFichero(antes, valor)); };
    Exige(segunda.IP == texto(primera.IP) && segunda.SUITEZV == texto(primera.SUITEZV) &&
              segunda.Modo == texto(primera.Modo) &&
              segunda.ZVFastPort == texto(primera.ZVFastPort) &&
              segunda.ZVConectorPath == texto(primera.ZVConectorPath),
          "saved texts are loaded");
    Exige(segunda.REFRESCO == primera.REFRESCO && segunda.MINIMIZADO == primera.MINIMIZADO &&
              segunda.SINHORA == primera.SINHORA && segunda.BCTPRE == primera.BCTPRE &&
              segunda.BCDEC == primera.BCDEC && segunda.zvFastActive == primera.zvFastActive &&
              segunda.ZVConectorActive == primera.ZVConectorActive,
          "saved numbers are loaded");
    Exige(log.lineas.isEmpty() && dialogos.mensajes.isEmpty(), "no access fails");
}

} // namespace

void UnaEntrada(Entrada entrada) {
    static const QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath(u"ZVMonitor.ini"_s);
    const QStringList campos = entrada.Campos(3);
    const QByteArray bytes = entrada.Resto();

    MirarLineas(bytes);
    Poner(ruta, bytes);
    constexpr qsizetype kCuantos = 4; // each costs a read of the file
    const QList<Valor> valores = Valores(bytes);
    for (const Valor& valor : valores.first(std::min(valores.size(), kCuantos))) {
        Exige(perfil::Leer(ruta, valor.seccion, valor.clave) == valor.texto,
              "both readers agree on a value");
    }
    const IniDocument documento = IniDocument::Analizar(bytes);
    Exige(perfil::Leer(ruta, campos[0], campos[1]) == documento.Valor(campos[0], campos[1]),
          "both readers agree on a name");
    // Without a section to write to it is the settings that are loaded, and saved if a key is
    // named.
    if (campos[0].isEmpty()) {
        MirarAjustes(carpeta.path(), ruta, !campos[1].isEmpty());
    } else {
        MirarEscritura(ruta, bytes, campos);
    }
}

} // namespace zv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    zv::fuzz::UnaEntrada(zv::fuzz::Entrada(datos, largo));
    return 0;
}

// A language file of any bytes: what a look-up answers holds to the rules of the texts. Input:
// "section|key|default", then the file.
#include "fuzz/Fuzz.h"
#include "platform/IniDocument.h"
#include "platform/IniLines.h"
#include "platform/StringLiterals.h"
#include "ui/Textos.h"

#include <QTemporaryDir>

namespace zv::fuzz {
namespace {

constexpr qsizetype kValorMaximo = 256;
constexpr int kBuscados = 6; // each costs a read of the file

void MirarTexto(const QString& texto, const QString& origen) {
    Exige(!texto.contains(QLatin1String("/CRLF/")), "no mark of a line break is left");
    Exige(!texto.startsWith(u' ') && !texto.endsWith(u' '), "no blank at the ends");
    Exige(texto.count(QLatin1String("\r\n")) <=
              origen.count(QLatin1String("/CRLF/")) + origen.count(QLatin1String("\r\n")),
          "line breaks come from marks");
}

void MirarValor(const QString& texto, const QString& valor) {
    MirarTexto(texto, valor);
    Exige(texto.size() <= kValorMaximo, "256 characters at most");
    if (valor.size() <= kValorMaximo && !valor.contains(QLatin1String("/CRLF/"))) {
        QString recto = valor;
        while (recto.startsWith(u' ')) {
            recto.remove(0, 1);
        }
        while (recto.endsWith(u' ')) {
            recto.chop(1);
        }
        Exige(texto == recto, "a value comes back whole");
    }
    Exige(valor.size() <= kValorMaximo || texto.isEmpty() || !texto.back().isHighSurrogate() ||
              valor.contains(QLatin1String("/CRLF/")),
          "no character is cut in half");
}

std::u16string_view Vista(const QString& texto) {
    return {reinterpret_cast<const char16_t*>(texto.utf16()),
            static_cast<std::size_t>(texto.size())};
}

void UnaEntrada(Entrada entrada) {
    static const QTemporaryDir carpeta;
    const QStringList campos = entrada.Campos(3);
    const QByteArray bytes = entrada.Resto();
    Poner(carpeta.filePath(u"RWLang.ini"_s), bytes);

    const Textos textos(carpeta.path());
    const IniDocument documento = IniDocument::Analizar(bytes);
    const auto mirar = [&](const QString& seccion, const QString& clave) {
        QString texto = textos.TextoIdioma(seccion, clave, campos[2]);
        const auto valor = documento.Valor(seccion, clave);
        if (valor) {
            MirarValor(texto, *valor);
        } else {
            MirarTexto(texto, campos[2]);
        }
        return texto;
    };
    mirar(campos[0], campos[1]);
    Exige(textos.Traduce(Clave(Vista(campos[1]), Vista(campos[2]))) ==
              mirar(u"COMMON"_s, campos[1]),
          "section COMMON is the one of code");
    IniLines lineas(bytes);
    QString seccion;
    int buscados = 0;
    while (const auto linea = lineas.Siguiente()) {
        const QString texto = lineas.Texto(*linea);
        const EntradaIni dicho = AnalizarLineaIni(texto);
        if (dicho.kind == EntradaIni::Kind::Seccion) {
            seccion = dicho.nombre.toString();
        } else if (dicho.kind == EntradaIni::Kind::Clave && buscados++ < kBuscados) {
            mirar(seccion, dicho.nombre.toString());
        }
    }
}

} // namespace
} // namespace zv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    zv::fuzz::UnaEntrada(zv::fuzz::Entrada(datos, largo));
    return 0;
}

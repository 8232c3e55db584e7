#include "platform/IniDocument.h"

#include "platform/IniLines.h"

namespace zv {

IniDocument IniDocument::Analizar(const QByteArray& bytes) {
    constexpr int kNinguna = -1;
    IniDocument documento;
    IniLines lineas(bytes);
    int seccion = kNinguna;
    while (const auto linea = lineas.Siguiente()) {
        const QString texto = lineas.Texto(*linea);
        const EntradaIni entrada = AnalizarLineaIni(texto);
        if (entrada.kind == EntradaIni::Kind::Seccion) {
            const QString nombre = entrada.nombre.toString().toCaseFolded();
            // A second section of one name is out of reach, with all its keys.
            const bool repetida = documento.secciones_.contains(nombre);
            seccion = repetida ? kNinguna : static_cast<int>(documento.secciones_.size());
            if (!repetida) {
                documento.secciones_.insert(nombre, seccion);
            }
        } else if (entrada.kind == EntradaIni::Kind::Clave && seccion != kNinguna) {
            // One search for both questions: is it new, and where does it go.
            const qsizetype antes = documento.valores_.size();
            QString& valor =
                documento.valores_[Clave{seccion, entrada.nombre.toString().toCaseFolded()}];
            if (documento.valores_.size() != antes) {
                valor = SinComillas(entrada.valor).toString();
            }
        }
    }
    return documento;
}

std::optional<QString> IniDocument::Valor(const QString& seccion, const QString& clave) const {
    const auto deSeccion = secciones_.constFind(seccion.toCaseFolded());
    if (deSeccion == secciones_.cend()) {
        return std::nullopt;
    }
    const auto valor = valores_.constFind({*deSeccion, clave.toCaseFolded()});
    if (valor == valores_.cend()) {
        return std::nullopt;
    }
    return *valor;
}

} // namespace zv

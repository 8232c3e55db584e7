// Parsing of an INI file into hashes.
#include "platform/DocumentoIni.h"

#include "platform/LineasIni.h"

namespace zv {

DocumentoIni DocumentoIni::Analizar(const QByteArray& bytes) {
    DocumentoIni documento;
    LineasIni lineas(bytes);
    QHash<QString, QString>* seccion = nullptr;
    while (const auto linea = lineas.Siguiente()) {
        const QString texto = lineas.Texto(*linea);
        const EntradaIni entrada = AnalizarLineaIni(texto);
        if (entrada.clase == EntradaIni::Clase::Seccion) {
            const QString nombre = entrada.nombre.toString().toCaseFolded();
            // A second section of one name is out of reach, with all its keys.
            seccion =
                documento.secciones_.contains(nombre) ? nullptr : &documento.secciones_[nombre];
        } else if (entrada.clase == EntradaIni::Clase::Clave && seccion != nullptr) {
            const QString nombre = entrada.nombre.toString().toCaseFolded();
            if (!seccion->contains(nombre)) {
                seccion->insert(nombre, SinComillas(entrada.valor).toString());
            }
        }
    }
    return documento;
}

std::optional<QString> DocumentoIni::Valor(const QString& seccion, const QString& clave) const {
    const auto deSeccion = secciones_.constFind(seccion.toCaseFolded());
    if (deSeccion == secciones_.cend()) {
        return std::nullopt;
    }
    const auto valor = deSeccion->constFind(clave.toCaseFolded());
    if (valor == deSeccion->cend()) {
        return std::nullopt;
    }
    return *valor;
}

} // namespace zv

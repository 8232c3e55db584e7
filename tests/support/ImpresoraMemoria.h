// A printer of plain measures that keeps its documents, and fails on demand: 10 twips of width for
// each character and point, 12 in bold; 24 twips of height for each point.
#pragma once

#include "platform/ErrorEjecucion.h"
#include "platform/Impresora.h"
#include "platform/StringLiterals.h"

#include <QStringList>

#include <utility>
#include <vector>

namespace zv::test {

class ImpresoraMemoria final : public Impresora {
  public:
    std::vector<DocumentoImpreso> documentos;
    QSize pagina{10000, 15000}; // upright
    bool hay = true;            // there is a printer
    int medidasHastaFallo = -1; // the printer goes after so many measured texts
    bool rechaza = false;       // it does not take the document
    int aperturas = 0;

    // The lines of a document, each as its texts with " | " between them; "-- " and the turn of the
    // page begin the second page and the others.
    static QStringList Lineas(const DocumentoImpreso& documento) {
        QStringList lineas;
        for (std::size_t i = 0; i < documento.size(); ++i) {
            if (i > 0) {
                lineas << (documento[i].orientacion == Orientacion::Apaisada ? u"-- 2"_s
                                                                             : u"-- 1"_s);
            }
            int y = -1;
            for (const TextoImpreso& texto : documento[i].textos) {
                if (std::exchange(y, texto.sitio.y()) == texto.sitio.y()) {
                    lineas.back() += u" | "_s + texto.texto;
                } else {
                    lineas << texto.texto;
                }
            }
        }
        return lineas;
    }
    QStringList Lineas() const {
        return documentos.size() == 1 ? Lineas(documentos.front())
                                      : QStringList{u"not one document"_s};
    }

  protected:
    void Abrir() override {
        ++aperturas;
        if (!hay) {
            throw errores::ErrorDeImpresora(u"no hay ninguna"_s);
        }
    }
    int Ancho(const QString& texto, const FuenteImpresora& fuente) override {
        if (medidasHastaFallo >= 0 && medidasHastaFallo-- == 0) {
            throw errores::ErrorDeImpresora(u"se ha ido"_s);
        }
        return static_cast<int>(texto.size()) * fuente.tamaño * (fuente.negrita ? 12 : 10);
    }
    int AltoLinea(const FuenteImpresora& fuente) override { return fuente.tamaño * 24; }
    QSize Pagina(Orientacion orientacion) override {
        return orientacion == Orientacion::Vertical ? pagina : pagina.transposed();
    }
    void Enviar(const DocumentoImpreso& documento) override {
        if (rechaza) {
            throw errores::ErrorDeImpresora(u"no acepta trabajos"_s);
        }
        documentos.push_back(documento);
    }
};

} // namespace zv::test

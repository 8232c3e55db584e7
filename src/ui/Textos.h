// Texts that a language file (RWLang.ini beside the program) may replace; the Spanish defaults
// stand in each folder's Claves.h. The file is looked at on each look-up and parsed again only
// when it has changed.
#pragma once

#include "platform/IniDocument.h"
#include "ui/Clave.h"

#include <QString>

#include <memory>
#include <utility>

namespace zv {

// The section of one screen as the file stands at one moment: many look-ups for one look at the
// file.
class TextosPantalla {
  public:
    QString TextoForm(const QString& clave, const QString& porDefecto) const;

  private:
    friend class Textos;
    TextosPantalla(IniDocument documento, QString seccion)
        : documento_(std::move(documento)), seccion_(std::move(seccion)) {}

    IniDocument documento_;
    QString seccion_;
};

class Textos {
  public:
    // carpeta: the folder that holds RWLang.ini; the file may be missing.
    explicit Textos(const QString& carpeta);
    ~Textos();
    Textos(const Textos&) = delete;
    Textos& operator=(const Textos&) = delete;

    // "/CRLF/" becomes a line break, blanks at both ends go, in the default too.
    QString TextoIdioma(const QString& seccion, const QString& clave,
                        const QString& porDefecto) const;
    QString Traduce(const Clave& clave) const;
    // For a default that tells of something: detalle stands in it at %1. A text of the file is
    // taken as it is.
    QString Traduce(const Clave& clave, const QString& detalle) const;
    // A value of a table that is its own key and its own default.
    QString TraduceValor(const QString& valor) const;
    // What a screen's controls are called, by their names; the section is the screen's name.
    TextosPantalla DePantalla(const QString& pantalla) const;

  private:
    struct Fichero;
    std::unique_ptr<Fichero> fichero_;
};

} // namespace zv

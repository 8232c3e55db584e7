// The one seam through which every caller reaches the operator. Screens answer it in the program,
// a script answers it in tests.
#pragma once

#include "platform/Currency.h"

#include <QString>
#include <QtGlobal>

namespace zv {

// Styles of MostrarMensaje: which buttons it has. The platform message box's own numbers.
enum class EstiloMensaje : qint32 {
    Aceptar = 0,
    AceptarCancelar = 1,
    SiNoCancelar = 3, // yes and no alone, like SiNo
    SiNo = 4,
    ReintentarCancelar = 5,
    // One button, like Aceptar.
    Critico = 16,
    Pregunta = 32,
    Aviso = 48,
    Informacion = 64
};

// Results of MostrarMensaje, the platform message box's own numbers.
enum class Respuesta : qint16 {
    Ninguna = 0, // a message of one button was closed without pressing it
    Aceptar = 1,
    Cancelar = 2,
    Reintentar = 4,
    Si = 6,
    No = 7
};

// What the operator wants printed, by the tags of its buttons.
enum class Impresion : quint8 { Nada = 0, Resumen = 1, Listado = 2, Todo = 3 };

class Dialogos {
  public:
    virtual ~Dialogos() = default;

    // Shared message dialog, modal. Answers the button that was pressed.
    virtual Respuesta MostrarMensaje(const QString& titulo, const QString& texto,
                                     EstiloMensaje estilo = EstiloMensaje::Aceptar) = 0;
    // One line of text; empty when cancelled.
    virtual QString PedirTexto(const QString& titulo, const QString& texto,
                               const QString& porDefecto = {}) = 0;
    // An amount in minor units, default in minor units too; cancelado tells how it ended. Not null,
    // sinImporte offers to end it without an amount, and tells whether that was chosen: cancelado
    // is set then too.
    virtual Currency PedirImporte(const QString& titulo, const QString& prompt, Currency porDefecto,
                                  bool* sinImporte, bool& cancelado) = 0;
    // What is to be printed of the cash office.
    virtual Impresion ElegirImpresion() = 0;
    // The platform's plain message box with one button.
    virtual void CajaSimple(const QString& texto) = 0;
};

} // namespace zv

// Texts of a scanned code that cannot be charged, and of the screen on which the layout is set.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesBarcode[] = {
    {u"errorLongitudCodigoBarras",
     u"El mensaje tiene que tener la misma lungitud que la de la configuración"},
    {u"errorConfiguracionCodigoBarras",
     u"La configuración no corresponde con la longitud del còdigo de barras"},
    {u"errorImporteCodigoBarras", u"Configuración de importe en el codigo de barras no admitido"},
    // The device's decimals stand behind it.
    {u"errorDecimalesCodigoBarras", u"El numero de decimales tiene que ser inferior a "},
    // captions
    {u"Balanza", u"lbTitulo_Lit", u"Configuración - Codigo de barras"},
    {u"Balanza", u"TBal_0_Lit", u"Longitud código EAN (base 1)"},
    {u"Balanza", u"Check1_Lit", u"Incluir codigo del tícket"},
    {u"Balanza", u"TBal_1_Lit", u"De:"},
    {u"Balanza", u"TBal_2_Lit", u"a:"},
    {u"Balanza", u"lblValor_Lit", u"Incluir valor del ticket"},
    {u"Balanza", u"TBal_3_Lit", u"De:"},
    {u"Balanza", u"TBal_4_Lit", u"a:"},
    {u"Balanza", u"TBal_5_Lit", u"Numero de decimales en el importe"},
    {u"Balanza", u"boton_0_Lit", u"Salir"},
    {u"Balanza", u"boton_1_Lit", u"Aceptar"},
    // cards, the strip of the code, a scan to try the layout on
    {u"Balanza", u"fraCampos_Lit", u"Posiciones"},
    {u"Balanza", u"fraPrueba_Lit", u"Prueba"},
    {u"Balanza", u"fraCodigo_Lit", u"Código"},
    {u"Balanza", u"tira_Lit", u"Celdas del código"},
    {u"Balanza", u"lblZonaTicket_Lit", u"Código del ticket"},
    {u"Balanza", u"lblZonaImporte_Lit", u"Importe"},
    {u"Balanza", u"tbPrueba_Lit", u"Escanee un ticket"},
    {u"Balanza", u"lblTicket_Lit", u"Código"},
    {u"Balanza", u"lblImporte_Lit", u"A cobrar"},
    {u"Balanza", u"lbNota_Lit", u"Al escanear un ticket se ve aquí lo que se cobraría"},
};

inline constexpr const Clave& kErrorLongitudCodigo =
    Entrada(kClavesBarcode, u"errorLongitudCodigoBarras");
inline constexpr const Clave& kErrorConfiguracionCodigo =
    Entrada(kClavesBarcode, u"errorConfiguracionCodigoBarras");
inline constexpr const Clave& kErrorImporteCodigo =
    Entrada(kClavesBarcode, u"errorImporteCodigoBarras");
inline constexpr const Clave& kDecimalesInferior =
    Entrada(kClavesBarcode, u"errorDecimalesCodigoBarras");
inline constexpr const Clave& kBalanzaTitulo = Entrada(kClavesBarcode, u"Balanza", u"lbTitulo_Lit");
inline constexpr const Clave& kBalanzaTicket = Entrada(kClavesBarcode, u"Balanza", u"Check1_Lit");
inline constexpr const Clave& kBalanzaValor = Entrada(kClavesBarcode, u"Balanza", u"lblValor_Lit");
inline constexpr const Clave& kBalanzaSalir = Entrada(kClavesBarcode, u"Balanza", u"boton_0_Lit");
inline constexpr const Clave& kBalanzaAceptar = Entrada(kClavesBarcode, u"Balanza", u"boton_1_Lit");
inline constexpr const Clave& kBalanzaCamposTarjeta =
    Entrada(kClavesBarcode, u"Balanza", u"fraCampos_Lit");
inline constexpr const Clave& kBalanzaPruebaTarjeta =
    Entrada(kClavesBarcode, u"Balanza", u"fraPrueba_Lit");
inline constexpr const Clave& kBalanzaCodigoTarjeta =
    Entrada(kClavesBarcode, u"Balanza", u"fraCodigo_Lit");
inline constexpr const Clave& kBalanzaTira = Entrada(kClavesBarcode, u"Balanza", u"tira_Lit");
inline constexpr const Clave& kBalanzaZonaTicket =
    Entrada(kClavesBarcode, u"Balanza", u"lblZonaTicket_Lit");
inline constexpr const Clave& kBalanzaZonaImporte =
    Entrada(kClavesBarcode, u"Balanza", u"lblZonaImporte_Lit");
inline constexpr const Clave& kBalanzaPrueba = Entrada(kClavesBarcode, u"Balanza", u"tbPrueba_Lit");
inline constexpr const Clave& kBalanzaLblTicket =
    Entrada(kClavesBarcode, u"Balanza", u"lblTicket_Lit");
inline constexpr const Clave& kBalanzaLblImporte =
    Entrada(kClavesBarcode, u"Balanza", u"lblImporte_Lit");
inline constexpr const Clave& kBalanzaNota = Entrada(kClavesBarcode, u"Balanza", u"lbNota_Lit");
// By field.
inline constexpr const Clave* kBalanzaCampos[] = {
    &Entrada(kClavesBarcode, u"Balanza", u"TBal_0_Lit"),
    &Entrada(kClavesBarcode, u"Balanza", u"TBal_1_Lit"),
    &Entrada(kClavesBarcode, u"Balanza", u"TBal_2_Lit"),
    &Entrada(kClavesBarcode, u"Balanza", u"TBal_3_Lit"),
    &Entrada(kClavesBarcode, u"Balanza", u"TBal_4_Lit"),
    &Entrada(kClavesBarcode, u"Balanza", u"TBal_5_Lit")};

} // namespace zv::texto

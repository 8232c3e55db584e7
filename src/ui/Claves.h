// Texts of the shared dialogs, and what all screens share.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesUi[] = {
    {u"GEN", u"FrmCaption", u"Zorvex ®"},
    {u"boton_0", u"Aceptar"},
    {u"interruptorSi", u"Sí"},
    {u"interruptorNo", u"No"},
    {kCadaPantalla, u"btnW_1", u"Cerrar"},
    {kCadaPantalla, u"btnArriba", u"Página anterior"},
    {kCadaPantalla, u"btnAbajo", u"Página siguiente"},
    {kCadaPantalla, u"btnTop", u"Primera fila"},
    {kCadaPantalla, u"btnBottom", u"Última fila"},
    // message
    {u"frmMensaje", u"boton_0", u"Aceptar"},
    {u"frmMensaje", u"boton_1", u"Cancelar"},
    // text prompt
    {u"frmTexto", u"boton_0", u"Aceptar"},
    {u"frmTexto", u"boton_1", u"Cancelar"},
    {u"frmTexto", u"boton_2", u"Teclado en pantalla"},
    // amount prompt
    {u"frmCash", u"teci_11", u"Entrar"},
    {u"frmCash", u"teci_12", u"Cancelar"},
    {u"frmCash", u"teci_13", u"Retroceso"},
    {u"frmCash", u"teci_14", u"Sin importe"},
    // choice of printouts
    {u"frmImpresio", u"lbTitulo", u"Imprimir"},
    {u"frmImpresio", u"lbTexto", u"¿Que desea imprimir?"},
    {u"frmImpresio", u"boton_0", u"Resumen Caja"},
    {u"frmImpresio", u"boton_1", u"Listado Movimientos"},
    {u"frmImpresio", u"boton_2", u"Todo"},
};

inline constexpr const Clave& kTituloVentana = Entrada(kClavesUi, u"GEN", u"FrmCaption");
inline constexpr const Clave& kAceptar = Entrada(kClavesUi, u"boton_0");
inline constexpr const Clave& kInterruptorSi = Entrada(kClavesUi, u"interruptorSi");
inline constexpr const Clave& kInterruptorNo = Entrada(kClavesUi, u"interruptorNo");
inline constexpr const Clave& kCerrar = Entrada(kClavesUi, kCadaPantalla, u"btnW_1");
inline constexpr const Clave& kPaginaAnterior = Entrada(kClavesUi, kCadaPantalla, u"btnArriba");
inline constexpr const Clave& kPaginaSiguiente = Entrada(kClavesUi, kCadaPantalla, u"btnAbajo");
inline constexpr const Clave& kPrimeraFila = Entrada(kClavesUi, kCadaPantalla, u"btnTop");
inline constexpr const Clave& kUltimaFila = Entrada(kClavesUi, kCadaPantalla, u"btnBottom");
inline constexpr const Clave& kMensajeAceptar = Entrada(kClavesUi, u"frmMensaje", u"boton_0");
inline constexpr const Clave& kMensajeCancelar = Entrada(kClavesUi, u"frmMensaje", u"boton_1");
inline constexpr const Clave& kTextoAceptar = Entrada(kClavesUi, u"frmTexto", u"boton_0");
inline constexpr const Clave& kTextoCancelar = Entrada(kClavesUi, u"frmTexto", u"boton_1");
inline constexpr const Clave& kTextoTeclado = Entrada(kClavesUi, u"frmTexto", u"boton_2");
inline constexpr const Clave& kCashEntrar = Entrada(kClavesUi, u"frmCash", u"teci_11");
inline constexpr const Clave& kCashCancelar = Entrada(kClavesUi, u"frmCash", u"teci_12");
inline constexpr const Clave& kCashRetroceso = Entrada(kClavesUi, u"frmCash", u"teci_13");
inline constexpr const Clave& kCashSinImporte = Entrada(kClavesUi, u"frmCash", u"teci_14");
inline constexpr const Clave& kImpresioTitulo = Entrada(kClavesUi, u"frmImpresio", u"lbTitulo");
inline constexpr const Clave& kImpresioTexto = Entrada(kClavesUi, u"frmImpresio", u"lbTexto");
inline constexpr const Clave& kImpresioResumen = Entrada(kClavesUi, u"frmImpresio", u"boton_0");
inline constexpr const Clave& kImpresioListado = Entrada(kClavesUi, u"frmImpresio", u"boton_1");
inline constexpr const Clave& kImpresioTodo = Entrada(kClavesUi, u"frmImpresio", u"boton_2");

} // namespace zv::texto

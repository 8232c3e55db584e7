// Texts of users and access.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesAccess[] = {
    // a place that this user may not enter
    {u"usuarios", u"Usuarios"},
    {u"usuarioNoAutorizado", u"Usuario no autorizado"},
    // login
    {u"identificacion", u"Identificación"},
    {u"modificarContraseña", u"Modificar contraseña"},
    {u"contraseñaIncorrecta0", u"Contraseña incorrecta"},
    {u"contraseñaIncorrecta1", u"La contraseña introducida es incorrecta"},
    {u"contraseñaIncorrecta2", u"Las contraseñas introducidas no coinciden"},
    {u"añadirCambioAnulado", u"Añadir cambio anulado"},
    {u"añadirCambioCancelado", u"Se va a devolver el dinero introducido"},
    {u"frmLogin", u"lbTitulo", u"Login"},
    {u"frmLogin", u"lblUsuario", u"Usuario"},
    {u"frmLogin", u"lblPassword", u"Contraseña"},
    {u"frmLogin", u"lblNewPassword", u"Nueva contraseña"},
    {u"frmLogin", u"lblRepeatPassword", u"Repetir contraseña"},
    {u"frmLogin", u"lbNota", u"Escriba su contraseña y, dos veces, la nueva: de 4 a 40 caracteres"},
    {u"frmLogin", u"teci_10", u"Entrar"},
    {u"frmLogin", u"teci_11", u"Cancelar"},
    {u"frmLogin", u"teci_12", u"Retroceso"},
    // what the list says while nobody is chosen in it
    {u"elijaUsuario", u"Elija un usuario"},
    {u"sinUsuarios", u"No hay usuarios"},
    // users
    {u"crearUsuario0", u"Crear Usuario"},
    {u"crearUsuario1", u"El primer usuario a crear debe ser un Administrador"},
    {u"crearUsuario2", u"Debes introducir una nombre valido"},
    {u"crearUsuario3", u"Debes introducir una contraseña de mas de 4 digitos"},
    {u"crearUsuario4", u"Debes seleccionar un tipo de rol"},
    {u"guardarUsuario0", u"Usuario guardado"},
    {u"guardarUsuario1", u"Usuario guardado correctamente"},
    {u"errorGuardarUsuario0", u"Error guardado"},
    {u"errorGuardarUsuario1", u"No puedes canviar el rol al unico usuario administrador"},
    {u"errorBorrarUsuario0", u"Error borrar"},
    {u"errorBorrarUsuario1",
     u"No puedes eliminar el usuario administrador mientras existan otros usuarios"},
    {u"frmUsuarios", u"lbTitulo", u"Gestion de usuarios"},
    {u"frmUsuarios", u"btnTancar", u"Cerrar"},
    {u"frmUsuarios", u"lblUsuario", u"Usuario"},
    {u"frmUsuarios", u"lblPassword", u"Contraseña"},
    {u"frmUsuarios", u"fraRol", u"Rol"},
    {u"frmUsuarios", u"btnAdmin_0", u"Administrador"},
    {u"frmUsuarios", u"btnAdmin_1", u"Autorizado"},
    {u"frmUsuarios", u"btnAdmin_2", u"Usuario"},
    {u"frmUsuarios", u"btnGuardar", u"Guardar"},
    {u"frmUsuarios", u"btnEliminar", u"Eliminar"},
    {u"frmUsuarios", u"btnSortir", u"Salir"},
    // what each role may enter
    {u"frmUsuarios", u"lbRol_0", u"Administrador: entra en todo, también en ajustes e incidencias"},
    {u"frmUsuarios", u"lbRol_1",
     u"Autorizado: caja, registro, pagos, cobros y añadir cambio; no ajustes ni incidencias"},
    {u"frmUsuarios", u"lbRol_2", u"Usuario: solo cobros manuales y agrupados, y añadir cambio"},
};

inline constexpr const Clave& kTituloUsuarios = Entrada(kClavesAccess, u"usuarios");
inline constexpr const Clave& kNoAutorizado = Entrada(kClavesAccess, u"usuarioNoAutorizado");
inline constexpr const Clave& kIdentificacion = Entrada(kClavesAccess, u"identificacion");
inline constexpr const Clave& kModificarContraseña = Entrada(kClavesAccess, u"modificarContraseña");
inline constexpr const Clave& kContraseñaIncorrectaTitulo =
    Entrada(kClavesAccess, u"contraseñaIncorrecta0");
inline constexpr const Clave& kContraseñaIncorrecta =
    Entrada(kClavesAccess, u"contraseñaIncorrecta1");
inline constexpr const Clave& kContraseñasDistintas =
    Entrada(kClavesAccess, u"contraseñaIncorrecta2");
inline constexpr const Clave& kAnadirCambioAnulado = Entrada(kClavesAccess, u"añadirCambioAnulado");
inline constexpr const Clave& kAnadirCambioCancelado =
    Entrada(kClavesAccess, u"añadirCambioCancelado");
inline constexpr const Clave& kLoginTitulo = Entrada(kClavesAccess, u"frmLogin", u"lbTitulo");
inline constexpr const Clave& kLoginUsuario = Entrada(kClavesAccess, u"frmLogin", u"lblUsuario");
inline constexpr const Clave& kLoginPassword = Entrada(kClavesAccess, u"frmLogin", u"lblPassword");
inline constexpr const Clave& kLoginNewPassword =
    Entrada(kClavesAccess, u"frmLogin", u"lblNewPassword");
inline constexpr const Clave& kLoginRepeatPassword =
    Entrada(kClavesAccess, u"frmLogin", u"lblRepeatPassword");
inline constexpr const Clave& kLoginNota = Entrada(kClavesAccess, u"frmLogin", u"lbNota");
inline constexpr const Clave& kLoginEntrar = Entrada(kClavesAccess, u"frmLogin", u"teci_10");
inline constexpr const Clave& kLoginCancelar = Entrada(kClavesAccess, u"frmLogin", u"teci_11");
inline constexpr const Clave& kLoginRetroceso = Entrada(kClavesAccess, u"frmLogin", u"teci_12");
inline constexpr const Clave& kElijaUsuario = Entrada(kClavesAccess, u"elijaUsuario");
inline constexpr const Clave& kSinUsuarios = Entrada(kClavesAccess, u"sinUsuarios");
inline constexpr const Clave& kCrearUsuario = Entrada(kClavesAccess, u"crearUsuario0");
inline constexpr const Clave& kPrimeroAdministrador = Entrada(kClavesAccess, u"crearUsuario1");
inline constexpr const Clave& kNombreNoValido = Entrada(kClavesAccess, u"crearUsuario2");
inline constexpr const Clave& kContraseñaCorta = Entrada(kClavesAccess, u"crearUsuario3");
inline constexpr const Clave& kSinRol = Entrada(kClavesAccess, u"crearUsuario4");
inline constexpr const Clave& kUsuarioGuardadoTitulo = Entrada(kClavesAccess, u"guardarUsuario0");
inline constexpr const Clave& kUsuarioGuardado = Entrada(kClavesAccess, u"guardarUsuario1");
inline constexpr const Clave& kErrorGuardadoTitulo =
    Entrada(kClavesAccess, u"errorGuardarUsuario0");
inline constexpr const Clave& kUnicoAdministrador = Entrada(kClavesAccess, u"errorGuardarUsuario1");
inline constexpr const Clave& kErrorBorrarTitulo = Entrada(kClavesAccess, u"errorBorrarUsuario0");
inline constexpr const Clave& kNoBorrarAdministrador =
    Entrada(kClavesAccess, u"errorBorrarUsuario1");
inline constexpr const Clave& kUsuariosTitulo = Entrada(kClavesAccess, u"frmUsuarios", u"lbTitulo");
inline constexpr const Clave& kUsuariosTancar =
    Entrada(kClavesAccess, u"frmUsuarios", u"btnTancar");
inline constexpr const Clave& kUsuariosUsuario =
    Entrada(kClavesAccess, u"frmUsuarios", u"lblUsuario");
inline constexpr const Clave& kUsuariosPassword =
    Entrada(kClavesAccess, u"frmUsuarios", u"lblPassword");
inline constexpr const Clave& kUsuariosRol = Entrada(kClavesAccess, u"frmUsuarios", u"fraRol");
// By role.
inline constexpr const Clave* kUsuariosRoles[] = {
    &Entrada(kClavesAccess, u"frmUsuarios", u"btnAdmin_0"),
    &Entrada(kClavesAccess, u"frmUsuarios", u"btnAdmin_1"),
    &Entrada(kClavesAccess, u"frmUsuarios", u"btnAdmin_2")};
inline constexpr const Clave* kUsuariosNotas[] = {
    &Entrada(kClavesAccess, u"frmUsuarios", u"lbRol_0"),
    &Entrada(kClavesAccess, u"frmUsuarios", u"lbRol_1"),
    &Entrada(kClavesAccess, u"frmUsuarios", u"lbRol_2")};
inline constexpr const Clave& kUsuariosGuardar =
    Entrada(kClavesAccess, u"frmUsuarios", u"btnGuardar");
inline constexpr const Clave& kUsuariosEliminar =
    Entrada(kClavesAccess, u"frmUsuarios", u"btnEliminar");
inline constexpr const Clave& kUsuariosSortir =
    Entrada(kClavesAccess, u"frmUsuarios", u"btnSortir");

} // namespace zv::texto
